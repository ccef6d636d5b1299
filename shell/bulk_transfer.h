#pragma once

#include "shell/label_range.h"
#include "shell/program_state.h"

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

/// Moves entries of the working data set from the controller (upload) or to it (download), in
/// ascending order, one at a step. What has been moved stays moved, whatever comes after it.
class BulkTransfer
{
public:
    BulkTransfer(ProgramState& state, TransferPlan plan);

    /// Tries to move the next entry. A read that fails on a disturbed line is tried again by the
    /// next steps; it never puts its "0" into the data set.
    void step();

    /// Nothing is left to move, or the transfer cannot go on.
    bool ended() const { return failed() || m_entry > m_plan.last; }

    /// The link is broken, or an entry could not be moved in spite of all tries.
    bool failed() const { return m_givenUp || m_state.gLink.CommError; }

    /// Entries moved so far.
    int progress() const { return m_entry - m_plan.first; }

    const TransferPlan& plan() const { return m_plan; }

private:
    void upload(const std::string& address);
    void download(const std::string& address);
    void readFailed();

    ProgramState& m_state;
    TransferPlan m_plan;
    int m_entry;
    int m_furthest; ///< the last entry that was tried for the first time
    int m_failures = 0;
    bool m_givenUp = false;
};

} // namespace tambrix
