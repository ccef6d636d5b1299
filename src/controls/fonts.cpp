#include "controls/fonts.h"

#include <QFontMetrics>
#include <QWidget>

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

int fittingPointSize(QFont font, const QString& text, const QSize& space, int smallest, int largest)
{
    int points = largest;
    while (points > smallest && !fits(font, points, text, space))
        --points;
    return points;
}

} // namespace tambrix
