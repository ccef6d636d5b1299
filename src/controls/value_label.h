#pragma once

#include "controls/named_controls.h"

#include <QLabel>

#include <initializer_list>
#include <span>

class QWidget;

namespace tambrix {

/// Size of the screens' text: read from a step away from the PC.
inline constexpr int kScreenPoints = 13;

/// A value that the controller shows. It is read out as what it is and what it shows ("Machine
/// CPM: 1234"), anew with every change.
class ValueLabel : public QLabel
{
    Q_OBJECT

public:
    /// `name` is its control name; `what` is what the value is, as a caption or in plain words.
    ValueLabel(const QString& name, const QString& what, const QString& value);

    void setValue(const QString& value);

private:
    QString m_what;
};

/// A value label of the screens: a sunken panel, the value at its right.
ValueLabel* makeValueLabel(const QString& name, const QString& value, const QString& what);

/// Fills the screen with `frames` one below the other, at its top left.
void stackFrames(QWidget& screen, std::initializer_list<QGroupBox*> frames);

/// The Tab key visits `controls` in this order.
void setTabSequence(std::span<QWidget* const> controls);

} // namespace tambrix
