#pragma once

class QLineEdit;
class QWidget;

namespace tambrix {

/// Moves a dialog to the centre of the desktop that it is on.
void CenterForm(QWidget& dialog);

/// Selects an entry field's whole text.
void SelectAllText(QLineEdit& field);

} // namespace tambrix
