#pragma once

#include "data/bulk_transfer.h"

#include <optional>
#include <vector>

namespace tambrix {

/// Reads registers into a data set, one at a step, and reads those again that are not what they
/// were expected to be: one byte changed on its way looks like any other, but hardly twice. Such
/// a value counts once two readings agree.
class ConfirmedRead
{
public:
    /// Reads `addresses` in this order. `expected` has a value for each or none, where the first
    /// reading counts; it may be empty. More than `mostDoubtful` unexpected values are no
    /// disturbance of the line; they are not read again.
    ConfirmedRead(RSComm& link, std::vector<std::string> addresses,
                  std::vector<std::optional<std::int32_t>> expected, std::size_t mostDoubtful);

    ConfirmedRead(const ConfirmedRead&) = delete;
    ConfirmedRead& operator=(const ConfirmedRead&) = delete;

    /// Reads the next register, or tries again to.
    void step();

    /// Nothing is left to read, or the link is broken.
    bool ended() const { return m_done || m_link.CommError; }

    /// How many registers, from the first on, have had their turn.
    std::size_t count() const;
    /// Whether the value of this index has been read, and is beyond doubt.
    bool known(std::size_t index) const;
    /// The first register that gave no answer in spite of all tries; empty when there is none.
    const std::string& unreadable() const { return m_unreadable; }

    /// The registers and what they hold, as far as they have been read.
    const SetupDataRecord& data() const { return m_data; }

private:
    void begin(SetupDataRecord& data);
    void noteUnread();
    void firstRoundEnded();
    void againEnded();
    bool unexpected(std::size_t entry) const;
    void doubt(const std::vector<std::size_t>& entries);

    RSComm& m_link;
    SetupDataRecord m_data;
    std::vector<std::optional<std::int32_t>> m_expected;
    std::size_t m_mostDoubtful;
    std::vector<std::size_t> m_doubtful; ///< entries that are being read again
    SetupDataRecord m_again;             ///< what the doubtful ones read this time
    std::optional<BulkTransfer> m_reading;
    std::vector<std::size_t> m_unread; ///< entries that gave no answer
    std::string m_unreadable;
    int m_rounds = 0;
    bool m_done = false;
};

} // namespace tambrix
