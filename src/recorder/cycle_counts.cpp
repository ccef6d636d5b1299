#include "recorder/cycle_counts.h"

#include <cmath>
#include <utility>

namespace tambrix {

namespace {

/// A count goes on by whole cycles: over a shorter time it tells no rate.
constexpr UtcMs kShortestRate = 15 * kSecond;

} // namespace

CycleCounts::CycleCounts(Select select, int ductor, TimeSpan online)
    : m_select(std::move(select)), m_column(QStringLiteral("d%1").arg(ductor + 1)), m_online(online)
{
    m_select(QStringLiteral("SELECT t, count FROM reset WHERE ductor=? AND t>? AND t<? ORDER BY t"),
             {ductor, qint64{online.begin}, qint64{online.end}}, [this](const QSqlQuery& row) {
                 m_resets.push_back({row.value(0).toLongLong(), row.value(1).toDouble()});
             });
}

/// What the resets up to `time` have taken from the count.
double CycleCounts::resetUntil(UtcMs time) const
{
    double taken = 0;
    for (const Reset& reset : m_resets)
        taken += reset.time <= time ? reset.count : 0;
    return taken;
}

/// The first row between two times that the words `which` leave, in their order.
std::optional<CycleCounts::Row> CycleCounts::row(const char* which, UtcMs from, UtcMs to)
{
    std::optional<Row> found;
    m_select(QStringLiteral("SELECT t, %1 AS n FROM counts WHERE t>=? AND t<=? %2 LIMIT 1")
                 .arg(m_column, QLatin1String(which)),
             {qint64{from}, qint64{to}}, [&](const QSqlQuery& row) {
                 found = Row{row.value(0).toLongLong(), std::nullopt};
                 if (!row.isNull(1))
                     found->cycles = row.value(1).toDouble() + resetUntil(found->time);
             });
    return found;
}

std::optional<CycleCounts::Row> CycleCounts::at(UtcMs time)
{
    if (m_end && m_end->time == time)
        return m_end;
    const auto before = row("ORDER BY t DESC", m_online.begin, time);
    const auto after = row("ORDER BY t", time, m_online.end - 1);
    if (!before || !after || !before->cycles || !after->cycles)
        return std::nullopt;
    if (before->time == after->time)
        return before;
    const double part =
        static_cast<double>(time - before->time) / static_cast<double>(after->time - before->time);
    return Row{time, std::lerp(*before->cycles, *after->cycles, part)};
}

RatePoint CycleCounts::rate(TimeSpan piece)
{
    auto from = at(piece.begin);
    if (!from)
        from = row("AND n NOT NULL ORDER BY t", piece.begin, piece.end);
    auto to = at(piece.end);
    m_end = to;
    if (!to)
        to = row("AND n NOT NULL ORDER BY t DESC", piece.begin, piece.end);
    if (!from || !to || to->time - from->time < kShortestRate || *to->cycles < *from->cycles)
        return {piece, std::nullopt};
    return {{from->time, to->time},
            (*to->cycles - *from->cycles) * kMinute / static_cast<double>(to->time - from->time)};
}

} // namespace tambrix
