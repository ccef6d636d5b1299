#include "controls/picture.h"

#include "controls/text_size.h"

#include <QAccessibleWidget>

namespace tambrix {

namespace {

class AccessiblePicture : public QAccessibleWidget
{
public:
    explicit AccessiblePicture(Picture& picture)
        : QAccessibleWidget(&picture, picture.role()), m_picture(picture)
    {
    }

    QString text(QAccessible::Text which) const override
    {
        return which == QAccessible::Value ? m_picture.spokenValue()
                                           : QAccessibleWidget::text(which);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        return state;
    }

private:
    const Picture& m_picture;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object)
{
    auto* picture = qobject_cast<Picture*>(object);
    return picture == nullptr ? nullptr : new AccessiblePicture(*picture);
}

} // namespace

void announce(QWidget& widget)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent changed(&widget, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
    QAccessibleEvent alert(&widget, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

Picture::Picture(const QString& name, QAccessible::Role role) : m_role(role)
{
    [[maybe_unused]] static const bool known =
        (QAccessible::installFactory(makeInterface), true); // once for all pictures
    setAccessibleName(name);
    setFocusPolicy(Qt::NoFocus);
}

void Picture::valueChanged()
{
    update();
    if (!QAccessible::isActive())
        return;
    QAccessibleValueChangeEvent changed(this, spokenValue());
    QAccessible::updateAccessibility(&changed);
}

int Picture::grid() const
{
    return gridOf(font());
}

} // namespace tambrix
