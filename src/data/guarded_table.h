#pragma once

#include <QStringList>

#include <vector>

namespace tambrix {

/// A table for a spreadsheet: every cell but a number is guarded(), as register names and label
/// names come from files of other people.
std::vector<QStringList> guardedTable(std::vector<QStringList> table);

} // namespace tambrix
