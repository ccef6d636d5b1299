#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tambrix {

/// Highest index of a set-up data record: 1614 entries, 0 to 1613.
inline constexpr std::int16_t gDataUpperBound = 1613;

inline constexpr int kDuctors = 8;
inline constexpr int kLabels = 100; ///< numbered 0 to 99

/// Where a record's entries lie. A label has 16: eight ON durations, then eight CYCLE durations.
inline constexpr int kShiftCountSlot = 0; ///< 0 to 7: cycling counts of ductors 1 to 8
inline constexpr int kSetupSlot = 8;      ///< 8 to 12: the five set-up parameters
inline constexpr int kCurrentLabelSlot = 13;
inline constexpr int kLabelSlot = 14;
inline constexpr int kEntriesPerLabel = 16;

/// A complete data set of the controller.
struct SetupDataRecord
{
    std::string Version;              ///< version string of the program that produced it
    std::vector<std::string> Address; ///< register address string of each entry
    std::vector<std::int32_t> Value;  ///< in the controller's own units (0.1 cans, ms, percent)

    bool operator==(const SetupDataRecord&) const = default;
};

/// First entry of label `label` (0 to 99).
constexpr int labelBase(int label)
{
    return kLabelSlot + kEntriesPerLabel * label;
}

/// A value as the controller and the reports have it: decimal, with one blank in front where a
/// negative number has its minus sign.
std::string valueText(std::int32_t value);

/// The data set that New starts from, with every entry's register address.
SetupDataRecord defaultSetupData(const std::string& version);

} // namespace tambrix
