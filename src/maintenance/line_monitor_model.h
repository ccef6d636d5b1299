#pragma once

#include "data/line_story.h"

#include <QAbstractTableModel>
#include <QDateTime>

#include <deque>
#include <optional>

namespace tambrix {

/// The rows of the line monitor: what the exchanges of a trace mean, filtered.
class LineMonitorModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Time, Out, In, Meaning, Took, Resends, Trouble, kColumns };

    /// `zero` is when the trace's clock stood at 0; without it times are told in seconds.
    LineMonitorModel(const LineTrace& trace, std::optional<QDateTime> zero,
                     QObject* parent = nullptr);

    /// Takes what the trace holds beyond the last time.
    void follow();

    /// Shows only entries about registers whose name begins with `registerName` (all when empty),
    /// or only those that failed.
    void setFilter(const QString& registerName, bool errorsOnly);

    /// The first row after `row`, the last row's successor being the first, that holds `text` in
    /// any column; -1 when there is none.
    int find(const QString& text, int row) const;

    /// The row's columns, tabs between.
    QString rowText(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const LineEntry& entryAt(int row) const;
    bool passes(const LineEntry& entry) const;
    QString text(const LineEntry& entry, int column) const;
    QString timeText(const LineEntry& entry) const;
    QString bytesText(const LineEntry& entry, std::int16_t LineExchange::*byte) const;
    Duration durationOf(const LineEntry& entry) const;
    void dropForgotten();
    void addNew();

    const LineTrace& m_trace;
    std::optional<QDateTime> m_zero;
    LineStory m_story;
    std::deque<std::uint64_t> m_rows; ///< numbers of the entries shown
    std::uint64_t m_next = 0;         ///< number of the first entry not looked at so far
    QString m_register;
    bool m_errorsOnly = false;
};

} // namespace tambrix
