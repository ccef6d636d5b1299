#pragma once

#include "recorder/cycle_counts.h"
#include "recorder/history_batch.h"
#include "recorder/sql_file.h"

#include <vector>

namespace tambrix {

/// A value that held for some time. Times that are in no span were off line.
struct ValueSpan
{
    TimeSpan time;
    std::optional<std::int64_t> value; ///< none: nobody had read it
};

/// A feedback fault of one ductor from begin to end.
struct AlarmSpan
{
    int ductor = 0; ///< 0 to 7
    TimeSpan time;
    bool ended = false;       ///< else it stood when the program went off line, or stands now
    std::optional<int> speed; ///< cans per minute when it began
    std::optional<int> label; ///< when it began
};

/// Reads the history, also while it is being written. What is asked for a long time is answered
/// from coarser rows: a month costs about as much as a day. Not kept open: to be made for a view,
/// and thrown away.
class HistoryReader
{
public:
    explicit HistoryReader(const QString& path);

    /// How reading has gone so far. `Failed` where there is no file yet, and `Missing` where a
    /// newer program wrote it.
    SqlResult result() const { return m_result; }

    /// From the first record to the last; empty where there is none.
    TimeSpan extent();

    /// The times on line that touch `span`.
    std::vector<TimeSpan> periods(TimeSpan span);

    /// Machine speed in about `points` rows. A row without a range ends a line.
    std::vector<SpeedRow> speed(TimeSpan span, int points);

    /// Cycles a minute of ductor 0 to 7 in about `points` pieces of a minute or longer, each over
    /// the time for which it is known. Where the PC's clock was set back, two times on line share
    /// the same times of day: nothing is told of these.
    std::vector<RatePoint> cycles(int ductor, TimeSpan span, int points);

    /// The values of a register by its byte address, in order.
    std::vector<ValueSpan> values(int address, TimeSpan span);

    /// The alarms that touch `span`, in the order of their begin.
    std::vector<AlarmSpan> alarms(TimeSpan span);

    /// What was written, the latest first; no more than `most`.
    std::vector<WriteRow> writes(TimeSpan span, int most);

    /// The value at `time`; or else the last one read before, where `orBefore`.
    std::optional<std::int64_t> valueAt(int address, UtcMs time, bool orBefore = false);

    /// When the shift counts were last reset, no longer than a day before `now`; or else eight
    /// hours before.
    UtcMs shiftBegin(UtcMs now);

private:
    void select(const QString& sql, const QVariantList& values,
                const std::function<void(const QSqlQuery&)>& row);
    std::optional<TimeSpan> periodAt(UtcMs time);
    void describe(std::vector<AlarmSpan>& alarms, TimeSpan span);
    std::optional<int> speedAt(UtcMs time, TimeSpan period);
    std::vector<SpeedRow> speedRows(std::size_t bin, TimeSpan span);

    SqlFile m_file;
    SqlResult m_result;
};

} // namespace tambrix
