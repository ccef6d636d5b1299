#include "controls/fitted_label.h"

#include "controls/fonts.h"
#include "controls/tones.h"

#include <QPainter>

namespace tambrix {

namespace {

constexpr int kLargestPoints = 400;
constexpr int kSmallestTimes = 2; // the text is at least twice as large as the window's

} // namespace

FittedLabel::FittedLabel(const QString& name, const QString& what, const QString& value,
                         const QString& widest)
    : ValueLabel(name, what, value), m_widest(widest)
{
    setAlignment(Qt::AlignCenter);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize FittedLabel::minimumSizeHint() const
{
    return kSmallestTimes * (fontMetrics().size(0, m_widest) + QSize(fontMetrics().height(), 0));
}

void FittedLabel::paintEvent(QPaintEvent*)
{
    QFont large = font();
    const QString& measured = text().size() > m_widest.size() ? text() : m_widest;
    large.setPointSize(fittingPointSize(large, measured, contentsRect().size(), 1, kLargestPoints));
    QPainter painter(this);
    painter.setFont(large);
    painter.setPen(isEnabled() ? palette().color(QPalette::WindowText) : tonesOf(palette()).dim);
    painter.drawText(contentsRect(), static_cast<int>(alignment()), text());
}

} // namespace tambrix
