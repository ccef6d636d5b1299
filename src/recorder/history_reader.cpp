#include "recorder/history_reader.h"

#include "recorder/history_schema.h"
#include "recorder/recorded_registers.h"

#include <algorithm>

namespace tambrix {

namespace {

constexpr int kSqlMost = 100'000; // rows of one question

std::optional<int> wholeNumber(const QSqlQuery& row, int column)
{
    return row.isNull(column) ? std::nullopt : std::optional(row.value(column).toInt());
}

TimeSpan common(TimeSpan one, TimeSpan other)
{
    return {std::max(one.begin, other.begin), std::min(one.end, other.end)};
}

/// What each of these has for itself, in the order of their begins.
std::vector<TimeSpan> unmixed(const std::vector<TimeSpan>& periods)
{
    std::vector<TimeSpan> alone;
    UtcMs end = 0;
    for (const TimeSpan& period : periods) {
        if (!alone.empty())
            alone.back().end = std::min(alone.back().end, period.begin);
        alone.push_back({std::max(period.begin, end), period.end});
        end = std::max(end, period.end);
    }
    std::erase_if(alone, [](const TimeSpan& span) { return span.length() <= 0; });
    return alone;
}

/// The coarsest rows that still are one for every three points.
std::size_t binFor(TimeSpan span, int points)
{
    std::size_t bin = kSpeedBins.size() - 1;
    while (bin > 0 && span.length() / kSpeedBins[bin] < points / 3)
        --bin;
    return bin;
}

/// One row for each piece of `width`; a row without a range stays.
std::vector<SpeedRow> folded(const std::vector<SpeedRow>& rows, UtcMs width)
{
    std::vector<SpeedRow> result;
    for (const SpeedRow& row : rows) {
        const bool joins = !result.empty() && row.range && result.back().range &&
                           row.begin / width == result.back().begin / width;
        if (!joins) {
            result.push_back(row);
            continue;
        }
        SpeedRange& range = *result.back().range;
        range = {std::min(range.low, row.range->low), std::max(range.high, row.range->high),
                 row.range->last};
    }
    return result;
}

} // namespace

HistoryReader::HistoryReader(const QString& path) : m_result(m_file.open(path, true))
{
    if (m_result == SqlResult::Done && historyVersion(m_file) > kHistoryVersion)
        m_result = SqlResult::Missing;
}

void HistoryReader::select(const QString& sql, const QVariantList& values,
                           const std::function<void(const QSqlQuery&)>& row)
{
    if (m_result == SqlResult::Done)
        m_result = m_file.select(sql, values, row);
}

TimeSpan HistoryReader::extent()
{
    TimeSpan all;
    select(QStringLiteral("SELECT min(t0), max(t1)+1 FROM period"), {}, [&](const QSqlQuery& row) {
        all = {row.value(0).toLongLong(), row.value(1).toLongLong()};
    });
    return all;
}

std::vector<TimeSpan> HistoryReader::periods(TimeSpan span)
{
    std::vector<TimeSpan> found;
    select(QStringLiteral("SELECT t0, t1+1 FROM period WHERE t0<? AND t1>=? ORDER BY t0"),
           {qint64{span.end}, qint64{span.begin}}, [&](const QSqlQuery& row) {
               found.push_back({row.value(0).toLongLong(), row.value(1).toLongLong()});
           });
    return found;
}

std::optional<TimeSpan> HistoryReader::periodAt(UtcMs time)
{
    const auto found = periods({time, time + 1});
    return found.empty() ? std::nullopt : std::optional(found.back());
}

/// The rows in `span`, and the one that holds when it begins.
std::vector<SpeedRow> HistoryReader::speedRows(std::size_t bin, TimeSpan span)
{
    std::vector<SpeedRow> rows;
    select(QStringLiteral("SELECT t, low, high, last FROM %1 WHERE t>=ifnull((SELECT max(t) FROM "
                          "%1 WHERE t<=?),0) AND t<? ORDER BY t LIMIT %2")
               .arg(speedTable(bin))
               .arg(kSqlMost),
           {qint64{span.begin}, qint64{span.end}}, [&](const QSqlQuery& row) {
               SpeedRow read{row.value(0).toLongLong(), std::nullopt};
               if (!row.isNull(3))
                   read.range =
                       SpeedRange{row.value(1).toInt(), row.value(2).toInt(), row.value(3).toInt()};
               rows.push_back(read);
           });
    return rows;
}

/// A fine row holds until the next one, a coarse one for its own time; both not beyond the time on
/// line.
std::vector<SpeedRow> HistoryReader::speed(TimeSpan span, int points)
{
    const std::size_t bin = binFor(span, points);
    const UtcMs width = kSpeedBins[bin];
    const std::vector<SpeedRow> rows = speedRows(bin, span);
    const std::vector<TimeSpan> online = periods(span);
    std::vector<SpeedRow> line;
    auto period = online.begin();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const SpeedRow& row = rows[i];
        while (period != online.end() && period->end <= row.begin)
            ++period;
        const UtcMs next = i + 1 < rows.size() ? rows[i + 1].begin : span.end;
        const bool before = period == online.end() || period->begin >= row.begin + width;
        const UtcMs online_ = before ? row.begin + width : period->end;
        const UtcMs holds =
            std::min(next, bin == 0 ? std::max(online_, row.begin) : row.begin + width);
        line.push_back(row);
        if (row.range && holds - row.begin > width)
            line.push_back(
                {holds - 1, SpeedRange{row.range->last, row.range->last, row.range->last}});
        if (row.range && holds < next)
            line.push_back({holds, std::nullopt});
    }
    return folded(line, std::max<UtcMs>(span.length() / std::max(points, 1), 1));
}

