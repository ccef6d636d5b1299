#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace tambrix {

/// Takes the next line off the front of `text`. Lines end in CR LF, CR or LF.
std::string_view takeLine(std::string_view& text);

/// `text` without the mark that some editors put before a UTF-8 file.
std::string_view withoutByteOrderMark(std::string_view text);

/// `value` in upper-case hexadecimal of at least `digits` digits.
std::string hexText(std::uint16_t value, int digits);

/// A character of the controller's single-byte set, in UTF-8.
std::string utf8Character(std::uint8_t code);

/// A path as message text, in UTF-8.
std::string utf8Path(const std::filesystem::path& path);

} // namespace tambrix
