#include "history/plot_data.h"

#include "data/operating_mode.h"
#include "history/history_text.h"
#include "recorder/recorded_registers.h"

#include <algorithm>

namespace tambrix {

namespace {

constexpr int kPointsARate = 4; // a rate needs more room than a speed

std::optional<std::int64_t> valueIn(const std::vector<ValueSpan>& spans, UtcMs time)
{
    const auto after = std::ranges::upper_bound(
        spans, time, {}, [](const ValueSpan& span) { return span.time.begin; });
    if (after == spans.begin() || !std::prev(after)->time.contains(time))
        return std::nullopt;
    return std::prev(after)->value;
}

std::optional<int> speedIn(const std::vector<SpeedRow>& rows, UtcMs time)
{
    const auto after = std::ranges::upper_bound(rows, time, {}, &SpeedRow::begin);
    if (after == rows.begin() || !std::prev(after)->range)
        return std::nullopt;
    return std::prev(after)->range->last;
}

/// When one of the three that decide about a ductor's cycles may have changed.
std::vector<UtcMs> changesOf(const PlotData& data, const std::vector<ValueSpan>& cycles)
{
    std::vector<UtcMs> times;
    for (const SpeedRow& row : data.speed)
        times.push_back(row.begin);
    for (const auto* spans : {&cycles, &data.inputs}) {
        for (const ValueSpan& span : *spans)
            times.push_back(std::max(span.time.begin, data.span.begin));
    }
    std::ranges::sort(times);
    times.erase(std::unique(times.begin(), times.end()), times.end());
    return times;
}

/// Only in automatic does a ductor cycle by itself.
std::vector<ExpectedPoint> expectedOf(const PlotData& data, const std::vector<ValueSpan>& cycles)
{
    std::vector<ExpectedPoint> points;
    for (const UtcMs time : changesOf(data, cycles)) {
        const auto speed = speedIn(data.speed, time);
        const auto cycle = valueIn(cycles, time);
        const auto inputs = valueIn(data.inputs, time);
        ExpectedPoint point{time, std::nullopt};
        if (speed && cycle) {
            const bool works =
                !inputs || operatingMode(static_cast<int>(*inputs)) == OperatingMode::Auto;
            point.rate = works ? expectedCycles(*speed, *cycle) : 0;
        }
        if (point.rate || (!points.empty() && points.back().rate))
            points.push_back(point);
    }
    return points;
}

QString speedSummary(const std::vector<SpeedRow>& rows)
{
    int low = 0;
    int high = -1;
    int last = 0;
    for (const SpeedRow& row : rows) {
        if (!row.range)
            continue;
        low = high < 0 ? row.range->low : std::min(low, row.range->low);
        high = std::max(high, row.range->high);
        last = row.range->last;
    }
    if (high < 0)
        return QStringLiteral("speed not read");
    return QStringLiteral("speed %1 to %2, last %3 cans per minute").arg(low).arg(high).arg(last);
}

QString alarmSummary(const std::vector<AlarmSpan>& alarms)
{
    if (alarms.empty())
        return QStringLiteral("no alarms");
    QStringList parts;
    for (int ductor = 0; ductor < kDuctors; ++ductor) {
        int count = 0;
        UtcMs length = 0;
        for (const AlarmSpan& alarm : alarms) {
            count += alarm.ductor == ductor ? 1 : 0;
            length += alarm.ductor == ductor ? alarm.time.length() : 0;
        }
        if (count > 0)
            parts += QStringLiteral("ductor %1: %2, in all %3")
                         .arg(ductor + 1)
                         .arg(count)
                         .arg(durationText(length));
    }
    return QStringLiteral("alarms of ") + parts.join(QStringLiteral("; of "));
}

} // namespace

double expectedCycles(int speed, std::int64_t cycle)
{
    constexpr double kTenthsACan = 10;
    return cycle <= 0 ? 0 : speed * kTenthsACan / static_cast<double>(cycle);
}

PlotData readPlotData(HistoryReader& reader, TimeSpan span, int ductor, int points)
{
    PlotData data;
    data.span = span;
    data.ductor = ductor;
    data.online = reader.periods(span);
    data.speed = reader.speed(span, points);
    data.counted = reader.cycles(ductor, span, points / kPointsARate);
    data.alarms = reader.alarms(span);
    data.inputs = reader.values(recordedAddress(reg::kInputs.address), span);
    data.labels = reader.values(recordedAddress(reg::kLabelNumber.address), span);
    data.expected = expectedOf(
        data, reader.values(recordedAddress(addressOf(reg::kWorkingCycle, ductor).c_str()), span));
    return data;
}

QString valuesAt(const PlotData& data, UtcMs time)
{
    QStringList parts;
    if (const auto speed = speedIn(data.speed, time))
        parts += QStringLiteral("%1 CPM").arg(*speed);
    for (const RatePoint& point : data.counted) {
        if (point.time.contains(time) && point.rate)
            parts += QStringLiteral("%1 c/min").arg(*point.rate, 0, 'f', 1);
    }
    if (const auto inputs = valueIn(data.inputs, time))
        parts += operatingModeText(operatingMode(static_cast<int>(*inputs)));
    if (const auto label = valueIn(data.labels, time))
        parts += QStringLiteral("label %1").arg(labelText(*label, data.names));
    return parts.join(QStringLiteral(", "));
}

QString summaryOf(const PlotData& data)
{
    UtcMs online = 0;
    for (const TimeSpan& period : data.online)
        online += std::min(period.end, data.span.end) - std::max(period.begin, data.span.begin);
    if (data.online.empty())
        return QStringLiteral("Nothing recorded in this time: the program was off line.");
    return QStringLiteral("%1: on line %2; %3; %4.")
        .arg(spanText(data.span), durationText(online), speedSummary(data.speed),
             alarmSummary(data.alarms));
}

} // namespace tambrix
