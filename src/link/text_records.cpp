#include "link/text_records.h"

#include "link/bounded_file.h"
#include "link/text.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace tambrix {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::uintmax_t kLongestFile = 1 << 20; // bytes; a text for every code takes a tenth

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Takes a quoted field off the front of `text`; a doubled quote stands for one, and line breaks
/// belong to it. A quote that is never closed ends with its line.
std::string takeQuoted(std::string_view& text)
{
    std::string field;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '"' && text.substr(i + 1, 1) != "\"") {
            text.remove_prefix(i + 1);
            return field;
        }
        if (text[i] == '"')
            ++i;
        field += text[i];
    }
    const std::string_view line = takeLine(text);
    return std::string(line.substr(1));
}

/// Takes a field off the front of `text`; a plain one goes up to one of `ends`.
std::string takeField(std::string_view& text, std::string_view ends)
{
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    if (text.starts_with('"'))
        return takeQuoted(text);
    const std::string_view plain = text.substr(0, text.find_first_of(ends));
    text.remove_prefix(plain.size());
    return std::string(trimmed(plain));
}

/// Takes the next record, up to the end of its last line.
TextRecord takeRecord(std::string_view& text)
{
    TextRecord record;
    record.code = takeField(text, ",\r\n");
    text.remove_prefix(std::min(text.find_first_of(",\r\n"), text.size()));
    if (text.starts_with(',')) {
        text.remove_prefix(1);
        record.text = takeField(text, "\r\n");
    }
    takeLine(text);
    return record;
}

} // namespace

std::optional<std::vector<TextRecord>> readTextRecords(const std::filesystem::path& file)
{
    const auto content = readBounded(file, kLongestFile);
    if (!content)
        return std::nullopt;
    std::vector<TextRecord> records;
    for (std::string_view text = withoutByteOrderMark(*content); !text.empty();) {
        TextRecord record = takeRecord(text);
        if (!record.code.empty() || !record.text.empty())
            records.push_back(std::move(record));
    }
    return records;
}

} // namespace tambrix
