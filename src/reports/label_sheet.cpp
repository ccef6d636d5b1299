#include "reports/label_sheet.h"

#include "reports/report_text.h"

#include <QPainter>

#include <algorithm>

namespace tambrix {

namespace {

constexpr double kTitleHeight = 30;
constexpr double kNoteLine = 14;
constexpr double kRowHeight = 42;
constexpr double kBarHeight = 20;
constexpr double kNumberWidth = 24;
constexpr double kDensityWidth = 50;
constexpr double kValuesWidth = 150;
constexpr QColor kTrack(0xe2, 0xe8, 0xee);
constexpr QColor kBar(0x3a, 0x6f, 0xb0);
constexpr QColor kFrame(0x90, 0x90, 0x90);

void paintBar(QPainter& painter, const QRectF& track, double share)
{
    painter.fillRect(track, kTrack);
    QRectF filled = track;
    filled.setWidth(track.width() * std::clamp(share, 0.0, 1.0));
    painter.fillRect(filled, kBar);
    painter.save();
    painter.setPen(QPen(kFrame, 0.4));
    painter.drawRect(track);
    painter.restore();
}

void paintDuctor(QPainter& painter, int number, const DuctorInk& ink, const QRectF& row)
{
    const double barWidth = row.width() - kNumberWidth - kDensityWidth - kValuesWidth;
    const QRectF track(row.left() + kNumberWidth, row.center().y() - kBarHeight / 2, barWidth,
                       kBarHeight);
    painter.setFont(reportFont(kReportTitleSize, true));
    drawReportText(painter, {row.left(), row.top(), kNumberWidth, row.height()}, Qt::AlignLeft,
                   QString::number(number));
    paintBar(painter, track, ink.share);
    drawReportText(painter, {track.right(), row.top(), kDensityWidth, row.height()}, Qt::AlignRight,
                   ink.density);
    painter.setFont(reportFont(kReportTextSize));
    drawReportText(painter, {track.right() + kDensityWidth, row.top(), kValuesWidth, row.height()},
                   Qt::AlignRight,
                   QStringLiteral("ON %1, CYCLE %2 (0.1 cans)").arg(ink.on).arg(ink.cycle));
}

} // namespace

void paintLabelSheet(QPainter& painter, const LabelSheet& sheet, const QStringList& notes,
                     const QRectF& place)
{
    painter.setFont(reportFont(kReportTitleSize + 3, true));
    double top = place.top();
    drawReportText(painter, {place.left(), top, place.width(), kTitleHeight}, Qt::AlignLeft,
                   sheet.title);
    top += kTitleHeight;
    painter.setFont(reportFont(kReportTextSize));
    for (const QString& note : notes) {
        drawReportText(painter, {place.left(), top, place.width(), kNoteLine}, Qt::AlignLeft, note);
        top += kNoteLine;
    }
    const double height = std::min(kRowHeight, (place.bottom() - top) / kDuctors);
    for (int d = 0; d < kDuctors; ++d)
        paintDuctor(painter, d + 1, sheet.ductors[static_cast<std::size_t>(d)],
                    {place.left(), top + d * height, place.width(), height});
}

} // namespace tambrix
