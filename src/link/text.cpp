#include "link/text.h"

#include <cstdio>

namespace tambrix {

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

std::string_view withoutByteOrderMark(std::string_view text)
{
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    return text.substr(text.starts_with(kMark) ? kMark.size() : 0);
}

std::string hexText(std::uint16_t value, int digits)
{
    char text[8];
    std::snprintf(text, sizeof text, "%0*X", digits, static_cast<unsigned>(value));
    return text;
}

std::string utf8Character(std::uint8_t code)
{
    if (code < 0x80)
        return {static_cast<char>(code)};
    return {static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 0x3F))};
}

std::string utf8Path(const std::filesystem::path& path)
{
    const auto text = path.u8string();
    return {text.begin(), text.end()};
}

} // namespace tambrix
