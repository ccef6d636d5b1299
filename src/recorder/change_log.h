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

/// The cycling counts, which change with every stroke: no more than a row each ten seconds, and
/// the count that each reset ends.
class CountsLog
{
public:
    static constexpr UtcMs kInterval = 10 * kSecond;

    void add(UtcMs time, int ductor, std::int64_t count);
    void loseUnread(UtcMs before);
    void take(HistoryBatch& batch);
    void forget();

private:
    CountsRow m_now;           ///< as last read, and when
    CountsRow m_stored;        ///< the row that was made last
    bool m_resetSince = false; ///< a reset came after it
    std::vector<CountsRow> m_ready;
    std::vector<CountReset> m_resets;
};

} // namespace tambrix
