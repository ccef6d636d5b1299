#pragma once

#include "recorder/history_batch.h"

#include <unordered_map>

namespace tambrix {

/// The values of registers that are recorded at change.
class ChangeLog
{
public:
    void add(UtcMs time, int address, std::int64_t value);

    /// What has not been read since `before` is not known any more.
    void loseUnread(UtcMs before);

    void take(std::vector<ValueRow>& rows);
    void forget();

    /// The value as last read, if it is still known.
    std::optional<std::int64_t> value(int address) const;

private:
    struct Known
    {
        std::int64_t value = 0;
        UtcMs read = 0;
    };
    std::unordered_map<int, Known> m_known;
    std::vector<ValueRow> m_ready;
};

/// The cycling counts, which change with every stroke: a row each ten seconds, or each minute while
/// all stand, and the count that each reset ends.
class CountsLog
{
public:
    static constexpr UtcMs kInterval = 10 * kSecond;
    static constexpr UtcMs kStandingInterval = kMinute;

    void add(UtcMs time, int ductor, std::int64_t count);
    void loseUnread(UtcMs before);

    /// Nothing more is read: what was read last is kept.
    void end();

    void take(HistoryBatch& batch);
    void forget();

private:
    void passEnds();
    void keep(const CountsRow& row);

    CountsRow m_now;           ///< as last read, and when
    CountsRow m_before;        ///< as read in the pass before
    CountsRow m_stored;        ///< the row that was made last
    bool m_resetSince = false; ///< a reset came after it
    std::vector<CountsRow> m_ready;
    std::vector<CountReset> m_resets;
};

} // namespace tambrix
