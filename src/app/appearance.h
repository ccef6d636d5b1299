#pragma once

namespace tambrix {

/// Light or dark: as the desktop says, or as the user asked for.
enum class Theme {
    Desktop,
    Light,
    Dark,
};

/// The program's icon, its style and its colours. Leaves a style alone that the user asked for.
/// Call once there is a QApplication.
void applyAppearance(bool styleAskedFor, Theme theme);

} // namespace tambrix
