#pragma once

#include "recorder/history_batch.h"

namespace tambrix {

/// Thins the readings of the machine speed: of every bin of `span` it keeps the lowest, the highest
/// and the last.
class SpeedBins
{
public:
    /// `changesOnly`: a bin that says what the bin before it ended with is left out.
    SpeedBins(UtcMs span, bool changesOnly) : m_span(span), m_changesOnly(changesOnly) {}

    void add(UtcMs time, int speed);

    /// The speed is not read any more: not known after `time`.
    void lose(UtcMs time);

    /// Moves what is new to `rows`: bins that are over, and the one under way, which comes again
    /// when it has grown.
    void take(std::vector<SpeedRow>& rows);

    /// Begins anew, as if nothing had been read.
    void forget();

private:
    void close();

    UtcMs m_span;
    bool m_changesOnly;
    std::optional<SpeedRow> m_current;
    bool m_grown = false;        ///< `m_current` says more than when it was taken last
    std::optional<int> m_before; ///< what the bin before it ended with
    std::vector<SpeedRow> m_ready;
};

} // namespace tambrix
