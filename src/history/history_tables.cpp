#include "history/history_tables.h"

#include <QHeaderView>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTableView>

namespace tambrix {

namespace {

constexpr int kTimeRole = Qt::UserRole;
constexpr int kCellMargin = 6;
const QString kUnknown = QStringLiteral("?");

QSortFilterProxyModel& filterOf(const QTableView& view)
{
    return *static_cast<QSortFilterProxyModel*>(view.model());
}

QStandardItemModel& modelOf(const QTableView& view)
{
    return *static_cast<QStandardItemModel*>(filterOf(view).sourceModel());
}

} // namespace

HistoryTable alarmTable(const std::vector<AlarmSpan>& alarms, UtcMs now, const LabelNames& names)
{
    HistoryTable table;
    table.captions = {QStringLiteral("Begin"),  QStringLiteral("End"),   QStringLiteral("Duration"),
                      QStringLiteral("Ductor"), QStringLiteral("Speed"), QStringLiteral("Label")};
    for (std::size_t i = alarms.size(); i-- > 0;) { // the latest first
        const AlarmSpan& alarm = alarms[i];
        const QString end =
            alarm.ended ? localTime(alarm.time.end, alarm.time.begin)
            : now - alarm.time.end < 5 * kSecond
                ? QStringLiteral("still on")
                : QStringLiteral("off line ") + localTime(alarm.time.end, alarm.time.begin);
        table.rows.push_back({localTime(alarm.time.begin, now), end,
                              durationText(alarm.time.length()), QString::number(alarm.ductor + 1),
                              alarm.speed ? QString::number(*alarm.speed) : kUnknown,
                              alarm.label ? labelText(*alarm.label, names) : kUnknown});
        table.times.push_back(alarm.time.begin);
    }
    return table;
}

HistoryTable changeTable(const std::vector<ChangeLine>& changes, UtcMs now)
{
    HistoryTable table;
    table.captions = {QStringLiteral("Time"), QStringLiteral("Window"), QStringLiteral("What"),
                      QStringLiteral("Change"), QStringLiteral("Label")};
    for (const ChangeLine& line : changes) {
        table.rows.push_back(
            {localTime(line.time, now), line.screen, line.what, line.change, line.label});
        table.times.push_back(line.time);
    }
    return table;
}

QTableView* makeHistoryView(const char* name, const QString& tells)
{
    auto* view = new QTableView;
    view->setObjectName(QLatin1String(name));
    view->setAccessibleName(tells);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setTabKeyNavigation(false);
    view->setWordWrap(false);
    view->setShowGrid(false);
    view->setAlternatingRowColors(true);
    view->verticalHeader()->hide();
    view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() + kCellMargin);
    view->horizontalHeader()->setStretchLastSection(true);
    view->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    auto* filter = new QSortFilterProxyModel(view);
    filter->setSourceModel(new QStandardItemModel(filter));
    filter->setFilterKeyColumn(-1);
    filter->setFilterCaseSensitivity(Qt::CaseInsensitive);
    view->setModel(filter);
    return view;
}

void showTable(QTableView& view, const HistoryTable& table)
{
    QStandardItemModel& model = modelOf(view);
    model.clear();
    model.setHorizontalHeaderLabels(table.captions);
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        QList<QStandardItem*> cells;
        for (const QString& text : table.rows[i]) {
            cells += new QStandardItem(text);
            cells.back()->setData(qint64{table.times[i]}, kTimeRole);
            cells.back()->setToolTip(text); // a long name has no room
        }
        model.appendRow(cells);
    }
    view.resizeColumnsToContents();
}

void filterTable(QTableView& view, const QString& text)
{
    filterOf(view).setFilterFixedString(text);
}

std::optional<UtcMs> timeOfRow(const QModelIndex& index)
{
    const QVariant time = index.data(kTimeRole);
    return time.isValid() ? std::optional<UtcMs>(time.toLongLong()) : std::nullopt;
}

} // namespace tambrix
