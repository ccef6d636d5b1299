#include "data/parameters.h"

#include <cstdlib>

namespace tambrix {

std::string addressOf(const Register& reg, int ductor, int label)
{
    const int first = std::atoi(reg.address + 1);
    return reg.address[0] + std::to_string(first + reg.ductorStep * ductor + reg.labelStep * label);
}

DataEntry entryAt(int slot)
{
    if (slot < kSetupSlot)
        return {reg::kShiftCount, slot - kShiftCountSlot};
    if (slot < kCurrentLabelSlot)
        return {reg::kSetupParameters[static_cast<std::size_t>(slot - kSetupSlot)]};
    if (slot == kCurrentLabelSlot)
        return {reg::kLabelNumber};
    const int duration = (slot - kLabelSlot) % kEntriesPerLabel;
    return {duration < kDuctors ? reg::kOnDuration : reg::kCycleDuration, duration % kDuctors,
            (slot - kLabelSlot) / kEntriesPerLabel};
}

std::string nameOf(const DataEntry& entry)
{
    const Parameter& parameter = entry.parameter;
    std::string name = parameter.name;
    if (parameter.labelStep != 0)
        name = "Label " + std::to_string(entry.label) + " " + name;
    if (parameter.ductorStep != 0)
        name += ", Ductor " + std::to_string(entry.ductor + 1);
    return name;
}

} // namespace tambrix
