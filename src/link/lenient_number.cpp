#include "link/lenient_number.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace tambrix {

namespace {

std::int32_t digitsAtFront(std::string_view text, int base)
{
    constexpr std::uint32_t kHighest = std::numeric_limits<std::int32_t>::max();
    std::uint32_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (read.ec == std::errc::result_out_of_range)
        number = kHighest;
    return static_cast<std::int32_t>(std::min(number, kHighest));
}

} // namespace

std::int32_t leadingDecimal(std::string_view text)
{
    return digitsAtFront(text, 10);
}

std::int32_t leadingHex(std::string_view text)
{
    return digitsAtFront(text, 16);
}

char upperCase(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

bool sameIgnoringCase(std::string_view left, std::string_view right)
{
    return std::ranges::equal(left, right, {}, upperCase, upperCase);
}

} // namespace tambrix
