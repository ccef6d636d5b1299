#include "datasets/compare_text.h"

#include "data/csv_text.h"
#include "data/guarded_table.h"
#include "data/link_text.h"

namespace tambrix {

namespace {

QString counted(int count, const char* one, const char* many)
{
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : many));
}

QString valueOf(const std::optional<std::int32_t>& value)
{
    return value ? QString::number(*value) : QString();
}

QString writtenText(const RestoreRow& row)
{
    switch (row.state) {
    case WriteState::NotWritten:
        return QStringLiteral("not written");
    case WriteState::Written:
        return QStringLiteral("written, not read back");
    case WriteState::Verified:
        return QStringLiteral("verified");
    case WriteState::Different:
        return QStringLiteral("wanted %1, found %2").arg(row.value).arg(row.found);
    case WriteState::Unknown:
        return QStringLiteral("unknown: broke off while writing");
    }
    return {};
}

} // namespace

QString verdictText(const Differences& differences)
{
    const int values = differences.values();
    if (values == 0)
        return QStringLiteral("No differences.");
    return counted(values, "value differs.", "values differ.");
}

QString outcomeText(const std::vector<RestoreRow>& rows)
{
    const int verified = countOf(rows, WriteState::Verified);
    const int unknown = countOf(rows, WriteState::Unknown);
    const int notWritten = countOf(rows, WriteState::NotWritten);
    const int all = static_cast<int>(rows.size());
    const int written = all - unknown - notWritten;
    QString text = QStringLiteral("%1 written, %2 verified").arg(written).arg(verified);
    if (written > verified)
        text += QStringLiteral(", %1 not").arg(written - verified);
    if (unknown > 0)
        text += QStringLiteral(", %1 unknown").arg(unknown);
    if (notWritten > 0)
        text += QStringLiteral(", %1 not written").arg(notWritten);
    return text + u'.';
}

QString takenText(std::size_t taken, std::size_t left)
{
    QString text = counted(static_cast<int>(taken), "value was", "values were") +
                   QStringLiteral(" taken into the working data.");
    if (left > 0)
        text += QStringLiteral(" %1 found no entry there.").arg(left);
    return text;
}

QString stateText(const ComparedEntry& entry)
{
    return entry.outcome ? writtenText(*entry.outcome) : concernText(entry.concern);
}

std::vector<QStringList> comparisonTable(const Comparison& comparison, const QString& left,
                                         const QString& right)
{
    std::vector<QStringList> table = {{QStringLiteral("What"), QStringLiteral("Register"),
                                       QStringLiteral("Unit"), left, right,
                                       QStringLiteral("Running"), QStringLiteral("State")}};
    for (int i = 0; i < static_cast<int>(comparison.entries().size()); ++i) {
        if (!comparison.notable(i))
            continue;
        const ComparedEntry& entry = comparison.entries()[static_cast<std::size_t>(i)];
        const bool known = i <= gDataUpperBound;
        table.push_back({known ? fromLink(nameOf(entryAt(i))) : QStringLiteral("Unknown"),
                         fromLink(entry.address),
                         known ? QString::fromLatin1(entryAt(i).parameter.unit) : QString(),
                         valueOf(entry.left), valueOf(entry.right), valueOf(entry.running),
                         stateText(entry)});
    }
    return table;
}

QString asTabText(const std::vector<QStringList>& table)
{
    return csvText(guardedTable(table), u'\t');
}

QString asHtml(const std::vector<QStringList>& table, const QString& title)
{
    QString html =
        QStringLiteral("<h3>%1</h3><table cellspacing=\"0\" cellpadding=\"3\" border=\"1\" "
                       "style=\"border-collapse:collapse\">")
            .arg(title.toHtmlEscaped());
    const char* cell = "th"; // of the first row
    for (const QStringList& row : table) {
        html += QStringLiteral("<tr>");
        for (const QString& text : row)
            html += QStringLiteral("<%1>%2</%1>").arg(QLatin1String(cell), text.toHtmlEscaped());
        html += QStringLiteral("</tr>");
        cell = "td";
    }
    return html + QStringLiteral("</table>");
}

} // namespace tambrix
