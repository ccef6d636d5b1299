#include "controls/value_label.h"

#include "controls/fonts.h"

#include <QGroupBox>
#include <QVBoxLayout>

namespace tambrix {

namespace {

/// Values change several times a second; their panels keep one width.
const QString kWidestValue = QStringLiteral("00000");

} // namespace

ValueLabel::ValueLabel(const QString& name, const QString& what, const QString& value)
    : m_what(spokenText(what))
{
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setValue(value);
}

void ValueLabel::setValue(const QString& value)
{
    if (value == text() && !accessibleName().isEmpty())
        return;
    setText(value);
    setAccessibleName(m_what + QStringLiteral(": ") + value);
}

ValueLabel* makeValueLabel(const QString& name, const QString& value, const QString& what)
{
    auto* label = new ValueLabel(name, what, value);
    setPoints(*label, kScreenPoints);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(kWidestValue) + 20);
    label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    label->setMargin(2); // inside the frame
    label->setIndent(6);
    return label;
}

void stackFrames(QWidget& screen, std::initializer_list<QGroupBox*> frames)
{
    auto* column = new QVBoxLayout;
    for (QGroupBox* frame : frames)
        column->addWidget(frame);
    column->addStretch();
    auto* layout = new QHBoxLayout(&screen);
    layout->addLayout(column);
    layout->addStretch();
}

void setTabSequence(std::span<QWidget* const> controls)
{
    for (std::size_t i = 1; i < controls.size(); ++i)
        QWidget::setTabOrder(controls[i - 1], controls[i]);
}

} // namespace tambrix
