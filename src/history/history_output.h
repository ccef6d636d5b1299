#pragma once

#include "history/history_tables.h"
#include "history/plot_data.h"

#include <QByteArray>
#include <QPixmap>

#include <memory>

class QTextDocument;

namespace tambrix {

/// What the window shows, to be taken out of it.
struct HistoryPage
{
    PlotData plots;
    HistoryTable alarms;
    HistoryTable changes;
};

/// One table of all of it, a row for each speed, cycle rate, alarm and change; times in UTC and
/// local time. UTF-8 with a byte order mark, as spreadsheets want it.
QByteArray historyCsv(const HistoryPage& page);

/// The page for paper or PDF: what is plotted in words, the plots, both tables.
std::unique_ptr<QTextDocument> historyDocument(const HistoryPage& page, const QPixmap& plots);

} // namespace tambrix
