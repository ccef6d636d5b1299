#pragma once

#include <cstdint>

/// Where the Q900 keeps what the set-up program reads and writes. All numbers are byte addresses;
/// words lie low byte first, counters are two words of which the low one counts to 9999.
namespace tambrix::memory_map {

inline constexpr int kDuctors = 8;
inline constexpr int kLabels = 100;

// Flag area: flag n is bit n mod 8 of byte 32 + n / 8.
inline constexpr std::uint16_t kModuleInputs = 42;     ///< F80 (bit 0) IN0, F81 (bit 1) IN1
inline constexpr std::uint8_t kModuleInput0 = 0x01;    ///< in kModuleInputs
inline constexpr std::uint8_t kModuleInput1 = 0x02;    ///< in kModuleInputs
inline constexpr std::uint16_t kCountReset = 43;       ///< bit d: clear shift count of ductor d+1
inline constexpr std::uint16_t kLabelSelectFlags = 46; ///< holds F119
inline constexpr std::uint8_t kLabelSelect = 0x80;     ///< F119: labels are chosen from the PC
inline constexpr std::uint16_t kAlarmResetFlags = 47;  ///< holds F123
inline constexpr std::uint8_t kAlarmReset = 0x08;      ///< F123: clear the alarms
inline constexpr std::uint16_t kManualDuctors = 61;    ///< bit d: ductor d+1 on, in manual
inline constexpr std::uint16_t kStation = 63;          ///< station bits, one bit a station
inline constexpr std::uint16_t kAlarms = 65;           ///< bit d: feedback fault of ductor d+1

// Inputs and outputs.
inline constexpr std::uint16_t kInputs = 100;           ///< the panel's inputs, bits below
inline constexpr std::uint8_t kInputAuto = 0x01;        ///< ductor control in automatic
inline constexpr std::uint8_t kInputManual = 0x02;      ///< ductor control by hand
inline constexpr std::uint8_t kInputAutoOn = 0x04;      ///< ductors switched on in automatic
inline constexpr std::uint8_t kInputSetPasscode = 0x08; ///< panel asks for a new passcode
inline constexpr std::uint8_t kInputAlarmReset = 0x10;  ///< panel's alarm reset button
inline constexpr std::uint8_t kInputSetUpEnable = 0x20; ///< set-up is allowed
inline constexpr std::uint16_t kSolenoids = 110;        ///< bit d: solenoid of ductor d+1
inline constexpr std::uint16_t kFeedbackFaults = 111;   ///< bit d: fault output of ductor d+1
inline constexpr std::uint16_t kMachineSpeed = 112;     ///< word, cans per minute
inline constexpr std::uint16_t kFeedbackSensors = 131;  ///< bit d: sensor of ductor d+1

// Analog and resolver module (Q910).
inline constexpr std::uint16_t kAnalogInput0 = 162;   ///< word, converter counts 0 to 4095
inline constexpr std::uint16_t kAnalogInput1 = 164;   ///< word, converter counts 0 to 4095
inline constexpr std::uint16_t kAnalogOutput0 = 166;  ///< byte, converter counts
inline constexpr std::uint16_t kAnalogOutput1 = 167;  ///< byte, converter counts
inline constexpr std::uint16_t kResolverRpm = 170;    ///< word, revolutions per minute
inline constexpr std::uint16_t kResolverPos = 180;    ///< word, 0 to scale factor - 1
inline constexpr std::uint16_t kResolverPeriod = 184; ///< word, milliseconds a revolution
inline constexpr std::uint16_t kResolverScale = 186;  ///< word, positions a revolution
inline constexpr std::uint16_t kResolverOffset = 188; ///< word, positions

// Colour control.
inline constexpr std::uint16_t kOnResponse = 520;     ///< word, solenoid ON response, ms
inline constexpr std::uint16_t kOffResponse = 522;    ///< word, solenoid OFF response, ms
inline constexpr std::uint16_t kLabelNumber = 686;    ///< word, label in work, 0 to 99
inline constexpr std::uint16_t kMaxCycle = 690;       ///< word, longest CYCLE, 0.1 cans
inline constexpr std::uint16_t kMaxOn = 692;          ///< byte, longest ON, 0.1 cans
inline constexpr std::uint16_t kFeedbackEnable = 694; ///< bit d: watch feedback of ductor d+1
inline constexpr std::uint16_t kWorkingOn = 720;      ///< + d: byte, ON of ductor d+1, 0.1 cans
inline constexpr std::uint16_t kWorkingCycle = 730;   ///< + 2d: word, CYCLE, 0.1 cans
inline constexpr std::uint16_t kShiftCounts = 940;    ///< + 4d: counter, cycles this shift
inline constexpr std::uint16_t kResponseTime = 1013;  ///< byte, response compensation, ms
inline constexpr std::uint16_t kColorGain = 1014;     ///< byte, percent
inline constexpr std::uint16_t kPasscode = 1298;      ///< word, colour control passcode
inline constexpr std::uint16_t kLabelOn = 3100;       ///< + 30 label + d: byte, ON, 0.1 cans
inline constexpr std::uint16_t kLabelCycle = 3110;    ///< + 30 label + 2d: word, CYCLE, 0.1 cans
inline constexpr std::uint16_t kLabelBlock = 30;      ///< addresses one label takes

// The board itself.
inline constexpr std::uint16_t kFirmwareRevision = 8159;   ///< byte
inline constexpr std::uint16_t kCoCpuSlot = 8175;          ///< byte, slot of the faulty CO-CPU
inline constexpr std::uint16_t kCurrentFault = 8176;       ///< byte, fault code, 0 = none
inline constexpr std::uint16_t kLastFault = 8177;          ///< byte, fault code, 0 = none
inline constexpr std::uint16_t kLastCommError = 8178;      ///< byte, network error code
inline constexpr std::uint16_t kCurrentCommError = 8179;   ///< byte, network error code
inline constexpr std::uint16_t kNetworkAddress1 = 8180;    ///< byte, 1 to 32
inline constexpr std::uint16_t kProgramModeRequest = 8181; ///< byte, 86 asks for program mode
inline constexpr std::uint16_t kConfigurationC = 8188;     ///< byte, program configuration
inline constexpr std::uint16_t kConfigurationB = 8189;     ///< byte, program configuration
inline constexpr std::uint16_t kConfigurationA = 8190;     ///< byte, program configuration
inline constexpr std::uint16_t kNetworkAddress2 = 8191;    ///< byte, 1 to 32
inline constexpr std::uint16_t kClockSecond = 43008;       ///< byte, plain binary like all six
inline constexpr std::uint16_t kClockMinute = 43010;       ///< byte
inline constexpr std::uint16_t kClockHour = 43012;         ///< byte
inline constexpr std::uint16_t kCalendarDay = 43015;       ///< byte, 1 to 31
inline constexpr std::uint16_t kCalendarMonth = 43016;     ///< byte, 1 to 12
inline constexpr std::uint16_t kCalendarYear = 43017;      ///< byte, years since 2000
inline constexpr std::uint16_t kProgramName = 61424;       ///< eight character codes
inline constexpr std::uint16_t kProgramChecksum = 61432;   ///< byte
inline constexpr std::uint16_t kProgramRevision = 61433;   ///< byte

/// Address of label `label`'s (0 to 99) stored ON duration of ductor `ductor` (0 to 7).
constexpr std::uint16_t labelOn(int label, int ductor)
{
    return static_cast<std::uint16_t>(kLabelOn + kLabelBlock * label + ductor);
}

/// Address of label `label`'s (0 to 99) stored CYCLE duration of ductor `ductor` (0 to 7).
constexpr std::uint16_t labelCycle(int label, int ductor)
{
    return static_cast<std::uint16_t>(kLabelCycle + kLabelBlock * label + 2 * ductor);
}

/// Address of the working ON duration of ductor `ductor` (0 to 7).
constexpr std::uint16_t workingOn(int ductor)
{
    return static_cast<std::uint16_t>(kWorkingOn + ductor);
}

/// Address of the working CYCLE duration of ductor `ductor` (0 to 7).
constexpr std::uint16_t workingCycle(int ductor)
{
    return static_cast<std::uint16_t>(kWorkingCycle + 2 * ductor);
}

/// Address of the shift count of ductor `ductor` (0 to 7).
constexpr std::uint16_t shiftCount(int ductor)
{
    return static_cast<std::uint16_t>(kShiftCounts + 4 * ductor);
}

} // namespace tambrix::memory_map
