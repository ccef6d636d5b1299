#pragma once

#include <QPalette>

namespace tambrix {

/// The program's icon, and a calm look: native on Windows and macOS, Fusion elsewhere and where
/// Windows 10 is dark; light or dark as the system says. Leaves a style alone that the user asked
/// for. Call once there is a QApplication.
void applyAppearance(bool styleAskedFor);

/// The colors where Qt does not choose them itself, on a light and on a dark desktop. The light
/// ones are those of the style in use.
QPalette lightPalette();
QPalette darkPalette();

} // namespace tambrix
