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

    /// The text to show now, or nothing while the last one is less than 0.1 s old and the job has
    /// not ended. Showing it so seldom keeps the line at full speed.
    std::optional<QString> text(double now, int done, int total);

private:
    QString timeLeft(double now, int done, int total) const;

    QString m_unit;
    double m_start = 0;
    std::optional<double> m_lastShown;
};

/// Counts on; the bar shows it with its next update(). Its own setValue() paints at once.
void setValueUnpainted(QProgressBar& bar, int value);

} // namespace tambrix
