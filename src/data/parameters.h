#pragma once

#include <array>
#include <cstdint>
#include <string>

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

/// First entry of label `label` (0 to 99).
constexpr int labelBase(int label)
{
    return kLabelSlot + kEntriesPerLabel * label;
}

/// A register of the controller that this program knows by name. One of a row, one for each
/// ductor, gives the address of ductor 1.
struct Register
{
    const char* address;
    const char* name;
    const char* unit;   ///< may be empty
    int ductorStep = 0; ///< from the address of a ductor to that of the next; 0: not one of a row
    int labelStep = 0;  ///< from the address of a label to that of the next; 0: no label's
};

/// A value of the data set, or a row of like values. Each range is the widest that an entry may
/// have; of the durations' limits the screens allow the part that the other values leave.
struct Parameter : Register
{
    int slot; ///< its entry in the data set; of a row: that of ductor 1 (and label 0)
    std::int32_t minimum;
    std::int32_t maximum;
    std::int32_t standard; ///< what New starts from; kept also where it lies outside the range
};

/// The registers themselves.
namespace reg {

// --- The data set, in the order of its entries ---

inline constexpr Parameter kShiftCount{
    {"D940", "Cycling Count", "cycles", 4}, kShiftCountSlot, 0, 655'359'999, 0};
inline constexpr Parameter kMaximumCycle{
    {"W690", "Maximum Cycle Duration", "0.1 cans"}, kSetupSlot, 140, 650, 500};
inline constexpr Parameter kMaximumOn{
    {"B692", "Maximum ON Duration", "0.1 cans"}, kSetupSlot + 1, 0, 200, 200};
inline constexpr Parameter kResponseTime{
    {"B1013", "Response Time Compensation", "msec"}, kSetupSlot + 2, 0, 65, 25};
inline constexpr Parameter kColorGain{{"B1014", "Color Gain", "%"}, kSetupSlot + 3, 50, 150, 100};
/// Bit k = feedback of ductor k + 1 is watched.
inline constexpr Parameter kFeedbackEnable{
    {"B694", "Feedback Enable", "ductors"}, kSetupSlot + 4, 0, 255, 0};
inline constexpr Parameter kLabelNumber{
    {"W686", "Label Number", ""}, kCurrentLabelSlot, 0, kLabels - 1, 0};
inline constexpr Parameter kOnDuration{
    {"B3100", "ON Duration", "0.1 cans", 1, 30}, kLabelSlot, 0, kMaximumOn.maximum, 0};
/// A CYCLE is longer than its ON by 60 at least: the ductor's OFF time.
inline constexpr Parameter kCycleDuration{{"W3110", "CYCLE Duration", "0.1 cans", 2, 30},
                                          kLabelSlot + kDuctors,
                                          60,
                                          kMaximumCycle.maximum,
                                          200};

/// The set-up screen's five, entries 8 to 12.
inline constexpr std::array kSetupParameters = {kMaximumCycle, kMaximumOn, kResponseTime,
                                                kColorGain, kFeedbackEnable};

// --- Other registers of the controller ---

/// The durations that the press runs with now: a copy of the current label's.
inline constexpr Register kWorkingOn{"B720", "Working ON Duration", "0.1 cans", 1};
inline constexpr Register kWorkingCycle{"W730", "Working CYCLE Duration", "0.1 cans", 2};

inline constexpr Register kMachineSpeed{"W112", "Machine Speed", "CPM"};
inline constexpr Register kAlarms{"B65", "Alarms", "ductors"}; ///< bit k: ductor k + 1
inline constexpr Register kInputs{"B100", "Inputs", ""};       ///< bit 0 auto, 1 manual, 2 auto ON
inline constexpr Register kManualDuctors{"B61", "Manual Ductors", "ductors"}; ///< bit k: k + 1
inline constexpr Register kOnResponse{"W520", "Solenoid ON Response Time", "msec"};
inline constexpr Register kOffResponse{"W522", "Solenoid OFF Response Time", "msec"};
inline constexpr Register kStation{"B63", "Station Number", ""};
inline constexpr Register kLabelSelect{"F119", "Label Select Enable", ""};
inline constexpr Register kPasscode{"W1298", "Color Control Passcode", ""}; ///< 0 to 65535
inline constexpr Register kAlarmReset{"F123", "Alarm Reset", ""};           ///< write 1

} // namespace reg

// --- Addresses and entries ---

/// The address string of `reg` for ductor `ductor` (0 to 7) and label `label` (0 to 99).
std::string addressOf(const Register& reg, int ductor = 0, int label = 0);

/// One entry of the data set: which value of which ductor and label. Ductor and label are 0 where
/// the parameter has none.
struct DataEntry
{
    const Parameter& parameter;
    int ductor = 0; ///< 0 to 7
    int label = 0;  ///< 0 to 99
};

/// What stands in entry `slot` (0 to `gDataUpperBound`).
DataEntry entryAt(int slot);

/// Its name for a list: "Maximum Cycle Duration", "Cycling Count, Ductor 1",
/// "Label 6 CYCLE Duration, Ductor 5".
std::string nameOf(const DataEntry& entry);

} // namespace tambrix
