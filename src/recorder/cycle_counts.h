#pragma once

#include "recorder/utc_time.h"

#include <QSqlQuery>
#include <QString>
#include <QVariantList>

#include <functional>
#include <optional>
#include <vector>

namespace tambrix {

/// Cycles of one ductor per minute, as its counts tell.
struct RatePoint
{
    TimeSpan time;
    std::optional<double> rate; ///< none: the counts were not read
};

/// How often one ductor has cycled in one time on line. Between two rows of counts it is taken to
/// have cycled evenly: the recorder makes a row where a ductor begins and ends to stand.
class CycleCounts
{
public:
    /// Runs an SQL statement with values for its question marks, and calls back for every row.
    using Select = std::function<void(const QString& sql, const QVariantList& values,
                                      const std::function<void(const QSqlQuery&)>& row)>;

    /// `ductor` is 0 to 7; rows outside of `online` are another time.
    CycleCounts(Select select, int ductor, TimeSpan online);

    /// The cycles that were counted in `piece`, divided by the time for which they are known: the
    /// point's own time. No rate where that is too short to tell one.
    RatePoint rate(TimeSpan piece);

private:
    struct Row
    {
        UtcMs time = 0;
        std::optional<double> cycles; ///< since the time on line began, or any other moment
    };
    std::optional<Row> row(const char* which, UtcMs from, UtcMs to);
    std::optional<Row> at(UtcMs time);
    double resetUntil(UtcMs time) const;

    struct Reset
    {
        UtcMs time = 0;
        double count = 0;
    };

    Select m_select;
    QString m_column;
    TimeSpan m_online;
    std::vector<Reset> m_resets;
    std::optional<Row> m_end; ///< of the piece before
};

} // namespace tambrix
