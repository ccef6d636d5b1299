#include "controls/cycle_ring.h"

#include "controls/fonts.h"
#include "controls/tones.h"

#include <QPainter>

#include <algorithm>

namespace tambrix {

namespace {

constexpr double kThickness = 0.12; // of the ring's diameter
constexpr int kTop = 90 * 16;       // Qt counts sixteenths of a degree, against the clock
constexpr int kWhole = 360 * 16;
const QString kUnit = QStringLiteral("cans with ink, at most");

QString cans(int tenths)
{
    return QString::number(tenths / 10.0, 'f', 1);
}

} // namespace

CycleRing::CycleRing(const QString& name) : Picture(name, QAccessible::Chart)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CycleRing::show(int on, int cycle)
{
    if (on == m_on && cycle == m_cycle)
        return;
    m_on = on;
    m_cycle = cycle;
    valueChanged();
}

QString CycleRing::numbers() const
{
    if (m_cycle < 1)
        return QStringLiteral("-");
    return QStringLiteral("%1 of %2").arg(cans(m_on), cans(m_cycle));
}

QString CycleRing::spokenValue() const
{
    return m_cycle < 1 ? numbers() : numbers() + u' ' + kUnit;
}

/// The unit's line fits into the hole.
QSize CycleRing::minimumSizeHint() const
{
    const int across =
        static_cast<int>(fontMetrics().horizontalAdvance(kUnit) / (1 - 3 * kThickness));
    return {across, across};
}

void CycleRing::paintEvent(QPaintEvent*)
{
    const Tones& tones = tonesOf(palette());
    const double across = std::min(width(), height()) - 2;
    const double thickness = across * kThickness;
    QRectF ring(0, 0, across - thickness, across - thickness);
    ring.moveCenter(QRectF(rect()).center());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(tones.track, thickness, Qt::SolidLine, Qt::FlatCap));
    painter.drawEllipse(ring);
    if (m_cycle >= 1 && m_on > 0) {
        const int span = static_cast<int>(kWhole * std::min(1.0, double(m_on) / m_cycle));
        const QColor& ink = m_on > m_cycle ? tones.unusual : tones.bar;
        painter.setPen(QPen(isEnabled() ? ink : tones.dim, thickness, Qt::SolidLine, Qt::FlatCap));
        painter.drawArc(ring, kTop, -span);
    }
    paintNumbers(painter, ring.adjusted(thickness, thickness, -thickness, -thickness));
}

void CycleRing::paintNumbers(QPainter& painter, const QRectF& hole) const
{
    const Tones& tones = tonesOf(palette());
    QFont large = font();
    large.setBold(true);
    large.setPointSize(fittingPointSize(large, QStringLiteral("00.0 of 00.0"),
                                        QSizeF(hole.width() * 0.8, hole.height() * 0.3).toSize(),
                                        font().pointSize(), 2 * font().pointSize()));
    const double line = fontMetrics().height();
    painter.setFont(large);
    painter.setPen(isEnabled() ? palette().color(QPalette::WindowText) : tones.dim);
    painter.drawText(hole.translated(0, -line / 2), Qt::AlignCenter, numbers());
    if (m_cycle < 1)
        return;
    painter.setFont(font());
    painter.setPen(tones.dim);
    painter.drawText(hole.translated(0, QFontMetricsF(large).height() / 2 + line / 4),
                     Qt::AlignCenter, kUnit);
}

} // namespace tambrix
