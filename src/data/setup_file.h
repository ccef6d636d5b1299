#pragma once

#include "data/setup_data.h"

#include <string>
#include <string_view>
#include <variant>

namespace tambrix {

/// Why bytes are no set-up file.
enum class SetupFileFault {
    Truncated,       ///< the file ends before what its counts and lengths announce
    NotOneDimension, ///< an array that is no plain list
    NotFromZero,     ///< a list whose first entry is not entry 0
};

/// The bytes of a set-up file: the record member by member, little-endian, no header and no
/// checksum. Version: 16-bit length and characters. Each of the two arrays: 16-bit dimension
/// count (1), 32-bit element count, 32-bit lower bound (0), then the entries: addresses as 16-bit
/// length and characters, values as signed 32-bit numbers. Texts are 8-bit characters (Latin-1),
/// 65535 at most.
std::string setupFileBytes(const SetupDataRecord& record);

/// The record that a set-up file's bytes hold. Its arrays have the sizes that the file states,
/// each its own; bytes behind the last value are ignored. Nothing is allocated that the bytes
/// could not fill.
std::variant<SetupDataRecord, SetupFileFault> readSetupFile(std::string_view bytes);

} // namespace tambrix
