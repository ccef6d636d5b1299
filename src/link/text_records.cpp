#include "link/text_records.h"

#include <fstream>
#include <string_view>

namespace tambrix {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Takes a quoted field off the front of `line`; a doubled quote stands for one.
std::string takeQuoted(std::string_view& line)
{
    std::string field;
    std::size_t i = 1;
    for (; i < line.size(); ++i) {
        if (line[i] == '"' && (i + 1 == line.size() || line[i + 1] != '"'))
            break;
        if (line[i] == '"')
            ++i;
        field += line[i];
    }
    line.remove_prefix(std::min(i + 1, line.size()));
    return field;
}

std::string takeField(std::string_view& line, std::size_t plainEnd)
{
    line = trimmed(line);
    if (!line.empty() && line.front() == '"')
        return takeQuoted(line);
    const std::string_view plain = line.substr(0, plainEnd == 0 ? line.find(',') : plainEnd);
    line.remove_prefix(plain.size());
    return std::string(trimmed(plain));
}

TextRecord parseRecord(std::string_view line)
{
    TextRecord record;
    record.code = takeField(line, 0);
    line = trimmed(line);
    if (!line.empty() && line.front() == ',')
        line.remove_prefix(1);
    record.text = takeField(line, std::string_view::npos);
    return record;
}

} // namespace

std::optional<std::vector<TextRecord>> readTextRecords(const std::filesystem::path& file)
{
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error))
        return std::nullopt;
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        return std::nullopt;
    std::vector<TextRecord> records;
    for (std::string line; std::getline(stream, line);) {
        std::string_view text = line;
        if (records.empty() && text.starts_with(kByteOrderMark))
            text.remove_prefix(kByteOrderMark.size());
        if (!trimmed(text).empty())
            records.push_back(parseRecord(text));
    }
    return records;
}

} // namespace tambrix
