#include "data/color_density.h"

#include "data/parameters.h"

namespace tambrix {

double colorDensityPercent(int on, int cycle, int maximumOn)
{
    if (cycle < 1 || maximumOn == 0)
        return 0;
    const double shortestOffTime = reg::kCycleDuration.minimum;
    return (shortestOffTime / maximumOn + 1) * on / cycle * 100;
}

QString colorDensity(int on, int cycle, int maximumOn)
{
    if (cycle >= 1 && maximumOn == 0)
        return QStringLiteral("-");
    return QString::number(colorDensityPercent(on, cycle, maximumOn), 'f', 1) + u'%';
}

} // namespace tambrix
