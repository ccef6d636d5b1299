#pragma once

#include "history/history_text.h"

#include <QStringList>

class QAbstractItemView;
class QTableView;

namespace tambrix {

/// A table of texts, and the time that each row is about.
struct HistoryTable
{
    QStringList captions;
    std::vector<QStringList> rows;
    std::vector<UtcMs> times;

    bool operator==(const HistoryTable&) const = default;
};

/// Begin, end, duration, ductor, speed and label of each alarm, the latest first.
HistoryTable alarmTable(const std::vector<AlarmSpan>& alarms, UtcMs now,
                        const LabelNames& names = {});

/// Time, window, register, values and label's name of each change, the latest first.
HistoryTable changeTable(const std::vector<ChangeLine>& changes, UtcMs now);

/// A view of a table whose rows can be filtered.
QTableView* makeHistoryView(const char* name, const QString& tells);

/// Shows `table`; what is selected stays where the table is still the same.
void showTable(QTableView& view, const HistoryTable& table);

/// Shows only rows that hold `text` in any column.
void filterTable(QTableView& view, const QString& text);

/// The time of a row; nothing for an index that is in none.
std::optional<UtcMs> timeOfRow(const QModelIndex& index);

} // namespace tambrix
