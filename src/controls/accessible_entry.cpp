#include "controls/accessible_entry.h"

#include "controls/numeric_entry_field.h"

#include <QAccessibleWidget>
#include <QLineEdit>

namespace tambrix {

namespace {

class AccessibleEntry : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit AccessibleEntry(NumericEntryField& field)
        : QAccessibleWidget(&field, QAccessible::SpinBox), m_field(field)
    {
    }

    QString text(QAccessible::Text which) const override
    {
        return which == QAccessible::Value ? m_field.text() : QAccessibleWidget::text(which);
    }

    /// The text is the inner line edit's own.
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        if (type != QAccessible::TextInterface && type != QAccessible::EditableTextInterface)
            return QAccessibleWidget::interface_cast(type);
        auto* edit = QAccessible::queryAccessibleInterface(m_field.findChild<QLineEdit*>());
        return edit == nullptr ? nullptr : edit->interface_cast(type);
    }

    int childCount() const override { return 0; } // the line edit speaks through its field

    QVariant currentValue() const override { return m_field.value(); }
    QVariant minimumValue() const override { return m_field.minimum(); }
    QVariant maximumValue() const override { return m_field.maximum(); }
    QVariant minimumStepSize() const override { return 1; }
    /// An entry is typed or stepped; a number set from outside would go past its check.
    void setCurrentValue(const QVariant&) override {}

private:
    const NumericEntryField& m_field;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object)
{
    auto* field = qobject_cast<NumericEntryField*>(object);
    return field == nullptr ? nullptr : new AccessibleEntry(*field);
}

} // namespace

void makeEntriesAccessible()
{
    [[maybe_unused]] static const bool known =
        (QAccessible::installFactory(makeInterface), true); // once for all fields
}

} // namespace tambrix
