#pragma once

namespace tambrix {

/// The program's icon, and a calm look: native on Windows and macOS, Fusion elsewhere; light or
/// dark as the system says. Leaves a style alone that the user asked for. Call once there is a
/// QApplication.
void applyAppearance(bool styleAskedFor);

} // namespace tambrix
