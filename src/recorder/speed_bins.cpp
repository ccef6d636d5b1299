#include "recorder/speed_bins.h"

#include <algorithm>
#include <utility>

namespace tambrix {

void SpeedBins::add(UtcMs time, int speed)
{
    const UtcMs begin = time - time % m_span;
    if (!m_current || m_current->begin != begin) {
        close();
        m_current = SpeedRow{begin, SpeedRange{speed, speed, speed}};
        m_grown = true;
        return;
    }
    const SpeedRange before = *m_current->range;
    SpeedRange& range = *m_current->range;
    range = {std::min(range.low, speed), std::max(range.high, speed), speed};
    m_grown = m_grown || range != before;
}

/// Puts the bin under way among those that are ready, where it says anything new.
void SpeedBins::close()
{
    if (!m_current)
        return;
    const SpeedRange range = *m_current->range;
    const SpeedRange unchanged{m_before.value_or(-1), m_before.value_or(-1), m_before.value_or(-1)};
    if (m_grown && !(m_changesOnly && range == unchanged))
        m_ready.push_back(*m_current);
    m_before = range.last;
    m_current.reset();
    m_grown = false;
}

void SpeedBins::lose(UtcMs time)
{
    if (!m_current && !m_before)
        return;
    close();
    if (m_changesOnly)
        m_ready.push_back({time - time % m_span + m_span, std::nullopt});
    m_before.reset();
}

void SpeedBins::take(std::vector<SpeedRow>& rows)
{
    std::ranges::move(std::exchange(m_ready, {}), std::back_inserter(rows));
    const bool news = m_current && m_grown &&
                      (!m_changesOnly || !m_before ||
                       m_current->range != SpeedRange{*m_before, *m_before, *m_before});
    if (news)
        rows.push_back(*m_current);
    m_grown = m_grown && !news;
}

void SpeedBins::forget()
{
    m_current.reset();
    m_before.reset();
    m_ready.clear();
    m_grown = false;
}

} // namespace tambrix
