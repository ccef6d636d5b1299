#include "data/entry_group.h"

namespace tambrix {

EntryGroup groupOf(int slot)
{
    if (slot < kSetupSlot)
        return EntryGroup::ShiftCounts;
    if (slot >= kLabelSlot)
        return EntryGroup::Labels;
    return slot == kCurrentLabelSlot ? EntryGroup::LabelNumber : EntryGroup::Setup;
}

bool isCycle(const DataEntry& entry)
{
    return entry.parameter.slot == reg::kCycleDuration.slot;
}

QString nameInGroup(int slot)
{
    const DataEntry entry = entryAt(slot);
    const QString ductor = QStringLiteral("Ductor %1").arg(entry.ductor + 1);
    switch (groupOf(slot)) {
    case EntryGroup::ShiftCounts:
        return ductor;
    case EntryGroup::Labels:
        return ductor + (isCycle(entry) ? QStringLiteral(" CYCLE") : QStringLiteral(" ON"));
    default:
        return QLatin1String(entry.parameter.name);
    }
}

} // namespace tambrix
