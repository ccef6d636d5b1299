#pragma once

class QLineEdit;
class QSize;
class QWidget;

namespace tambrix {

/// Moves a dialog to the centre of the desktop that it is on.
void CenterForm(QWidget& dialog);

/// Gives a window this size, or as much of it as its desktop has room for.
void resizeInto(QWidget& window, const QSize& wanted);

/// Selects an entry field's whole text.
void SelectAllText(QLineEdit& field);

} // namespace tambrix
