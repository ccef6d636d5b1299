#pragma once

#include <QString>

class QGroupBox;
class QLabel;
class QPushButton;

namespace tambrix {

QGroupBox* makeGroup(const QString& name, const QString& caption);

/// A label whose text changes; `name` is its control name.
QLabel* makeTextLabel(const QString& name, const QString& text);

/// A button that does not take Enter for itself: Enter moves on from field to field.
QPushButton* makeButton(const QString& name, const QString& caption);

} // namespace tambrix
