#pragma once

#include "data/setup_data.h"

#include <QString>

namespace tambrix {

/// Which labels a transfer or a report covers.
struct LabelRange
{
    int first = 0; ///< 0 to 99
    int last = 0;  ///< 0 to 99, never below `first`
    /// The user cancelled, or typed a bound that is no number.
    bool cancelled = true;

    bool operator==(const LabelRange&) const = default;
};

inline constexpr LabelRange kAllLabels{0, kLabels - 1, false};

/// The range between two bounds as typed: rounded to whole labels, the upper one raised to the
/// lower one, then both brought into 0 to 99.
/// kept: in that order, which users know: "150" to "120" ends as 99 to 99.
LabelRange labelsBetween(const QString& from, const QString& to);

} // namespace tambrix
