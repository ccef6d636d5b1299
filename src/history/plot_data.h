#pragma once

#include "data/label_names.h"
#include "recorder/history_reader.h"

#include <QString>

namespace tambrix {

/// Cycles a minute that speed and CYCLE let expect from `time` on; none: not known.
struct ExpectedPoint
{
    UtcMs time = 0;
    std::optional<double> rate;
};

/// All that the plots show of one span of time.
struct PlotData
{
    TimeSpan span;
    int ductor = 0; ///< 0 to 7: whose cycles
    std::vector<TimeSpan> online;
    std::vector<SpeedRow> speed;
    std::vector<RatePoint> counted;
    std::vector<ExpectedPoint> expected;
    std::vector<AlarmSpan> alarms;
    std::vector<ValueSpan> inputs; ///< their mode, see operatingMode()
    std::vector<ValueSpan> labels;
    LabelNames names; ///< what this PC calls them
};

/// Reads it, in about `points` points.
PlotData readPlotData(HistoryReader& reader, TimeSpan span, int ductor, int points);

/// What is shown at `time`, for the crosshair: "1164 CPM, 23.1 c/min, AUTO, label 6 Beer gold";
/// empty:
/// nothing is known.
QString valuesAt(const PlotData& data, UtcMs time);

/// What is plotted in words, for whoever cannot see it.
QString summaryOf(const PlotData& data);

/// Cycles a minute at a speed (cans per minute) and a CYCLE (tenths of a can); 0 where it is 0.
double expectedCycles(int speed, std::int64_t cycle);

} // namespace tambrix
