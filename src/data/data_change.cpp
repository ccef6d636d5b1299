#include "data/data_change.h"

#include <utility>

namespace tambrix {

void exchange(DataChange& change, SetupDataRecord& record, LabelNames& names)
{
    for (EntryValue& edit : change.values)
        std::swap(record.Value[static_cast<std::size_t>(edit.entry)], edit.value);
    for (LabelName& edit : change.names) {
        const QString before = names.of(edit.label);
        names.set(edit.label, edit.name);
        edit.name = before;
    }
    if (!change.addresses.empty())
        record.Address.swap(change.addresses);
}

DataChange changeTo(const SetupDataRecord& wanted, const SetupDataRecord& now)
{
    DataChange change;
    for (int entry = 0; entry <= gDataUpperBound; ++entry) {
        const std::int32_t value = wanted.Value[static_cast<std::size_t>(entry)];
        if (value != now.Value[static_cast<std::size_t>(entry)])
            change.values.push_back({entry, value});
    }
    if (wanted.Address != now.Address)
        change.addresses = wanted.Address;
    return change;
}

} // namespace tambrix