std::vector<RatePoint> HistoryReader::cycles(int ductor, TimeSpan span, int points)
{
    const UtcMs width = std::max<UtcMs>(kMinute, span.length() / std::max(points, 1));
    const auto ask = [this](const auto&... question) { select(question...); };
    std::vector<RatePoint> found;
    for (const TimeSpan& period : unmixed(periods(span))) {
        CycleCounts counts(ask, ductor, period);
        const TimeSpan seen = common(period, span);
        for (UtcMs at = seen.begin - seen.begin % width; at < seen.end; at += width)
            found.push_back(counts.rate(common({at, at + width}, seen)));
    }
    return found;
}

std::vector<ValueSpan> HistoryReader::values(int address, TimeSpan span)
{
    std::vector<ValueRow> rows;
    select(QStringLiteral("SELECT t, value FROM value WHERE address=? AND t>=ifnull((SELECT max(t) "
                          "FROM value WHERE address=? AND t<=?),0) AND t<? ORDER BY t LIMIT %1")
               .arg(kSqlMost),
           {address, address, qint64{span.begin}, qint64{span.end}}, [&](const QSqlQuery& row) {
               rows.push_back({row.value(0).toLongLong(), address, std::nullopt});
               if (!row.isNull(1))
                   rows.back().value = row.value(1).toLongLong();
           });
    std::vector<ValueSpan> found;
    auto row = rows.begin();
    for (const TimeSpan& period : periods(span)) {
        while (row != rows.end() && row->time < period.begin)
            ++row;
        if (row == rows.end() || row->time >= period.end)
            continue;
        for (; row != rows.end() && row->time < period.end; ++row) {
            const auto next = row + 1;
            const UtcMs end = next == rows.end() ? period.end : std::min(next->time, period.end);
            found.push_back({{row->time, end}, row->value});
        }
    }
    return found;
}

