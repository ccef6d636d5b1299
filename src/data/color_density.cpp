#include "data/color_density.h"

namespace tambrix {

namespace {

constexpr double kShortestOffTime = 60; // tenths of a can

} // namespace

QString colorDensity(int on, int cycle, int maximumOn)
{
    if (cycle < 1)
        return QStringLiteral("0.0%");
    if (maximumOn == 0)
        return QStringLiteral("-");
    const double density = (kShortestOffTime / maximumOn + 1) * on / cycle * 100;
    return QString::number(density, 'f', 1) + u'%';
}

} // namespace tambrix
