#include "reports/report_painter.h"

#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>

namespace tambrix {

namespace {

constexpr double kNarrowestPaper = 460; // points; the label table needs them
constexpr double kPointsPerInch = 72;
constexpr double kCellMargin = 4;
constexpr double kNarrowest = 0.5; // share of its natural width that a text can still be read at
constexpr int kTextSize = 9;
constexpr int kTitleSize = 13;
constexpr QColor kRule(0x90, 0x90, 0x90);
constexpr QColor kHeadingFill(0xe8, 0xec, 0xf0);

QFont textFont(int size, bool bold = false)
{
    QFont font;
    font.setPixelSize(size); // the painter is scaled to points
    font.setBold(bold);
    return font;
}

/// A text that is too wide for its place is drawn narrower: a report cuts no value short. Only a
/// file name may be longer than that.
void drawText(QPainter& painter, const QRectF& place, Qt::Alignment alignment, const QString& text)
{
    const QFontMetricsF metrics(painter.font());
    const QString fitting = metrics.elidedText(text, Qt::ElideMiddle, place.width() / kNarrowest);
    const double width = metrics.horizontalAdvance(fitting);
    const double narrower = std::min(1.0, place.width() / std::max(width, 1.0));
    painter.save();
    painter.translate(place.topLeft());
    painter.scale(narrower, 1);
    painter.drawText(QRectF(0, 0, std::max(place.width(), width), place.height()),
                     static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextSingleLine, fitting);
    painter.restore();
}

} // namespace

ReportPainter::ReportPainter(Report report, const QPagedPaintDevice& device)
    : m_report(std::move(report))
{
    m_deviceScale = device.logicalDpiX() / kPointsPerInch;
    const QSizeF points(device.width() / m_deviceScale, device.height() / m_deviceScale);
    const double shrink = std::min(1.0, points.width() / kNarrowestPaper);
    m_deviceScale *= shrink;
    m_paper = points / shrink;
    m_pages = paginate(m_report, m_paper.height() - kPageHeaderHeight);
}

void ReportPainter::paintPage(QPainter& painter, int index) const
{
    painter.save();
    painter.scale(m_deviceScale, m_deviceScale);
    painter.setPen(QPen(Qt::black, 0.5));
    paintHeader(painter, index);
    painter.translate(0, kPageHeaderHeight);
    for (const ReportLine& line : m_pages[static_cast<std::size_t>(index)].lines)
        paintLine(painter, line);
    painter.restore();
}

void ReportPainter::paintHeader(QPainter& painter, int index) const
{
    constexpr double kTextHeight = 18;
    const double third = m_paper.width() / 5;
    painter.setFont(textFont(kTextSize + 1, true));
    drawText(painter, {0, 0, 3 * third, kTextHeight}, Qt::AlignLeft,
             QStringLiteral("TAMBRIX Report: ") + m_report.name);
    painter.setFont(textFont(kTextSize));
    drawText(painter, {3 * third, 0, third, kTextHeight}, Qt::AlignHCenter, m_report.date);
    drawText(painter, {4 * third, 0, third, kTextHeight}, Qt::AlignRight,
             QStringLiteral("Page %1 of %2").arg(index + 1).arg(pageCount()));
    painter.drawLine(QLineF(0, kTextHeight + 2, m_paper.width(), kTextHeight + 2));
}

void ReportPainter::paintLine(QPainter& painter, const ReportLine& line) const
{
    const double width = m_paper.width();
    switch (line.kind) {
    case LineKind::Note:
        painter.setFont(textFont(kTextSize));
        drawText(painter, {0, line.top, width, kNoteHeight}, Qt::AlignLeft, line.cells.front());
        break;
    case LineKind::TableTitle:
        painter.setFont(textFont(kTitleSize, true));
        drawText(painter, {0, line.top + 6, width, kTableTitleHeight - 8}, Qt::AlignLeft,
                 line.cells.front());
        break;
    case LineKind::TableHeading:
        painter.fillRect(QRectF(0, line.top, width, kTableHeadingHeight), kHeadingFill);
        painter.setFont(textFont(kTextSize, true));
        paintCells(painter, line, kTableHeadingHeight);
        break;
    case LineKind::TableRow:
        painter.setFont(textFont(kTextSize));
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
        drawText(painter, cell, columns[i].alignment, line.cells[static_cast<int>(i)]);
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
