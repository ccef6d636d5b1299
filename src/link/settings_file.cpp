#include "link/settings_file.h"

#include "link/bounded_file.h"
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
std::string firstBytes(const fs::path& file, std::error_code& error)
{
    constexpr std::size_t kLongestLine = 256;
    const auto start = readStart(file, kLongestLine);
    if (start)
        return *start;
    const fs::file_type type = fs::status(file, error).type();
    error = std::make_error_code(type == fs::file_type::directory ? std::errc::is_a_directory
                                 : type == fs::file_type::regular ? std::errc::permission_denied
                                                                  : std::errc::not_supported);
    return {};
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
    const std::string start = present && !error ? firstBytes(file, error) : std::string();
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
    std::error_code ignored;
    fs::remove(whole, ignored); // it could be a link to somebody's file
    if (writeLine(whole, settings, error))
        fs::rename(whole, file, error);
    if (error)
        fs::remove(whole, ignored);
}

} // namespace tambrix
