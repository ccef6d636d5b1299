#include "controls/cut_texts.h"

#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QToolBar>

namespace tambrix {

namespace {

/// A scroll area's contents may be larger than what is seen of them.
bool canBeScrolled(const QWidget& control)
{
    for (const QWidget* holder = control.parentWidget(); holder != nullptr && !holder->isWindow();
         holder = holder->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea*>(holder) != nullptr)
            return true;
    }
    return false;
}

/// Made as small as it is on purpose, paints no text, or stands in a control that is measured.
bool meansToBeSmall(const QWidget& control)
{
    const QWidget* holder = control.parentWidget();
    const bool partOfField = qobject_cast<const QLineEdit*>(holder) != nullptr ||
                             qobject_cast<const QComboBox*>(holder) != nullptr ||
                             qobject_cast<const QAbstractSpinBox*>(holder) != nullptr;
    return partOfField || control.maximumWidth() == control.minimumWidth() ||
           control.maximumHeight() == control.minimumHeight();
}

bool tooSmall(const QWidget& control)
{
    if (meansToBeSmall(control))
        return false;
    QSize needed = control.minimumSizeHint();
    if (const auto* label = qobject_cast<const QLabel*>(&control); label && label->wordWrap())
        needed.setHeight(label->heightForWidth(label->width()));
    return control.width() < needed.width() || control.height() < needed.height();
}

bool outside(const QWidget& control)
{
    const QWidget* holder = control.parentWidget();
    return holder != nullptr && !holder->rect().contains(control.geometry());
}

bool textTooLong(const QWidget& control)
{
    const auto* field = qobject_cast<const QLineEdit*>(&control);
    constexpr int kCaret = 4;
    return field != nullptr && !field->isReadOnly() &&
           field->fontMetrics().horizontalAdvance(field->displayText()) + kCaret > field->width();
}

/// A toolbar hides what has no place behind a button of its own.
bool hidesTools(const QWidget& control)
{
    return control.objectName() == QLatin1String("qt_toolbar_ext_button");
}

QString nameOf(const QWidget& control)
{
    const auto* label = qobject_cast<const QLabel*>(&control);
    const QString name =
        label != nullptr && control.objectName().isEmpty() ? label->text() : control.objectName();
    return QStringLiteral("%1 '%2' %3x%4, needs %5x%6")
        .arg(QLatin1String(control.metaObject()->className()), name)
        .arg(control.width())
        .arg(control.height())
        .arg(control.minimumSizeHint().width())
        .arg(control.minimumSizeHint().height());
}

} // namespace

QStringList cutTexts(const QWidget& window)
{
    QStringList cut;
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        if (!control->isVisible() || control->window() != &window || canBeScrolled(*control))
            continue;
        if (tooSmall(*control) || outside(*control) || textTooLong(*control) ||
            hidesTools(*control))
            cut.push_back(nameOf(*control));
    }
    return cut;
}

} // namespace tambrix
