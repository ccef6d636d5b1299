#pragma once

#include "data/data_change.h"

#include <bitset>
#include <vector>

namespace tambrix {

/// What an edit of several values would do.
struct EditPlan
{
    DataChange change;      ///< what is allowed of it
    QStringList objections; ///< what the rules forbid or cut, a line each
};

/// A column of a table of labels: 0 to 7 ON of ductors 1 to 8, 8 to 15 CYCLE, and the name.
inline constexpr int kNameColumn = -1;
inline constexpr int kNumberColumn = -2; ///< the label's own number, which is never written

/// A text that someone wants in one cell of such a table.
struct WantedCell
{
    int label = 0; ///< 0 to 99
    int column = kNameColumn;
    QString text;
};

/// Gives these entries their values where the rules of the color control screen let them stand,
/// all seen together.
EditPlan planValues(const SetupDataRecord& now, const std::vector<EntryValue>& wanted);

/// The same for texts: durations have to be plain whole numbers.
EditPlan planCells(const SetupDataRecord& now, const LabelNames& names,
                   const std::vector<WantedCell>& cells);

/// The cells that a spreadsheet's text would fill: its first row goes to `labels[0]`, its first
/// field to `columns[0]`. Refused: text with more rows or columns than that, and what is no table.
std::variant<std::vector<WantedCell>, TextFault>
pastedCells(const QString& text, const std::vector<int>& labels, const std::vector<int>& columns);

/// All 16 durations of label `from` for each of `to`.
EditPlan planCopy(const SetupDataRecord& now, int from, const std::vector<int>& to);

using DuctorSet = std::bitset<kDuctors>; ///< bit k: ductor k + 1

/// `percent` of the ON durations, rounded half to even, of these labels and ductors. What the
/// limits forbid is cut to them, and told.
EditPlan planScale(const SetupDataRecord& now, const std::vector<int>& labels,
                   const DuctorSet& ductors, double percent);

/// Labels as a person lists them: "7, 9-12". Nothing when it is no such list.
std::optional<std::vector<int>> labelsFromText(const QString& text);

} // namespace tambrix
