#include "controls/steady_place.h"

#include <QEvent>
#include <QLabel>

namespace tambrix {

SteadyPlace::SteadyPlace(QLabel* label) : m_label(label), m_room(label->minimumSizeHint())
{
    setSizePolicy(label->sizePolicy());
    label->setParent(this);
}

QSize SteadyPlace::minimumSizeHint() const
{
    return m_label->minimumSizeHint();
}

bool SteadyPlace::event(QEvent* event)
{
    const bool handled = QWidget::event(event);
    if (event->type() != QEvent::LayoutRequest && event->type() != QEvent::Show)
        return handled;
    const QSize room = m_label->minimumSizeHint();
    if (room == m_room)
        return handled;
    m_room = room;
    updateGeometry();
    return handled;
}

void SteadyPlace::resizeEvent(QResizeEvent*)
{
    m_label->setGeometry(rect());
}

} // namespace tambrix
