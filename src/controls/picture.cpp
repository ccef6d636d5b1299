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

    /// The name holds the value too: what is no control is asked for nothing else everywhere.
    QString text(QAccessible::Text which) const override
    {
        if (which == QAccessible::Value)
            return m_picture.spokenValue();
        const QString text = QAccessibleWidget::text(which);
        return which == QAccessible::Name ? text + QStringLiteral(": ") + m_picture.spokenValue()
                                          : text;
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
    QAccessibleEvent named(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&named);
}

int Picture::grid() const
{
    return gridOf(font());
}

} // namespace tambrix
