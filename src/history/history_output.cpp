#include "history/history_output.h"

#include "data/csv_text.h"
#include "data/guarded_table.h"

#include <QDateTime>
#include <QTextDocument>
#include <QUrl>

#include <utility>

namespace tambrix {

namespace {

constexpr int kPictureWidth = 640; // px, of a page as wide as a document's own

QString utc(UtcMs time)
{
    return QDateTime::fromMSecsSinceEpoch(time, Qt::UTC).toString(Qt::ISODateWithMs);
}

QString local(UtcMs time)
{
    return QDateTime::fromMSecsSinceEpoch(time).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

void addSpeed(const PlotData& data, std::vector<QStringList>& table)
{
    for (const SpeedRow& row : data.speed) {
        if (row.range)
            table.push_back({QStringLiteral("speed"), utc(row.begin), local(row.begin),
                             QString::number(row.range->last),
                             QStringLiteral("%1 to %2").arg(row.range->low).arg(row.range->high)});
    }
    for (const RatePoint& point : data.counted) {
        if (point.rate)
            table.push_back({QStringLiteral("cycles a minute"), utc(point.time.begin),
                             local(point.time.begin), QString::number(*point.rate, 'f', 1),
                             QStringLiteral("ductor %1").arg(data.ductor + 1)});
    }
}

void addTable(const HistoryTable& rows, const QString& kind, std::vector<QStringList>& table)
{
    for (std::size_t i = 0; i < rows.rows.size(); ++i)
        table.push_back(QStringList{kind, utc(rows.times[i]), local(rows.times[i])} +
                        rows.rows[i].mid(1));
}

QString htmlTable(const QString& title, const HistoryTable& table, const QString& ifEmpty)
{
    QString html = QStringLiteral("<h3>%1</h3>").arg(title);
    if (table.rows.empty())
        return html + QStringLiteral("<p>%1</p>").arg(ifEmpty);
    const auto line = [](const QStringList& cells, const QString& tag) {
        QString text = QStringLiteral("<tr>");
        for (const QString& cell : cells)
            text +=
                QStringLiteral("<%1 align=left>%2&nbsp;&nbsp;</%1>").arg(tag, cell.toHtmlEscaped());
        return text + QStringLiteral("</tr>");
    };
    html += QStringLiteral("<table>") + line(table.captions, QStringLiteral("th"));
    for (const QStringList& row : table.rows)
        html += line(row, QStringLiteral("td"));
    return html + QStringLiteral("</table>");
}

} // namespace

QByteArray historyCsv(const HistoryPage& page)
{
    std::vector<QStringList> table = {{QStringLiteral("Kind"), QStringLiteral("UTC"),
                                       QStringLiteral("Local time"), QStringLiteral("Value"),
                                       QStringLiteral("More")}};
    addSpeed(page.plots, table);
    addTable(page.alarms, QStringLiteral("alarm"), table);
    addTable(page.changes, QStringLiteral("change"), table);
    return QByteArrayLiteral("\xEF\xBB\xBF") + csvText(guardedTable(std::move(table))).toUtf8();
}

std::unique_ptr<QTextDocument> historyDocument(const HistoryPage& page, const QPixmap& plots)
{
    const QString picture = QStringLiteral("plots");
    auto document = std::make_unique<QTextDocument>();
    document->addResource(QTextDocument::ImageResource, QUrl(picture), plots.toImage());
    document->setHtml(
        QStringLiteral("<h2>TAMBRIX History</h2><p>%1</p><p><img src=\"%2\" width=\"%3\"></p>%4%5")
            .arg(summaryOf(page.plots).toHtmlEscaped(), picture)
            .arg(kPictureWidth)
            .arg(
                htmlTable(QStringLiteral("Alarms"), page.alarms, QStringLiteral("No alarms.")),
                htmlTable(QStringLiteral("Changes"), page.changes, QStringLiteral("No changes."))));
    return document;
}

} // namespace tambrix
