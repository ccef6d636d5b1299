#include "controls/steady_place.h"

#include "controls/value_label.h"

#include <QHBoxLayout>

namespace tambrix {

namespace {

/// What a label tells its layout, and that the layout's window, ends here.
class SilentLayout : public QHBoxLayout
{
public:
    using QHBoxLayout::QHBoxLayout;
    void invalidate() override {}
};

} // namespace

SteadyPlace::SteadyPlace(ValueLabel* label) : m_label(label), m_room(label->minimumSizeHint())
{
    setSizePolicy(label->sizePolicy());
    auto* layout = new SilentLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(label);
    connect(label, &ValueLabel::roomChanged, this, &SteadyPlace::askForRoom);
}

QSize SteadyPlace::minimumSizeHint() const
{
    return m_label->minimumSizeHint();
}

void SteadyPlace::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    askForRoom();
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
