#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tambrix {

/// The most bytes that one record may load. The board takes a record's length byte for attention
/// when it is 0xFF.
inline constexpr std::size_t kLongestRecord = 254;

/// One record of a program image: bytes that are loaded from `address` on.
struct HexRecord
{
    std::uint16_t address = 0;
    std::vector<std::uint8_t> data; ///< 1 to kLongestRecord bytes
};

/// Why a program image cannot be loaded.
struct HexFault
{
    int line = 0;       ///< counted from 1; 0: the file as a whole
    std::string reason; ///< one sentence for the operator
};

/// A whole program image: its records in file order, or the first thing that is wrong with it.
struct HexImage
{
    std::vector<HexRecord> records;
    std::optional<HexFault> fault;
};

/// Reads the text of an image file, one record a line: mark ':', length, address (high byte
/// first), type and data bytes, two hexadecimal digits a byte in either form. What follows the
/// data (a checksum, any text) and the type mean nothing to the board, which is never sent them;
/// they are not looked at. A record of length 0 (the end record) loads nothing.
HexImage parseHexImage(std::string_view text);

/// The same for a file.
HexImage readHexImage(const std::filesystem::path& file);

} // namespace tambrix
