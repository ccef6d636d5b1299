#pragma once

#include "data/setup_data.h"
#include "data/transfer_plan.h"
#include "link/rs_comm.h"

namespace tambrix {

/// Moves entries of a data set from the controller (upload) or to it (download), in
/// ascending order, one at a step. What has been moved stays moved, whatever comes after it.
class BulkTransfer
{
public:
    BulkTransfer(RSComm& link, SetupDataRecord& data, TransferPlan plan);

    /// Tries to move the next entry. A read that fails on a disturbed line is tried again by the
    /// next steps; it never puts its "0" into the data set.
    void step();

    /// Nothing is left to move, or the transfer cannot go on.
    bool ended() const { return failed() || m_entry > m_plan.last; }

    /// The link is broken, or an entry could not be moved in spite of all tries.
    bool failed() const { return m_givenUp || m_link.CommError; }

    /// Entries moved so far.
    int progress() const { return m_entry - m_plan.first; }

    const TransferPlan& plan() const { return m_plan; }

private:
    void upload(const std::string& address);
    void download(const std::string& address);
    void readFailed();

    RSComm& m_link;
    SetupDataRecord& m_data;
    TransferPlan m_plan;
    int m_entry;
    int m_furthest; ///< the last entry that was tried for the first time
    int m_failures = 0;
    bool m_givenUp = false;
};

} // namespace tambrix
