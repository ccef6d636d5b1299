#include "controls/fonts.h"

#include <QFontMetrics>
#include <QWidget>

#include <algorithm>

namespace tambrix {

namespace {

constexpr int kMargin = 12; // room that a text view keeps around its lines

bool fits(QFont& font, int points, const QString& text, const QSize& space)
{
    font.setPointSize(points);
    const QSize needed = QFontMetrics(font).size(Qt::TextExpandTabs, text);
    return needed.width() + kMargin <= space.width() && needed.height() + kMargin <= space.height();
}

} // namespace

void setPoints(QWidget& widget, int points)
{
    QFont font = widget.font();
    font.setPointSize(points);
    widget.setFont(font);
}

/// Type grows in proportion, but for rounding: measured once, then corrected downwards.
int fittingPointSize(QFont font, const QString& text, const QSize& space, int smallest, int largest)
{
    font.setPointSize(largest);
    const QSizeF needed = QFontMetricsF(font).size(Qt::TextExpandTabs, text);
    const double share = std::min((space.width() - kMargin) / std::max(needed.width(), 1.0),
                                  (space.height() - kMargin) / std::max(needed.height(), 1.0));
    int points = std::clamp(static_cast<int>(largest * share) + 1, smallest, largest);
    while (points > smallest && !fits(font, points, text, space))
        --points;
    return points;
}

} // namespace tambrix
