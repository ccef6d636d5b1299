#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace tambrix {

/// A fault code as it is shown and looked up: upper-case hexadecimal of at least two digits.
std::string faultCodeText(std::int16_t code);

/// "Fault Code (1FH): " and the text of the first record of `faultFile` with that code, nothing
/// when there is none, or "--- Fault File Not Found ---".
std::string faultDescription(std::int16_t code, const std::filesystem::path& faultFile);

} // namespace tambrix
