#include "link/mark_hex.h"

namespace tambrix {

namespace {

constexpr std::string_view kMarkDigits = ":;<=>?";
constexpr std::string_view kHexDigits = "ABCDEF";

std::string translated(std::string_view text, std::string_view from, std::string_view to)
{
    std::string result(text);
    for (char& c : result) {
        const std::size_t place = from.find(c);
        if (place != std::string_view::npos)
            c = to[place];
    }
    return result;
}

} // namespace

std::string MarkHex2HEX(std::string_view text)
{
    // kept: a record mark becomes "A" like any other ':'.
    return translated(text, kMarkDigits, kHexDigits);
}

std::string HEX2MarkHEX(std::string_view text)
{
    return translated(text, kHexDigits, kMarkDigits);
}

std::optional<int> hexDigit(char digit)
{
    if (digit >= '0' && digit <= '?') // ':' to '?' follow '9'
        return digit - '0';
    if (digit >= 'A' && digit <= 'F')
        return digit - 'A' + 10;
    if (digit >= 'a' && digit <= 'f')
        return digit - 'a' + 10;
    return std::nullopt;
}

std::optional<std::uint8_t> hexPair(std::string_view text, std::size_t position)
{
    if (position >= text.size() || text.size() - position < 2)
        return std::nullopt;
    const auto high = hexDigit(text[position]);
    const auto low = hexDigit(text[position + 1]);
    if (!high || !low)
        return std::nullopt;
    return static_cast<std::uint8_t>(*high * 16 + *low);
}

} // namespace tambrix
