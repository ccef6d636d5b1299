#include "shell/mode_toggle.h"

#include "controls/calm_style.h"
#include "controls/picture.h"
#include "controls/text_size.h"
#include "controls/tones.h"

#include <QPainter>

#include <algorithm>

namespace tambrix {

namespace {

const QString kOnline = QStringLiteral("On line");
const QString kOffline = QStringLiteral("Off line");

} // namespace

ModeToggle::ModeToggle()
{
    setObjectName(QStringLiteral("btnMode"));
    setFocusPolicy(Qt::NoFocus); // F9 and Shift+F9 are its keys
    setText(kOffline);
    setToolTip(QStringLiteral("Goes on line, or off line again (F9, Shift+F9)"));
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
}

void ModeToggle::showMode(bool online)
{
    if (online == m_online)
        return;
    m_online = online;
    setText(online ? kOnline : kOffline);
    announce(*this);
}

QSize ModeToggle::sizeHint() const
{
    const int grid = gridOf(font());
    return {fontMetrics().horizontalAdvance(kOffline) + 9 * grid,
            std::max(fontMetrics().height() + 2 * grid, CalmStyle::largeControls() ? 40 : 32)};
}

void ModeToggle::paintEvent(QPaintEvent*)
{
    const Tones& tones = tonesOf(palette());
    const QColor text = m_online ? tones.onAlarm : palette().color(QPalette::WindowText);
    const QColor ground = m_online ? tones.good : tones.off;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isDown() || underMouse() ? ground.lighter(108) : ground);
    const double half = height() / 2.0;
    painter.drawRoundedRect(rect(), half, half);
    const int grid = gridOf(font());
    const double radius = grid * 0.9;
    painter.setBrush(text);
    painter.drawEllipse(QPointF(2.5 * grid, half), radius, radius);
    painter.setPen(text);
    painter.drawText(rect().adjusted(4 * grid, 0, -grid, 0), Qt::AlignCenter, this->text());
}

} // namespace tambrix
