#include "link/hex_records.h"

#include "link/bounded_file.h"
#include "link/mark_hex.h"
#include "link/text.h"

namespace tambrix {

namespace {

constexpr char kRecordMark = ':';
// Places in a line, counted from 0.
constexpr std::size_t kLengthAt = 1;
constexpr std::size_t kAddressAt = 3;
constexpr std::size_t kDataAt = 9;
constexpr std::size_t kAddressDigits = 4;

/// The board addresses 64 KiB; even in records of one byte its whole program is smaller.
constexpr std::uintmax_t kLargestFile = std::uintmax_t{4} * 1024 * 1024;

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
    const auto length = hexPair(line, kLengthAt);
    if (!length)
        return "The record length is not a hexadecimal number.";
    if (*length == 0)
        return nullptr;
    if (*length > kLongestRecord)
        return "The record is too long for the target board.";
    const std::size_t digits = std::size_t{2} * *length;
    if (line.size() < kDataAt + digits)
        return "The record is cut short.";
    if (!onlyDigits(line.substr(kAddressAt, kAddressDigits)) ||
        !onlyDigits(line.substr(kDataAt, digits)))
        return "The record holds a character that is not a hexadecimal digit.";
    return nullptr;
}

/// The record of a line that has nothing wrong with it.
HexRecord recordOf(std::string_view line)
{
    const auto byteAt = [line](std::size_t place) { return hexPair(line, place).value_or(0); };
    HexRecord record;
    if (byteAt(kLengthAt) == 0)
        return record;
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
        const std::string_view line = takeLine(text);
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
    const auto text = readBounded(file, kLargestFile);
    return text ? parseHexImage(*text) : faulty(0, "The file cannot be read.");
}

} // namespace tambrix
