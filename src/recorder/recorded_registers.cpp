#include "recorder/recorded_registers.h"

#include "data/parameters.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace tambrix {

namespace {

RegisterAddress parsed(const std::string& address)
{
    RegisterAddress fields;
    ParseAddress(address, fields);
    return fields;
}

int byteAddress(const Register& reg, int ductor = 0, int label = 0)
{
    return parsed(addressOf(reg, ductor, label)).RegAddress;
}

/// Single registers that are recorded at change, besides those of the ductors.
constexpr std::array kSingles = {reg::kAlarms.address,
                                 reg::kInputs.address,
                                 reg::kLabelNumber.address,
                                 reg::kMaximumCycle.address,
                                 reg::kMaximumOn.address,
                                 reg::kResponseTime.address,
                                 reg::kColorGain.address,
                                 reg::kFeedbackEnable.address,
                                 kOutputs,
                                 "B111"};

bool isSingle(int address)
{
    static const std::vector<int> singles = [] {
        std::vector<int> all;
        all.reserve(std::size(kSingles));
        for (const char* single : kSingles)
            all.push_back(recordedAddress(single));
        std::ranges::sort(all);
        return all;
    }();
    return std::ranges::binary_search(singles, address);
}

bool isInRow(int address, const Register& reg)
{
    const int offset = address - byteAddress(reg);
    return offset >= 0 && offset < kDuctors * reg.ductorStep && offset % reg.ductorStep == 0;
}

/// A stored duration of any label.
bool isStored(int address, const Register& reg)
{
    const int offset = address - byteAddress(reg);
    return offset >= 0 && offset < kLabels * reg.labelStep &&
           isInRow(byteAddress(reg) + offset % reg.labelStep, reg);
}

} // namespace

RecordedAs recordedAs(const RegisterAddress& address)
{
    if (address.IsBitAddress)
        return RecordedAs::Nothing;
    const int at = address.RegAddress;
    if (at == byteAddress(reg::kMachineSpeed))
        return RecordedAs::Speed;
    if (address.RegLetter == 'D')
        return isInRow(at, reg::kShiftCount) ? RecordedAs::Count : RecordedAs::Nothing;
    const bool value = isSingle(at) || at == parsed(kOutputs).RegAddress ||
                       isInRow(at, reg::kWorkingOn) || isInRow(at, reg::kWorkingCycle) ||
                       isStored(at, reg::kOnDuration) || isStored(at, reg::kCycleDuration);
    return value ? RecordedAs::Value : RecordedAs::Nothing;
}

int ductorOfCount(const RegisterAddress& address)
{
    return (address.RegAddress - byteAddress(reg::kShiftCount)) / reg::kShiftCount.ductorStep;
}

int recordedAddress(const char* reg)
{
    return parsed(reg).RegAddress;
}

bool isPasscode(const RegisterAddress& address)
{
    const int passcode = byteAddress(reg::kPasscode);
    return address.RegAddress + registerWidth(address.RegLetter) > passcode &&
           address.RegAddress <= passcode + 1;
}

std::vector<std::string> fullRecord(std::optional<int> label)
{
    std::vector<std::string> all = {reg::kMachineSpeed.address, reg::kInputs.address,
                                    reg::kLabelNumber.address, reg::kMaximumOn.address, kOutputs};
    for (const Register& row : {Register(reg::kShiftCount), reg::kWorkingOn, reg::kWorkingCycle}) {
        for (int ductor = 0; ductor < kDuctors; ++ductor)
            all.push_back(addressOf(row, ductor));
    }
    if (!label || *label < 0 || *label >= kLabels)
        return all;
    for (const Register& row : {Register(reg::kOnDuration), Register(reg::kCycleDuration)}) {
        for (int ductor = 0; ductor < kDuctors; ++ductor)
            all.push_back(addressOf(row, ductor, *label));
    }
    return all;
}

} // namespace tambrix
