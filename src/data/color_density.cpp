#include "data/color_density.h"

#include "data/parameters.h"

namespace tambrix {

QString colorDensity(int on, int cycle, int maximumOn)
{
    if (cycle < 1)
        return QStringLiteral("0.0%");
    if (maximumOn == 0)
        return QStringLiteral("-");
    const double shortestOffTime = reg::kCycleDuration.minimum;
    const double density = (shortestOffTime / maximumOn + 1) * on / cycle * 100;
    return QString::number(density, 'f', 1) + u'%';
}

} // namespace tambrix
