#pragma once

#include <QAccessible>
#include <QWidget>

namespace tambrix {

/// Tells screen readers that `widget` says something new which should be heard at once.
void announce(QWidget& widget);

/// A control that shows one value as a picture, and says it in words to whoever cannot see it.
/// It takes no focus and no clicks.
class Picture : public QWidget
{
    Q_OBJECT

public:
    /// `name` is what the value is of: "Color Density ductor 3".
    explicit Picture(const QString& name, QAccessible::Role role = QAccessible::Indicator);

    /// The value shown, in words.
    virtual QString spokenValue() const = 0;

    QAccessible::Role role() const { return m_role; }

protected:
    /// Paints the new value and tells it to accessibility tools.
    void valueChanged();

    /// The picture's half line height: see gridOf().
    int grid() const;

private:
    QAccessible::Role m_role;
};

} // namespace tambrix
