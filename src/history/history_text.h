#pragma once

#include "data/label_names.h"
#include "recorder/history_reader.h"

#include <QString>

#include <vector>

namespace tambrix {

/// The PC's local time of day, with the date where it is not `today`: "14:32:07",
/// "2026-11-20 14:32:07".
QString localTime(UtcMs time, UtcMs today);

/// The PC's local day that `time` is in; 23 or 25 hours where the clocks change.
TimeSpan localDay(UtcMs time);

/// "2026-11-21 06:00:00 to 14:00:00", with both dates where they differ; of whole days the dates
/// alone.
QString spanText(TimeSpan span);

/// "12 s", "24 min", "3 h 05 min", "2 d 4 h".
QString durationText(UtcMs span);

/// "6 Beer gold"; "6" for a label without a name.
QString labelText(std::int64_t label, const LabelNames& names);

/// What a written register is, in words: "label 6, ductor 3 ON", "Response Time Compensation", or
/// its address where nothing more is known.
QString writtenName(const WriteRow& row);

/// One line of the table of changes.
struct ChangeLine
{
    UtcMs time = 0;
    QString screen;
    QString what;
    QString change;  ///< "26 -> 30"
    int ductor = -1; ///< 0 to 7; -1: of no ductor
    QString label;   ///< name of the label that it is about, where it has one
};

/// The changes as a person made them, in the order of `rows` (the latest first): a duration is
/// written to the running and the stored register and is one change; a transfer is one line.
std::vector<ChangeLine> changeLines(const std::vector<WriteRow>& rows,
                                    const LabelNames& names = {});

} // namespace tambrix