/// One after the other for each ductor. While nobody read the alarms, one that stands before and
/// after is the same one.
std::vector<AlarmSpan> HistoryReader::alarms(TimeSpan span)
{
    TimeSpan wider = span;
    if (const auto period = periodAt(span.begin))
        wider.begin = std::min(period->begin, span.begin);
    std::vector<AlarmSpan> found;
    std::array<std::optional<std::size_t>, kDuctors> open;
    UtcMs before = 0;
    for (const ValueSpan& word : values(recordedAddress(reg::kAlarms.address), wider)) {
        if (word.time.begin != before) // off line in between
            open = {};
        before = word.time.end;
        for (std::size_t d = 0; d < open.size() && word.value; ++d) {
            const bool stands = (*word.value & (1 << d)) != 0;
            if (stands && !open[d]) {
                open[d] = found.size();
                found.push_back({static_cast<int>(d), word.time, false, {}, {}});
            } else if (stands) {
                found[*open[d]].time.end = word.time.end;
            } else if (open[d]) {
                found[*open[d]].time.end = word.time.begin;
                found[*open[d]].ended = true;
                open[d].reset();
            }
        }
    }
    std::erase_if(found, [&](const AlarmSpan& alarm) { return alarm.time.end <= span.begin; });
    describe(found, wider);
    return found;
}

/// Tells label and speed when each of them began. A month has hundreds of alarms: labels and
/// periods are asked for once for all of them.
void HistoryReader::describe(std::vector<AlarmSpan>& alarms, TimeSpan span)
{
    const int address = recordedAddress(reg::kLabelNumber.address);
    const std::vector<TimeSpan> online = periods(span);
    const std::vector<ValueSpan> labels = values(address, span);
    auto next = labels.begin();
    std::optional<std::int64_t> label = valueAt(address, span.begin, true);
    for (AlarmSpan& alarm : alarms) {
        const UtcMs begin = alarm.time.begin;
        for (; next != labels.end() && next->time.begin <= begin; ++next)
            label = next->value ? next->value : label;
        if (label)
            alarm.label = static_cast<int>(*label);
        const auto period = std::find_if(online.rbegin(), online.rend(), [&](const TimeSpan& one) {
            return one.begin <= begin && begin < one.end;
        });
        if (period != online.rend())
            alarm.speed = speedAt(begin, *period);
    }
}

std::vector<WriteRow> HistoryReader::writes(TimeSpan span, int most)
{
    std::vector<WriteRow> found;
    select(QStringLiteral("SELECT t, address, old, new, screen, label, confirmed FROM written "
                          "WHERE t>=? AND t<? ORDER BY t DESC, id DESC LIMIT ?"),
           {qint64{span.begin}, qint64{span.end}, most}, [&](const QSqlQuery& row) {
               found.push_back({row.value(0).toLongLong(), row.value(1).toString(),
                                row.value(2).toString(), row.value(3).toString(),
                                row.value(4).toString(), wholeNumber(row, 5),
                                row.value(6).toBool()});
           });
    return found;
}

std::optional<std::int64_t> HistoryReader::valueAt(int address, UtcMs time, bool orBefore)
{
    const auto period = orBefore ? TimeSpan{} : periodAt(time).value_or(TimeSpan{time + 1, 0});
    std::optional<std::int64_t> value;
    select(QStringLiteral("SELECT value FROM value WHERE address=? AND t<=? AND t>=? AND (value "
                          "NOT NULL OR ?) ORDER BY t DESC LIMIT 1"),
           {address, qint64{time}, qint64{period.begin}, !orBefore}, [&](const QSqlQuery& row) {
               if (!row.isNull(0))
                   value = row.value(0).toLongLong();
           });
    return value;
}

std::optional<int> HistoryReader::speedAt(UtcMs time, TimeSpan period)
{
    std::optional<int> speed;
    select(QStringLiteral("SELECT last FROM %1 WHERE t<=? AND t>=? ORDER BY t DESC LIMIT 1")
               .arg(speedTable(0)),
           {qint64{time}, qint64{period.begin - kSecond}},
           [&](const QSqlQuery& row) { speed = wholeNumber(row, 0); });
    return speed;
}

UtcMs HistoryReader::shiftBegin(UtcMs now)
{
    UtcMs begin = now - 8 * kHour;
    select(QStringLiteral("SELECT max(t) FROM reset WHERE t>? AND t<?"),
           {qint64{now - kDay}, qint64{now}}, [&](const QSqlQuery& row) {
               if (!row.isNull(0))
                   begin = row.value(0).toLongLong();
           });
    return begin;
}

} // namespace tambrix
