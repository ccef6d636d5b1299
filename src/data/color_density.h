#pragma once

#include <QString>

namespace tambrix {

/// Color density of one ductor in percent: (60 / maximum ON + 1) x (ON / CYCLE). 0 while there is
/// no cycle (below 1), or a maximum ON of 0 gives it no meaning. Durations in tenths of a can.
double colorDensityPercent(int on, int cycle, int maximumOn);

/// The same as the operator reads it, with one decimal ("35.0%"); "-" where it has no meaning.
QString colorDensity(int on, int cycle, int maximumOn);

} // namespace tambrix
