#include "controls/steady_place.h"

#include "controls/value_label.h"

#include <QEvent>

namespace tambrix {

SteadyPlace::SteadyPlace(ValueLabel* label) : m_label(label), m_room(label->minimumSizeHint())
{
    setSizePolicy(label->sizePolicy());
    label->setParent(this);
    connect(label, &ValueLabel::roomChanged, this, &SteadyPlace::askForRoom);
}

QSize SteadyPlace::minimumSizeHint() const
{
    return m_label->minimumSizeHint();
}

bool SteadyPlace::event(QEvent* event)
{
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show)
        askForRoom();
    return handled;
}

void SteadyPlace::resizeEvent(QResizeEvent*)
{
    m_label->setFixedSize(size());
}

void SteadyPlace::askForRoom()
{
    QSize room = minimumSizeHint();
    if (sizePolicy().horizontalPolicy() == QSizePolicy::Ignored)
        room.setWidth(0); // takes what there is
    if (room == m_room)
        return;
    m_room = room;
    updateGeometry();
}

} // namespace tambrix
