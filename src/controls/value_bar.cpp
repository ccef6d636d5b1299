#include "controls/value_bar.h"

#include "controls/tones.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace tambrix {

ValueBar::ValueBar(const QString& name) : Picture(name, QAccessible::ProgressBar)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ValueBar::show(double share, const QString& spoken)
{
    if (!std::isfinite(share))
        share = 0;
    if (share == m_share && spoken == m_spoken)
        return;
    m_share = share;
    m_spoken = spoken;
    valueChanged();
}

QSize ValueBar::sizeHint() const
{
    return {22 * grid(), 5 * grid() / 2};
}

QSize ValueBar::minimumSizeHint() const
{
    return {8 * grid(), sizeHint().height()};
}

/// The filled part is cut out of the track's rounded shape, so that 1 % is as true as 99 %.
void ValueBar::paintEvent(QPaintEvent*)
{
    const Tones& tones = tonesOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF track(rect());
    QPainterPath shape;
    shape.addRoundedRect(track, track.height() / 2, track.height() / 2);
    painter.fillPath(shape, tones.track);
    painter.setClipPath(shape);
    const double filled = track.width() * std::clamp(m_share, 0.0, 1.0);
    const bool reversed = layoutDirection() == Qt::RightToLeft;
    const double from = reversed ? track.width() - filled : 0;
    painter.fillRect(QRectF(from, 0, filled, track.height()), isEnabled() ? tones.bar : tones.dim);
    if (m_share > 1)
        painter.fillRect(QRectF(reversed ? 0 : track.width() - track.height(), 0, track.height(),
                                track.height()),
                         tones.unusual);
}

double scaleEnd(std::span<const double> counts)
{
    const double largest = counts.empty() ? 0 : std::ranges::max(counts);
    double end = 1;
    for (int step = 0; end < largest; ++step)
        end *= step % 3 == 1 ? 2.5 : 2; // 1, 2, 5, 10
    return end;
}

} // namespace tambrix
