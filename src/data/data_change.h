#pragma once

#include "data/label_names.h"
#include "data/setup_data.h"

#include <vector>

namespace tambrix {

/// One entry of a data set and the value that it is to have.
struct EntryValue
{
    int entry = 0; ///< 0 to 1613
    std::int32_t value = 0;

    bool operator==(const EntryValue&) const = default;
};

/// A label and the name that it is to have.
struct LabelName
{
    int label = 0; ///< 0 to 99
    QString name;

    bool operator==(const LabelName&) const = default;
};

/// What one step of editing makes of a data set and its names.
struct DataChange
{
    std::vector<EntryValue> values;
    std::vector<LabelName> names;
    std::vector<std::string> addresses; ///< of all entries; empty: they stay

    bool isEmpty() const { return values.empty() && names.empty() && addresses.empty(); }
};

/// Makes the change, and the change into the one that takes it back.
void exchange(DataChange& change, SetupDataRecord& record, LabelNames& names);

/// The change that makes `wanted` of `now`. Both have all entries.
DataChange changeTo(const SetupDataRecord& wanted, const SetupDataRecord& now);

} // namespace tambrix
