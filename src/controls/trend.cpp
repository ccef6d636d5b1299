#include "controls/trend.h"

#include "controls/tones.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace tambrix {

namespace {

constexpr int kHeight = 8; // grids, the captions below it too
constexpr int kWidth = 12; // grids
constexpr double kSecondsAMinute = 60;
constexpr double kMissing = 2.5; // steps: further apart, the value was not read in between

} // namespace

Trend::Trend(const QString& name, double span, double step)
    : Picture(name), m_span(span), m_step(step)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

QString Trend::minutes() const
{
    return QStringLiteral("the last %1 min").arg(std::lround(m_span / kSecondsAMinute));
}

void Trend::show(std::vector<Point> points)
{
    m_points = std::move(points);
    valueChanged();
}

QString Trend::spokenValue() const
{
    if (m_points.empty())
        return QStringLiteral("not read in ") + minutes();
    const auto [lowest, unused] = std::ranges::minmax_element(m_points, {}, &Point::low);
    const auto [unused2, highest] = std::ranges::minmax_element(m_points, {}, &Point::high);
    return QStringLiteral("%1 to %2 in %3").arg(lowest->low).arg(highest->high).arg(minutes());
}

QSize Trend::sizeHint() const
{
    return {2 * kWidth * grid(), kHeight * grid()};
}

QSize Trend::minimumSizeHint() const
{
    return {kWidth * grid(), kHeight * grid()};
}

/// From 0 up, so that a stop looks like one.
void Trend::paintEvent(QPaintEvent*)
{
    const Tones& tones = tonesOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(tones.dim);
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignBottom,
                     QStringLiteral("%1 min ago").arg(std::lround(m_span / kSecondsAMinute)));
    painter.drawText(rect(), Qt::AlignRight | Qt::AlignBottom, QStringLiteral("now"));
    const QRectF frame =
        QRectF(rect()).adjusted(1, 1, -1, -1 - painter.fontMetrics().height() - grid() / 2.0);
    painter.setPen(tones.line);
    painter.drawRoundedRect(frame, grid() / 2.0, grid() / 2.0);
    drawPoints(painter, frame);
}

/// Nothing where the value was not read.
void Trend::drawPoints(QPainter& painter, const QRectF& frame) const
{
    int top = 1;
    for (const Point& point : m_points)
        top = std::max(top, point.high);
    const auto place = [&](double ago, int value) {
        return QPointF(frame.right() - frame.width() * ago / m_span,
                       frame.bottom() - frame.height() * 0.9 * value / top);
    };
    const QColor colour = tonesOf(palette()).bar;
    QColor band = colour;
    band.setAlphaF(0.25F);
    for (std::size_t i = 0; i < m_points.size();) {
        QPolygonF lowest, highest, line;
        for (const std::size_t end = endOfRun(i); i < end; ++i) {
            const Point& point = m_points[i];
            line << place(point.ago, point.last);
            highest << place(point.ago, point.high);
            lowest.prepend(place(point.ago, point.low));
        }
        painter.setPen(Qt::NoPen);
        painter.setBrush(band);
        painter.drawPolygon(highest + lowest);
        painter.setPen(QPen(colour, 2));
        painter.drawPolyline(line);
    }
}

/// One past the last of the points from `from` on between which the value was read all the time.
std::size_t Trend::endOfRun(std::size_t from) const
{
    std::size_t end = from + 1;
    while (end < m_points.size() && m_points[end - 1].ago - m_points[end].ago <= kMissing * m_step)
        ++end;
    return end;
}

} // namespace tambrix
