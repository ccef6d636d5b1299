#pragma once

#include <QString>

namespace tambrix {

/// Color density of one ductor as the operator reads it: (60 / maximum ON + 1) x (ON / CYCLE) in
/// percent, one decimal ("35.0%"). "0.0%" while there is no cycle (below 1), and "-" while a
/// maximum ON of 0 gives it no meaning. All durations in tenths of a can.
QString colorDensity(int on, int cycle, int maximumOn);

} // namespace tambrix
