#include "controls/alarm_banner.h"

#include "controls/fonts.h"
#include "controls/tones.h"

#include <QPainter>
#include <QPainterPath>
#include <QStringList>

namespace tambrix {

namespace {

constexpr int kEveryDuctor = 255;
constexpr int kCorner = 6;
constexpr int kSmallestPoints = 7;

/// "1, 3 and 8", from bits.
QString listed(int ductors)
{
    QStringList numbers;
    for (int d = 0; d < 8; ++d) {
        if ((ductors & (1 << d)) != 0)
            numbers.push_back(QString::number(d + 1));
    }
    const QString last = numbers.takeLast();
    return numbers.isEmpty() ? last : numbers.join(QStringLiteral(", ")) + " and " + last;
}

/// The triangle with the exclamation mark.
void paintTriangle(QPainter& painter, const QRectF& place, const Tones& tones)
{
    QPainterPath triangle(QPointF(place.center().x(), place.top()));
    triangle.lineTo(place.bottomRight());
    triangle.lineTo(place.bottomLeft());
    triangle.closeSubpath();
    painter.fillPath(triangle, tones.alarm);
    const double unit = place.height() / 12;
    const double x = place.center().x();
    painter.fillRect(QRectF(x - unit * 0.7, place.top() + unit * 4, unit * 1.4, unit * 4),
                     tones.onAlarm);
    painter.fillRect(QRectF(x - unit * 0.7, place.top() + unit * 9, unit * 1.4, unit * 1.4),
                     tones.onAlarm);
}

} // namespace

AlarmBanner::AlarmBanner() : Picture(QStringLiteral("Alarm"), QAccessible::AlertMessage)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_why = QStringLiteral("Off line");
}

void AlarmBanner::showAlarms(std::uint8_t ductors, const QTime& now)
{
    if (m_ductors == 0)
        m_since = now;
    change(ductors, {});
}

void AlarmBanner::showUnknown(const QString& why)
{
    change(0, why);
}

void AlarmBanner::change(std::uint8_t ductors, const QString& why)
{
    if (ductors == m_ductors && why == m_why)
        return;
    m_ductors = ductors;
    m_why = why;
    valueChanged();
    announce(*this);
}

QString AlarmBanner::text() const
{
    if (!m_why.isEmpty())
        return m_why + ": alarms are not known";
    if (m_ductors == 0)
        return QStringLiteral("No alarm");
    if (m_ductors == kEveryDuctor)
        return QStringLiteral("All ductors: no feedback");
    const bool one = (m_ductors & (m_ductors - 1)) == 0;
    return QStringLiteral("%1 %2: no feedback")
        .arg(one ? QStringLiteral("Ductor") : QStringLiteral("Ductors"), listed(m_ductors));
}

QString AlarmBanner::since() const
{
    return "since " + m_since.toString(QStringLiteral("HH:mm"));
}

QString AlarmBanner::spokenValue() const
{
    return alarmed() ? text() + ", " + since() : text();
}

QSize AlarmBanner::sizeHint() const
{
    return {40 * grid(), 7 * grid()};
}

void AlarmBanner::paintEvent(QPaintEvent*)
{
    const Tones& tones = tonesOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double line = alarmed() ? 2 : 1;
    painter.setPen(QPen(alarmed() ? tones.alarm : tones.line, line));
    painter.setBrush(alarmed() ? tones.alarmGround : tones.card);
    painter.drawRoundedRect(QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2),
                            kCorner, kCorner);
    const int side = 4 * grid();
    QRectF mark(2 * grid(), 0, side, side);
    mark.moveTop((height() - side) / 2.0);
    paintMark(painter, mark);
    paintTexts(painter, rect().adjusted(side + 4 * grid(), 0, -2 * grid(), 0));
}

void AlarmBanner::paintMark(QPainter& painter, const QRectF& place) const
{
    const Tones& tones = tonesOf(palette());
    if (alarmed())
        return paintTriangle(painter, place, tones);
    const double in = place.height() / 8;
    painter.setPen(tones.dim);
    painter.setBrush(m_why.isEmpty() ? tones.good : tones.off);
    painter.drawEllipse(place.adjusted(in, in, -in, -in));
    if (!m_why.isEmpty())
        painter.fillRect(QRectF(place.center().x() - in, place.center().y() - 1, 2 * in, 2),
                         tones.dim);
}

void AlarmBanner::paintTexts(QPainter& painter, const QRect& place) const
{
    const Tones& tones = tonesOf(palette());
    int right = place.right();
    if (alarmed()) {
        painter.setPen(tones.dim);
        painter.setFont(font());
        painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter, since());
        right -= fontMetrics().horizontalAdvance(since()) + 2 * grid();
    }
    const QRect rest(place.topLeft(), QPoint(right, place.bottom()));
    QFont large = font();
    large.setBold(true);
    large.setPointSize(
        fittingPointSize(large, text(), rest.size(), kSmallestPoints, font().pointSize() * 3 / 2));
    painter.setFont(large);
    painter.setPen(alarmed()         ? tones.alarm
                   : m_why.isEmpty() ? palette().color(QPalette::WindowText)
                                     : tones.dim);
    painter.drawText(rest, Qt::AlignLeft | Qt::AlignVCenter, text());
}

} // namespace tambrix
