#include "data/label_range.h"

#include "data/typed_number.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace tambrix {

namespace {

constexpr std::int32_t kLastLabel = kLabels - 1;

/// The whole number that an entry stands for, halves to even.
std::optional<std::int32_t> wholeNumber(const QString& entry)
{
    bool numeric = false;
    const double value = entry.toDouble(&numeric);
    if (!numeric || !std::isfinite(value))
        return std::nullopt;
    return roundedHalfToEven(value);
}

int labelNumber(std::int32_t bound)
{
    return std::clamp(bound, 0, kLastLabel);
}

} // namespace

LabelRange labelsBetween(const QString& from, const QString& to)
{
    const auto lower = wholeNumber(from);
    const auto upper = wholeNumber(to);
    const std::int32_t first = lower.value_or(0);
    const std::int32_t last = std::max(upper.value_or(kLastLabel), first);
    return {labelNumber(first), labelNumber(last), !lower || !upper};
}

} // namespace tambrix
