#include "reports/report_text.h"

#include <QPainter>

#include <algorithm>

namespace tambrix {

namespace {

constexpr double kNarrowest = 0.5; // share of its natural width that a text can still be read at

} // namespace

QFont reportFont(int size, bool bold)
{
    QFont font;
    font.setPixelSize(size); // the painter is scaled to points
    font.setBold(bold);
    return font;
}

void drawReportText(QPainter& painter, const QRectF& place, Qt::Alignment alignment,
                    const QString& text)
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

} // namespace tambrix
