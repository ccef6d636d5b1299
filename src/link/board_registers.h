#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tambrix {

/// The board's registers that the link itself uses or treats in a way of their own, by byte
/// address. All are bytes but the passcode.
namespace board_registers {

inline constexpr std::int32_t kPasscode = 1298; ///< a word
inline constexpr std::int32_t kFirmwareRev = 8159;
inline constexpr std::int32_t kCurrentFault = 8176;
inline constexpr std::int32_t kProgramModeRequest = 8181;
inline constexpr std::int32_t kConfigurationC = 8188;
inline constexpr std::int32_t kConfigurationB = 8189;
inline constexpr std::int32_t kConfigurationA = 8190;
inline constexpr std::int32_t kProgramName = 61424; ///< first of kProgramNameLength characters
inline constexpr std::size_t kProgramNameLength = 8;
inline constexpr std::int32_t kProgramChecksum = 61432;
inline constexpr std::int32_t kProgramRevision = 61433;

} // namespace board_registers

/// The address string of one byte: "B8176".
std::string byteRegister(std::int32_t byteAddress);

/// Whether this byte belongs to the passcode. Whoever shows, stores or prints what passes over
/// the line masks its value.
bool isSecretByte(std::int32_t byteAddress);

/// Whether the register or bit `addr` has such a byte, however it is spelt ("W1298", "0512H").
bool isSecretRegister(std::string_view addr);

} // namespace tambrix
