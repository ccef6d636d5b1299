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

QFont FittedLabel::fittedFont()
{
    const QString& text = this->text().size() > m_widest.size() ? this->text() : m_widest;
    const QSize place = contentsRect().size();
    QFont large = font();
    if (m_measured.font != large || m_measured.text != text || m_measured.place != place)
        m_measured = {large, text, place, fittingPointSize(large, text, place, 1, kLargestPoints)};
    large.setPointSize(m_measured.points);
    return large;
}

void FittedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setFont(fittedFont());
    painter.setPen(isEnabled() ? palette().color(QPalette::WindowText) : tonesOf(palette()).dim);
    painter.drawText(contentsRect(), static_cast<int>(alignment()), text());
}

} // namespace tambrix
