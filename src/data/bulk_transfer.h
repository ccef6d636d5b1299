#pragma once

#include "data/setup_data.h"
#include "data/transfer_plan.h"
#include "link/rs_comm.h"

#include <optional>
#include <string>
#include <vector>

namespace tambrix {

/// Why an entry was not moved.
enum class EntryFault {
    Refused,    ///< the register cannot take the value; it was not sent
    Unverified, ///< written twice without the right answers, and not read back as wanted
    Unread,     ///< the register gave no answer in spite of all tries
    Skipped,    ///< the entry names no register
};

/// An entry that was not moved.
struct EntryFinding
{
    int entry; ///< of the data set
    EntryFault fault;
    std::string address;
    std::int32_t wanted;               ///< the data set's value; an upload leaves it as it was
    std::optional<std::int64_t> found; ///< what the register holds, where that could be read
};

/// What the user is told of them: a sentence a line, a dozen at most, then how many more.
QString sentences(const std::vector<EntryFinding>& findings);

/// Moves entries of a data set from the controller (upload) or to it (download), in ascending
/// order, one at a step, and goes on to the end whatever becomes of a single one: only a broken
/// link ends it before. What has been moved stays moved, whatever comes after it.
class BulkTransfer
{
public:
    BulkTransfer(RSComm& link, SetupDataRecord& data, TransferPlan plan);

    /// Tries to move the next entry. A read that fails on a disturbed line is tried again by the
    /// next steps; it never puts its "0" into the data set.
    void step();

    /// Nothing is left to move, or the link is broken.
    bool ended() const { return linkBroken() || m_entry > m_plan.last; }

    bool linkBroken() const { return m_link.CommError; }

    /// Entries that were passed without being moved, in their order.
    const std::vector<EntryFinding>& findings() const { return m_findings; }

    /// Entries that have had their turn.
    int progress() const { return m_entry - m_plan.first; }

    const TransferPlan& plan() const { return m_plan; }

private:
    void upload(const std::string& address);
    void readFailed();
    void giveUpReading();
    void download(const std::string& address);
    void sendRefused(const std::string& address, std::int32_t value);
    void pass(EntryFault fault, std::optional<std::int64_t> found = {});
    std::optional<std::int64_t> holds(const std::string& address);
    std::int32_t& value(int entry) { return m_data.Value[static_cast<std::size_t>(entry)]; }

    RSComm& m_link;
    SetupDataRecord& m_data;
    TransferPlan m_plan;
    int m_entry;
    int m_furthest; ///< the last entry that was tried for the first time
    int m_lowest;   ///< a failed read steps back as far as this entry
    int m_failures = 0;
    std::int32_t m_replaced = 0; ///< by the last entry that was read
    bool m_refusalShown = false;
    std::vector<EntryFinding> m_findings;
};

} // namespace tambrix
