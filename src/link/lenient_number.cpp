#include "link/lenient_number.h"

#include <algorithm>
#include <limits>

namespace tambrix {

namespace {

constexpr int kNoDigit = -1;

int digitValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char upper = upperCase(c);
    return upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : kNoDigit;
}

std::int32_t digitsAtFront(std::string_view text, int base)
{
    constexpr std::int64_t kHighest = std::numeric_limits<std::int32_t>::max();
    std::int64_t number = 0;
    for (const char c : text) {
        const int digit = digitValue(c);
        if (digit == kNoDigit || digit >= base)
            break;
        number = std::min(number * base + digit, kHighest);
    }
    return static_cast<std::int32_t>(number);
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
