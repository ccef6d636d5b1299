#include "controls/lamp.h"

#include "controls/tones.h"

#include <QPainter>

#include <algorithm>

namespace tambrix {

namespace {

QColor fillOf(LampState state, const Tones& tones)
{
    switch (state) {
    case LampState::On:
        return tones.good;
    case LampState::Alarm:
        return tones.alarm;
    case LampState::Unusual:
        return tones.unusual;
    default:
        return tones.off;
    }
}

/// What a state shows besides its colour.
void paintSymbol(QPainter& painter, const QRectF& disc, LampState state, const Tones& tones)
{
    const QPointF middle = disc.center();
    const double unit = disc.height() / 12;
    painter.setPen(Qt::NoPen);
    if (state == LampState::Unknown) {
        painter.setBrush(tones.dim);
        painter.drawRect(QRectF(middle.x() - 2 * unit, middle.y() - unit / 2, 4 * unit, unit));
    } else if (state == LampState::Alarm) {
        painter.setBrush(tones.onAlarm);
        const double half = 0.75 * unit;
        painter.drawRect(QRectF(middle.x() - half, middle.y() - 3.5 * unit, 2 * half, 4.5 * unit));
        painter.drawRect(QRectF(middle.x() - half, middle.y() + 2 * unit, 2 * half, 2 * half));
    }
}

} // namespace

Lamp::Lamp(const QString& name, int grids, const QString& caption)
    : Picture(name), m_grids(grids), m_caption(caption)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Lamp::show(LampState state)
{
    if (state == m_state)
        return;
    m_state = state;
    valueChanged();
}

void Lamp::setWords(const QString& off, const QString& on, const QString& alarm)
{
    m_off = off;
    m_on = on;
    m_alarm = alarm;
}

QString Lamp::spokenValue() const
{
    switch (m_state) {
    case LampState::Off:
        return m_off;
    case LampState::On:
        return m_on;
    case LampState::Alarm:
        return m_alarm;
    case LampState::Unusual:
        return m_on;
    default:
        return QStringLiteral("not known");
    }
}

QFont Lamp::captionFont() const
{
    QFont bold = font();
    bold.setBold(true);
    return bold;
}

QSize Lamp::sizeHint() const
{
    const int across = m_grids * grid() + 2;
    if (m_caption.isEmpty())
        return {across, across};
    const QFontMetrics metrics(captionFont());
    return {std::max(across, metrics.horizontalAdvance(m_caption)),
            across + grid() + metrics.height()};
}

void Lamp::paintEvent(QPaintEvent*)
{
    const Tones& tones = tonesOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double across = m_grids * grid();
    QRectF disc(0, 0, across, across);
    disc.moveCenter({width() / 2.0, across / 2 + 1});
    if (m_caption.isEmpty())
        disc.moveCenter(QRectF(rect()).center());
    painter.setPen(tones.dim);
    painter.setBrush(fillOf(m_state, tones));
    painter.drawEllipse(disc.adjusted(0.5, 0.5, -0.5, -0.5));
    paintSymbol(painter, disc, m_state, tones);
    if (m_caption.isEmpty())
        return;
    painter.setFont(captionFont());
    painter.setPen(m_state == LampState::Alarm ? tones.alarm
                                               : palette().color(QPalette::WindowText));
    painter.drawText(rect(), Qt::AlignHCenter | Qt::AlignBottom, m_caption);
}

} // namespace tambrix
