#include "history/ductor_report.h"

#include "data/color_density.h"
#include "history/plot_data.h"
#include "recorder/recorded_registers.h"

#include <algorithm>
#include <cmath>

namespace tambrix {

namespace {

constexpr int kMostChanges = 50'000; // registers: a transfer writes some 1,600 and is one line
constexpr int kMinutesOfAnHour = 60;
constexpr double kUsualDifference = 0.03; // of the expected cycles: the speed wanders meanwhile

int at(const Register& reg, int ductor = 0, int label = 0)
{
    return recordedAddress(addressOf(reg, ductor, label).c_str());
}

/// Counted and expected cycles over the minutes in which both are known.
void compareCycles(HistoryReader& reader, TimeSpan hour, DuctorReport& report)
{
    const PlotData data = readPlotData(reader, hour, report.ductor, 4 * kMinutesOfAnHour);
    double counted = 0;
    double expected = 0;
    double minutes = 0;
    for (const RatePoint& point : data.counted) {
        const auto first =
            std::ranges::lower_bound(data.expected, point.time.begin, {}, &ExpectedPoint::time);
        const auto held = first == data.expected.begin() ? std::nullopt : std::prev(first)->rate;
        double sum = held.value_or(0);
        int points = held ? 1 : 0;
        for (const ExpectedPoint& expectation : data.expected) {
            if (!point.time.contains(expectation.time) || !expectation.rate)
                continue;
            sum += *expectation.rate;
            ++points;
        }
        if (!point.rate || points == 0)
            continue;
        const double length = static_cast<double>(point.time.length()) / kMinute;
        counted += *point.rate * length;
        expected += sum / points * length;
        minutes += length;
    }
    if (minutes == 0)
        return;
    report.counted = counted / minutes;
    report.expected = expected / minutes;
}

bool concerns(const ChangeLine& line, int ductor)
{
    return line.ductor < 0 || line.ductor == ductor;
}

QString durationsFinding(const DuctorReport& report)
{
    if (!report.runningOn || !report.runningCycle || !report.storedOn || !report.storedCycle)
        return QStringLiteral("Running and stored durations were not both read. Show Color "
                              "Control, or tick \"Also Record What Is Not Shown\".");
    if (report.runningOn == report.storedOn && report.runningCycle == report.storedCycle)
        return QStringLiteral("The press runs with the durations that the label has stored.");
    return QStringLiteral("The press runs with other durations than the label has stored: select "
                          "the label anew to load them, or store what runs.");
}

QString cyclesFinding(const DuctorReport& report)
{
    if (!report.counted || !report.expected)
        return QStringLiteral("Cycles cannot be compared: counts, speed or CYCLE were not read in "
                              "the last hour.");
    const double difference = *report.counted - *report.expected;
    if (std::abs(difference) <= std::max(*report.expected * kUsualDifference, 0.5))
        return QStringLiteral("It cycles as often as speed and CYCLE let expect.");
    return difference > 0
               ? QStringLiteral("It cycles more often than speed and CYCLE let expect: more ink.")
               : QStringLiteral("It cycles less often than speed and CYCLE let expect: less ink.");
}

} // namespace

QString DuctorReport::density(bool running) const
{
    const auto on = running ? runningOn : storedOn;
    const auto cycle = running ? runningCycle : storedCycle;
    if (!on || !cycle || !maximumOn)
        return QStringLiteral("?");
    return colorDensity(static_cast<int>(*on), static_cast<int>(*cycle),
                        static_cast<int>(*maximumOn));
}

DuctorReport readDuctorReport(HistoryReader& reader, int ductor, UtcMs now, const LabelNames& names)
{
    DuctorReport report;
    report.ductor = ductor;
    report.time = now;
    const auto value = [&](int address) { return reader.valueAt(address, now, true); };
    report.runningOn = value(at(reg::kWorkingOn, ductor));
    report.runningCycle = value(at(reg::kWorkingCycle, ductor));
    report.maximumOn = value(at(reg::kMaximumOn));
    if (const auto label = value(at(reg::kLabelNumber)); label && *label >= 0 && *label < kLabels) {
        const int stored = static_cast<int>(*label);
        report.label = labelText(*label, names);
        report.storedOn = value(at(reg::kOnDuration, ductor, stored));
        report.storedCycle = value(at(reg::kCycleDuration, ductor, stored));
    }
    compareCycles(reader, {now - kHour, now}, report);
    for (const AlarmSpan& alarm : reader.alarms({now - kDay, now + 1})) {
        if (alarm.ductor != ductor)
            continue;
        ++report.alarms;
        report.alarmTime += alarm.time.length();
    }
    for (const ChangeLine& line :
         changeLines(reader.writes({now - kDay, now + 1}, kMostChanges), names)) {
        if (concerns(line, ductor))
            report.changes.push_back(line);
    }
    return report;
}

QStringList findings(const DuctorReport& report)
{
    QStringList found = {durationsFinding(report), cyclesFinding(report)};
    found += report.alarms == 0
                 ? QStringLiteral("No feedback fault in the last day.")
                 : QStringLiteral("%1 feedback fault(s) in the last day, %2 in all: the ductor "
                                  "may have stood in the ink or away from it.")
                       .arg(report.alarms)
                       .arg(durationText(report.alarmTime));
    const auto changed = std::ranges::find_if(report.changes, [&](const ChangeLine& line) {
        return line.ductor == report.ductor || line.change.isEmpty(); // a transfer may have
    });
    if (changed != report.changes.end())
        found += QStringLiteral("Changed last: %1 at %2 in %3.")
                     .arg((changed->what + u' ' + changed->change).trimmed(),
                          localTime(changed->time, report.time), changed->screen);
    else
        found += QStringLiteral("Nobody changed it with this program in the last day.");
    return found;
}

} // namespace tambrix
