#include "reports/report_layout.h"

namespace tambrix {

namespace {

double heightOf(LineKind kind)
{
    switch (kind) {
    case LineKind::TableTitle:
        return kTableTitleHeight;
    case LineKind::TableHeading:
        return kTableHeadingHeight;
    case LineKind::TableRow:
        return kTableRowHeight;
    case LineKind::Note:
        break;
    }
    return kNoteHeight;
}

QStringList headingsOf(const ReportTable& table)
{
    QStringList headings;
    for (const ReportColumn& column : table.columns)
        headings.append(column.heading);
    return headings;
}

class Paginator
{
public:
    explicit Paginator(double bodyHeight) : m_bodyHeight(bodyHeight) {}

    std::vector<ReportPage> layOut(const Report& report)
    {
        for (const QString& note : report.notes)
            put({LineKind::Note, 0, 0, {note}});
        for (std::size_t i = 0; i < report.tables.size(); ++i)
            putTable(report.tables[i], i);
        return std::move(m_pages);
    }

private:
    static double blockHeight(const ReportBlock& block)
    {
        return static_cast<double>(block.rows.size()) * kTableRowHeight;
    }

    void putTable(const ReportTable& table, std::size_t index)
    {
        bool headed = false;
        for (const ReportBlock& block : table.blocks) {
            const double heading = headed ? 0 : kTableTitleHeight + kTableHeadingHeight;
            if (m_used + heading + blockHeight(block) > m_bodyHeight && m_used > 0) {
                startPage();
                putHeading(table, index, headed);
            } else if (!headed) {
                putHeading(table, index, false);
            }
            headed = true;
            putBlock(block, index);
        }
    }

    void putHeading(const ReportTable& table, std::size_t index, bool continued)
    {
        const QString title =
            continued ? QStringLiteral("%1 (continued)").arg(table.title) : table.title;
        put({LineKind::TableTitle, 0, index, {title}});
        put({LineKind::TableHeading, 0, index, headingsOf(table)});
    }

    void putBlock(const ReportBlock& block, std::size_t index)
    {
        for (const QStringList& row : block.rows)
            put({LineKind::TableRow, 0, index, row, &row == &block.rows.back()});
    }

    void put(ReportLine line)
    {
        line.top = m_used;
        m_used += heightOf(line.kind);
        m_pages.back().lines.push_back(std::move(line));
    }

    void startPage()
    {
        m_pages.emplace_back();
        m_used = 0;
    }

    double m_bodyHeight;
    double m_used = 0;
    std::vector<ReportPage> m_pages{1};
};

} // namespace

std::vector<ReportPage> paginate(const Report& report, double bodyHeight)
{
    return Paginator(bodyHeight).layOut(report);
}

} // namespace tambrix
