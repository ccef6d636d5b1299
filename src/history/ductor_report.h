#pragma once

#include "history/history_text.h"
#include "recorder/history_reader.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace tambrix {

/// What is known of one ductor: why does it give too much ink, or too little?
struct DuctorReport
{
    int ductor = 0;               ///< 0 to 7
    UtcMs time = 0;               ///< what the values below are of
    std::optional<QString> label; ///< "6 Beer gold"
    std::optional<std::int64_t> runningOn, runningCycle, storedOn, storedCycle; ///< 0.1 cans
    std::optional<std::int64_t> maximumOn;                                      ///< 0.1 cans
    std::optional<double> counted;   ///< cycles a minute over the last hour in which it worked
    std::optional<double> expected;  ///< over the same time
    int alarms = 0;                  ///< feedback faults in the last day
    UtcMs alarmTime = 0;             ///< in all
    std::vector<ChangeLine> changes; ///< of this ductor, the label, and all ductors; in a day

    /// "35.0%", as Color Control shows it; "?" where it is not known.
    QString density(bool running) const;
};

DuctorReport readDuctorReport(HistoryReader& reader, int ductor, UtcMs now,
                              const LabelNames& names);

/// What stands out, in plain sentences; what is in order is said too.
QStringList findings(const DuctorReport& report);

} // namespace tambrix
