#pragma once

#include <QPalette>

namespace tambrix {

/// The program's colours. Every text stands out from its ground by 4.5 : 1 or more; texts of what
/// is disabled, which need not, by 2.5 : 1.
QPalette lightPalette();
QPalette darkPalette();

} // namespace tambrix
