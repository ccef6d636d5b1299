#include "data/label_range.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace tambrix {

namespace {

constexpr double kLastLabel = kLabels - 1;

/// The whole number that an entry stands for, halves to even.
std::optional<double> wholeNumber(const QString& entry)
{
    bool numeric = false;
    const double value = entry.toDouble(&numeric);
    if (!numeric || !std::isfinite(value))
        return std::nullopt;
    return std::nearbyint(value);
}

int labelNumber(double bound)
{
    return static_cast<int>(std::clamp(bound, 0.0, kLastLabel));
}

} // namespace

LabelRange labelsBetween(const QString& from, const QString& to)
{
    const auto lower = wholeNumber(from);
    const auto upper = wholeNumber(to);
    const double first = lower.value_or(0);
    const double last = std::max(upper.value_or(kLastLabel), first);
    return {labelNumber(first), labelNumber(last), !lower || !upper};
}

} // namespace tambrix
