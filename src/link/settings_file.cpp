#include "link/settings_file.h"

#include "link/lenient_number.h"
#include "link/text.h"

#include <algorithm>
#include <fstream>

namespace tambrix {

namespace fs = std::filesystem;

namespace {

/// The text after leading blanks and an opening quote: fields may come quoted or plain.
std::string_view fieldText(std::string_view field)
{
    const std::size_t start = field.find_first_not_of(" \t\"");
    return start == std::string_view::npos ? std::string_view{} : field.substr(start);
}

CommSettings parseLine(std::string_view line)
{
    const std::size_t comma = line.find(',');
    const std::string_view port = line.substr(0, comma);
    const std::string_view speed =
        comma == std::string_view::npos ? std::string_view{} : line.substr(comma + 1);
    CommSettings settings;
    settings.port = std::clamp(leadingDecimal(fieldText(port)), kLowestPort, kHighestPort);
    settings.speed = leadingDecimal(fieldText(speed)) == 19200 ? "19200" : "9600";
    return settings;
}

/// The first bytes of a file, enough for its one line.
std::string readStart(const fs::path& file, std::error_code& error)
{
    constexpr std::size_t kLongestLine = 256;
    if (fs::is_directory(file, error)) {
        error = std::make_error_code(std::errc::is_a_directory);
        return {};
    }
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        error = std::make_error_code(std::errc::permission_denied);
        return {};
    }
    std::string start(kLongestLine, '\0');
    stream.read(start.data(), kLongestLine);
    start.resize(static_cast<std::size_t>(stream.gcount()));
    return start;
}

/// Returns whether all of it is in the file.
bool writeLine(const fs::path& file, const CommSettings& settings, std::error_code& error)
{
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    if (!stream) {
        error = std::make_error_code(std::errc::permission_denied);
        return false;
    }
    stream << settings.port << ',' << settings.speed << "\r\n";
    stream.close();
    if (!stream)
        error = std::make_error_code(std::errc::io_error);
    return !error;
}

} // namespace

CommSettings readOrCreateCommSettings(const fs::path& file, std::error_code& error)
{
    const bool present = fs::exists(file, error);
    const std::string start = present && !error ? readStart(file, error) : std::string();
    if (error)
        return {};
    if (start.empty()) {
        writeCommSettings(file, {}, error);
        return {};
    }
    std::string_view text = withoutByteOrderMark(start);
    return parseLine(takeLine(text));
}

CommSettings readCommSettings(const fs::path& file)
{
    std::error_code error;
    const bool filled = fs::file_size(file, error) > 0 && !error;
    return filled ? readOrCreateCommSettings(file, error) : CommSettings();
}

void writeCommSettings(const fs::path& file, const CommSettings& settings, std::error_code& error)
{
    fs::create_directories(file.parent_path(), error);
    if (error)
        return;
    fs::path whole = file;
    whole += ".new";
    if (writeLine(whole, settings, error))
        fs::rename(whole, file, error);
    std::error_code ignored;
    if (error)
        fs::remove(whole, ignored);
}

} // namespace tambrix
