#pragma once

#include "link/register_address.h"

#include <optional>
#include <string>
#include <vector>

namespace tambrix {

/// What is kept of a register that is read.
enum class RecordedAs { Nothing, Speed, Count, Value };

RecordedAs recordedAs(const RegisterAddress& address);

/// The ductor (0 to 7) whose cycling count this is.
int ductorOfCount(const RegisterAddress& address);

/// Byte address under which the values of a register are recorded.
int recordedAddress(const char* reg);

/// The word of outputs holds the feedback faults in its high byte, and the low one jitters.
inline constexpr const char* kOutputs = "W110";
inline constexpr int kFeedbackFaultsAddress = 111;

/// Whether the register is the passcode, or a byte of it.
bool isPasscode(const RegisterAddress& address);

/// All that a full record reads, label `label`'s stored durations too.
std::vector<std::string> fullRecord(std::optional<int> label);

} // namespace tambrix
