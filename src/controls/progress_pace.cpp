#include "controls/progress_pace.h"

#include <QProgressBar>

#include <cmath>

namespace tambrix {

namespace {

constexpr double kShowInterval = 0.1; // s: at most 10 times a second
constexpr double kSureAfter = 2.0;    // s: before it the speed is a guess
constexpr int kMinute = 60;           // s

} // namespace

void ProgressPace::start(double now)
{
    m_start = now;
    m_lastShown.reset();
}

std::optional<QString> ProgressPace::text(double now, int done, int total)
{
    if (m_lastShown && now - *m_lastShown < kShowInterval && done < total)
        return std::nullopt;
    m_lastShown = now;
    return QStringLiteral("%1 of %2 %3").arg(done).arg(total).arg(m_unit) +
           timeLeft(now, done, total);
}

QString ProgressPace::timeLeft(double now, int done, int total) const
{
    const double spent = now - m_start;
    if (spent < kSureAfter || done < 1 || done >= total)
        return {};
    const int left = static_cast<int>(std::ceil(spent / done * (total - done)));
    if (left < kMinute)
        return QStringLiteral(", about %1 s left").arg(left);
    return QStringLiteral(", about %1 min %2 s left").arg(left / kMinute).arg(left % kMinute);
}

void setValueUnpainted(QProgressBar& bar, int value)
{
    bar.setAttribute(Qt::WA_UpdatesDisabled, true);
    bar.setValue(value);
    bar.setAttribute(Qt::WA_UpdatesDisabled, false);
}

} // namespace tambrix
