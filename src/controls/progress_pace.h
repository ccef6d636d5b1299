#pragma once

#include <QString>

#include <optional>

class QProgressBar;

namespace tambrix {

/// What a long job tells of its progress, and how often: "120 of 1600", and the time left once
/// two seconds have shown how fast it goes. Times are in seconds from any beginning.
class ProgressPace
{
public:
    /// `unit` is what is counted: "values", "bytes".
    explicit ProgressPace(const QString& unit) : m_unit(unit) {}

    void start(double now);

    /// The text to show now, or nothing while the last one is less than 50 ms old and the job has
    /// not ended. Showing it so seldom keeps the line at full speed.
    std::optional<QString> text(double now, int done, int total);

private:
    QString timeLeft(double now, int done, int total) const;

    QString m_unit;
    double m_start = 0;
    std::optional<double> m_lastShown;
};

/// Shows `value` when the window is painted next. The bar's own setValue() paints at once.
void setValueLater(QProgressBar& bar, int value);

} // namespace tambrix
