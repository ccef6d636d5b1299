#include "link/hex_records.h"

#include "link/mark_hex.h"

#include <fstream>

namespace tambrix {

namespace {

constexpr char kRecordMark = ':';
// Places in a line, counted from 0.
constexpr std::size_t kLengthAt = 1;
constexpr std::size_t kAddressAt = 3;
constexpr std::size_t kDataAt = 9;
constexpr std::size_t kDigitsAroundData = kDataAt + 2; // all but the data: checksum included

/// The board addresses 64 KiB; even in records of one byte its whole program is smaller.
constexpr std::uintmax_t kLargestFile = std::uintmax_t{4} * 1024 * 1024;

/// Takes the next line off the front of `text`. Lines end in CR LF, CR or LF.
std::string_view takeLine(std::string_view& text)
{
    const std::size_t end = text.find_first_of("\r\n");
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(line.size());
    if (text.starts_with("\r\n"))
        text.remove_prefix(2);
    else if (!text.empty())
        text.remove_prefix(1);
    return line;
}

std::string_view withoutTrailingBlanks(std::string_view line)
{
    return line.substr(0, line.find_last_not_of(" \t") + 1);
}

bool onlyDigits(std::string_view digits)
{
    for (const char c : digits) {
        if (!hexDigit(c))
            return false;
    }
    return true;
}

/// What is wrong with a line, or nothing.
const char* complaint(std::string_view line)
{
    if (line.empty() || line.front() != kRecordMark)
        return "The line does not begin with a record mark.";
    if (!onlyDigits(line.substr(1)))
        return "The line holds a character that is not a hexadecimal digit.";
    const auto length = hexPair(line, kLengthAt);
    if (!length || line.size() < kDigitsAroundData + std::size_t{2} * *length)
        return "The record is cut short.";
    if (line.size() > kDigitsAroundData + std::size_t{2} * *length)
        return "The line is longer than its record length says.";
    if (*length > kLongestRecord)
        return "The record is too long for the target board.";
    return nullptr;
}

/// The record of a line that has nothing wrong with it.
HexRecord recordOf(std::string_view line)
{
    const auto byteAt = [line](std::size_t place) { return hexPair(line, place).value_or(0); };
    HexRecord record;
    record.address = static_cast<std::uint16_t>(byteAt(kAddressAt) << 8 | byteAt(kAddressAt + 2));
    for (std::size_t j = 0; j < byteAt(kLengthAt); ++j)
        record.data.push_back(byteAt(kDataAt + 2 * j));
    return record;
}

HexImage faulty(int line, std::string reason)
{
    return {{}, HexFault{line, std::move(reason)}};
}

} // namespace

HexImage parseHexImage(std::string_view text)
{
    if (text.empty())
        return faulty(0, "The file is empty.");
    HexImage image;
    for (int number = 1; !text.empty(); ++number) {
        const std::string_view line = withoutTrailingBlanks(takeLine(text));
        if (const char* wrong = complaint(line))
            return faulty(number, wrong);
        HexRecord record = recordOf(line);
        if (!record.data.empty())
            image.records.push_back(std::move(record));
    }
    return image;
}

HexImage readHexImage(const std::filesystem::path& file)
{
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error)
        return faulty(0, "The file cannot be read: " + error.message() + ".");
    if (size > kLargestFile)
        return faulty(0, "The file is too large for a program image.");
    std::ifstream stream(file, std::ios::binary);
    std::string text(static_cast<std::size_t>(size), '\0');
    stream.read(text.data(), static_cast<std::streamsize>(size));
    if (!stream)
        return faulty(0, "The file cannot be read.");
    return parseHexImage(text);
}

} // namespace tambrix
