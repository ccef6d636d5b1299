#include "reports/report_painter.h"

#include "reports/label_sheet.h"
#include "reports/report_text.h"

#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>

namespace tambrix {

namespace {

constexpr double kNarrowestPaper = 460; // points; the label table needs them
constexpr double kPointsPerInch = 72;
constexpr double kCellMargin = 4;
constexpr QColor kRule(0x90, 0x90, 0x90);
constexpr QColor kHeadingFill(0xe8, 0xec, 0xf0);

} // namespace

ReportPainter::ReportPainter(Report report, const QPagedPaintDevice& device)
    : m_report(std::move(report))
{
    m_deviceScale = device.logicalDpiX() / kPointsPerInch;
    const QSizeF points(device.width() / m_deviceScale, device.height() / m_deviceScale);
    const double shrink = std::min(1.0, points.width() / kNarrowestPaper);
    m_deviceScale *= shrink;
    m_paper = points / shrink;
    if (!m_report.tables.empty() || m_report.sheets.empty())
        m_pages = paginate(m_report, m_paper.height() - kPageHeaderHeight);
}

int ReportPainter::pageCount() const
{
    return static_cast<int>(m_pages.size() + m_report.sheets.size());
}

void ReportPainter::paintPage(QPainter& painter, int index) const
{
    painter.save();
    painter.scale(m_deviceScale, m_deviceScale);
    painter.setPen(QPen(Qt::black, 0.5));
    paintHeader(painter, index);
    painter.translate(0, kPageHeaderHeight);
    paintBody(painter, static_cast<std::size_t>(index));
    painter.restore();
}

void ReportPainter::paintBody(QPainter& painter, std::size_t index) const
{
    if (index >= m_pages.size())
        return paintLabelSheet(painter, m_report.sheets[index - m_pages.size()], m_report.notes,
                               {{}, m_paper - QSizeF(0, kPageHeaderHeight)});
    for (const ReportLine& line : m_pages[index].lines)
        paintLine(painter, line);
}

void ReportPainter::paintHeader(QPainter& painter, int index) const
{
    constexpr double kTextHeight = 18;
    const double third = m_paper.width() / 5;
    painter.setFont(reportFont(kReportTextSize + 1, true));
    drawReportText(painter, {0, 0, 3 * third, kTextHeight}, Qt::AlignLeft,
                   QStringLiteral("TAMBRIX Report: ") + m_report.name);
    painter.setFont(reportFont(kReportTextSize));
    drawReportText(painter, {3 * third, 0, third, kTextHeight}, Qt::AlignHCenter, m_report.date);
    drawReportText(painter, {4 * third, 0, third, kTextHeight}, Qt::AlignRight,
                   QStringLiteral("Page %1 of %2").arg(index + 1).arg(pageCount()));
    painter.drawLine(QLineF(0, kTextHeight + 2, m_paper.width(), kTextHeight + 2));
}

void ReportPainter::paintLine(QPainter& painter, const ReportLine& line) const
{
    const double width = m_paper.width();
    switch (line.kind) {
    case LineKind::Note:
        painter.setFont(reportFont(kReportTextSize));
        drawReportText(painter, {0, line.top, width, kNoteHeight}, Qt::AlignLeft,
                       line.cells.front());
        break;
    case LineKind::TableTitle:
        painter.setFont(reportFont(kReportTitleSize, true));
        drawReportText(painter, {0, line.top + 6, width, kTableTitleHeight - 8}, Qt::AlignLeft,
                       line.cells.front());
        break;
    case LineKind::TableHeading:
        painter.fillRect(QRectF(0, line.top, width, kTableHeadingHeight), kHeadingFill);
        painter.setFont(reportFont(kReportTextSize, true));
        paintCells(painter, line, kTableHeadingHeight);
        break;
    case LineKind::TableRow:
        painter.setFont(reportFont(kReportTextSize));
        paintCells(painter, line, kTableRowHeight);
        break;
    }
}

void ReportPainter::paintCells(QPainter& painter, const ReportLine& line, double height) const
{
    const auto& columns = m_report.tables[line.table].columns;
    double shares = 0;
    for (const ReportColumn& column : columns)
        shares += column.share;
    double left = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const double width = columns[i].share / shares * m_paper.width();
        const QRectF cell(left + kCellMargin, line.top, width - 2 * kCellMargin, height);
        drawReportText(painter, cell, columns[i].alignment, line.cells[static_cast<int>(i)]);
        left += width;
    }
    if (!line.endsBlock)
        return;
    painter.save();
    painter.setPen(QPen(kRule, 0.4));
    painter.drawLine(QLineF(0, line.top + height, m_paper.width(), line.top + height));
    painter.restore();
}

} // namespace tambrix
