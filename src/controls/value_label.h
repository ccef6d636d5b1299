#pragma once

#include "controls/named_controls.h"

#include <QString>

#include <initializer_list>
#include <span>

class QWidget;

namespace tambrix {

/// Size of the screens' text: read from a step away from the PC.
inline constexpr int kScreenPoints = 13;

/// A label for a value that the controller shows: a sunken panel, the value at its right.
QLabel* makeValueLabel(const QString& name, const QString& text, const QString& accessibleName);

/// Fills the screen with `frames` one below the other, at its top left.
void stackFrames(QWidget& screen, std::initializer_list<QGroupBox*> frames);

/// The Tab key visits `controls` in this order.
void setTabSequence(std::span<QWidget* const> controls);

} // namespace tambrix
