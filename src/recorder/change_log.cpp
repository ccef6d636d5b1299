#include "recorder/change_log.h"

#include <algorithm>
#include <utility>

namespace tambrix {

void ChangeLog::add(UtcMs time, int address, std::int64_t value)
{
    const auto [known, fresh] = m_known.try_emplace(address, Known{value, time});
    if (fresh || known->second.value != value)
        m_ready.push_back({time, address, value});
    known->second = {value, time};
}

void ChangeLog::loseUnread(UtcMs before)
{
    for (auto known = m_known.begin(); known != m_known.end();) {
        if (known->second.read >= before) {
            ++known;
            continue;
        }
        m_ready.push_back({known->second.read + 1, known->first, std::nullopt});
        known = m_known.erase(known);
    }
}

void ChangeLog::take(std::vector<ValueRow>& rows)
{
    std::ranges::move(std::exchange(m_ready, {}), std::back_inserter(rows));
}

void ChangeLog::forget()
{
    m_known.clear();
    m_ready.clear();
}

std::optional<std::int64_t> ChangeLog::value(int address) const
{
    const auto known = m_known.find(address);
    return known == m_known.end() ? std::nullopt : std::optional(known->second.value);
}

void CountsLog::add(UtcMs time, int ductor, std::int64_t count)
{
    auto& now = m_now.counts[static_cast<std::size_t>(ductor)];
    if (now && count < *now) {
        m_resets.push_back({time, ductor, *now});
        m_resetSince = true;
    }
    now = count;
    m_now.time = time;
    if (ductor == kDuctors - 1) // the eight are read one after the other
        passEnds();
}

/// Rows are made so that between two of them a ductor stands, or cycles evenly.
void CountsLog::passEnds()
{
    const bool stands = m_now.counts == m_stored.counts;
    const bool stoodBefore =
        m_before.counts == m_stored.counts && m_before.time - m_stored.time >= kInterval;
    if (!stands && stoodBefore)
        keep(m_before);
    if (m_resetSince || m_now.time - m_stored.time >= (stands ? kStandingInterval : kInterval))
        keep(m_now);
    m_before = m_now;
}

void CountsLog::keep(const CountsRow& row)
{
    m_ready.push_back(row);
    m_stored = row;
    m_resetSince = false;
}

void CountsLog::end()
{
    if (m_now.time > m_stored.time)
        keep(m_now);
}

void CountsLog::loseUnread(UtcMs before)
{
    if (m_now.time >= before || m_now == CountsRow{})
        return;
    end();
    m_ready.push_back({m_now.time + 1, {}});
    m_now = m_before = m_stored = {};
}

void CountsLog::take(HistoryBatch& batch)
{
    std::ranges::move(std::exchange(m_ready, {}), std::back_inserter(batch.counts));
    std::ranges::move(std::exchange(m_resets, {}), std::back_inserter(batch.resets));
}

void CountsLog::forget()
{
    *this = {};
}

} // namespace tambrix
