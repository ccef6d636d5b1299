#pragma once

#include "data/parameters.h"

#include <QString>

namespace tambrix {

/// Which part of the data set an entry belongs to.
enum class EntryGroup { ShiftCounts, Setup, LabelNumber, Labels };

/// `slot` is 0 to 1613.
EntryGroup groupOf(int slot);

/// Entry of a label's CYCLE or ON duration; `label` 0 to 99, `ductor` 0 to 7.
constexpr int labelSlot(int label, int ductor, bool cycle)
{
    return labelBase(label) + (cycle ? kDuctors : 0) + ductor;
}

/// Whether the entry is a CYCLE duration.
bool isCycle(const DataEntry& entry);

/// What a list calls the entry within its group or label: "Maximum Cycle Duration", "Ductor 3 ON",
/// "Ductor 3".
QString nameInGroup(int slot);

} // namespace tambrix
