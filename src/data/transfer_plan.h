#pragma once

#include "data/label_range.h"

#include <QString>

#include <optional>

namespace tambrix {

/// Request codes: the menu item's index for an upload, plus 10 for a download.
namespace transfer_code {
inline constexpr int kSetupData = 0;
inline constexpr int kShiftData = 1;
inline constexpr int kLabelData = 2;
inline constexpr int kEverything = 4;
inline constexpr int kDownload = 10;
} // namespace transfer_code

/// Which entries a transfer moves, and how it shows.
struct TransferPlan
{
    QString caption;
    int first = 0; ///< entry of the data set
    int last = 0;
    std::optional<int> progressMaximum; ///< none: as the progress bar has it
    bool download = false;
};

/// What `requestCode` asks for; `labels` counts for the label data only.
TransferPlan transferPlan(int requestCode, const LabelRange& labels);

} // namespace tambrix
