#pragma once

#include "data/parameters.h"
#include "recorder/utc_time.h"

#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace tambrix {

/// Spans of time over which speed is kept, the finest first: a second, a minute, a quarter of an
/// hour. What shows a month reads the last, what shows an hour the first.
inline constexpr std::array<UtcMs, 3> kSpeedBins = {kSecond, kMinute, 15 * kMinute};

/// Machine speed over one bin, cans per minute.
struct SpeedRange
{
    int low = 0;
    int high = 0;
    int last = 0;

    bool operator==(const SpeedRange&) const = default;
};

struct SpeedRow
{
    UtcMs begin = 0;
    std::optional<SpeedRange> range; ///< none: the speed is not known from here on
};

/// The cycling counts of the shift; none: not known.
struct CountsRow
{
    UtcMs time = 0;
    std::array<std::optional<std::int64_t>, kDuctors> counts;

    bool operator==(const CountsRow&) const = default;
};

/// A cycling count began anew.
struct CountReset
{
    UtcMs time = 0;
    int ductor = 0;          ///< 0 to 7
    std::int64_t before = 0; ///< what it had come to
};

/// Another value of a register that is recorded at change.
struct ValueRow
{
    UtcMs time = 0;
    int address = 0;                   ///< byte address of the register
    std::optional<std::int64_t> value; ///< none: not known from here on
};

/// Something that this program wrote.
struct WriteRow
{
    UtcMs time = 0;
    QString address;          ///< "B720"
    QString before;           ///< as last read; "?": never
    QString after;            ///< as it was to be written
    QString screen;           ///< who wrote: "Color Control"
    std::optional<int> label; ///< current label, where it was known
    bool confirmed = false;   ///< the board sent every byte back as it should
};

/// What is stored at one go: of one time on line, from `begin` on, up to `end`.
struct HistoryBatch
{
    UtcMs begin = 0;
    UtcMs end = 0;
    std::array<std::vector<SpeedRow>, kSpeedBins.size()> speed;
    std::vector<CountsRow> counts;
    std::vector<CountReset> resets;
    std::vector<ValueRow> values;
    std::vector<WriteRow> writes;
};

} // namespace tambrix
