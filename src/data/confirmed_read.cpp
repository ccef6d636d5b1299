#include "data/confirmed_read.h"

#include <algorithm>

namespace tambrix {

namespace {

constexpr int kMostRounds = 4; // a value that is another one every time is changing by itself

TransferPlan reading(const SetupDataRecord& data)
{
    return {{}, 0, static_cast<int>(data.Address.size()) - 1, std::nullopt, false};
}

bool contains(const std::vector<std::size_t>& entries, std::size_t entry)
{
    return std::find(entries.begin(), entries.end(), entry) != entries.end();
}

} // namespace

ConfirmedRead::ConfirmedRead(RSComm& link, std::vector<std::string> addresses,
                             std::vector<std::optional<std::int32_t>> expected,
                             std::size_t mostDoubtful)
    : m_link(link), m_expected(std::move(expected)), m_mostDoubtful(mostDoubtful)
{
    m_data.Address = std::move(addresses);
    m_data.Value.resize(m_data.Address.size());
    begin(m_data);
}

void ConfirmedRead::begin(SetupDataRecord& data)
{
    m_done = data.Address.empty();
    m_reading.emplace(m_link, data, reading(data));
}

void ConfirmedRead::step()
{
    m_reading->step();
    if (m_rounds == 0)
        noteUnread();
    if (m_link.CommError || !m_reading->ended())
        return;
    if (m_rounds++ == 0)
        firstRoundEnded();
    else
        againEnded();
}

void ConfirmedRead::noteUnread()
{
    const auto& findings = m_reading->findings();
    for (std::size_t i = m_unread.size(); i < findings.size(); ++i) {
        if (m_unread.empty())
            m_unreadable = findings[i].address;
        m_unread.push_back(static_cast<std::size_t>(findings[i].entry));
    }
}

void ConfirmedRead::firstRoundEnded()
{
    std::vector<std::size_t> doubtful;
    for (std::size_t i = 0; i < m_expected.size(); ++i) {
        if (unexpected(i) && !contains(m_unread, i))
            doubtful.push_back(i);
    }
    if (doubtful.size() > m_mostDoubtful)
        doubtful.clear();
    doubt(doubtful);
}

void ConfirmedRead::againEnded()
{
    std::vector<std::size_t> still;
    for (std::size_t k = 0; k < m_doubtful.size(); ++k) {
        std::int32_t& value = m_data.Value[m_doubtful[k]];
        if (value != m_again.Value[k])
            still.push_back(m_doubtful[k]);
        value = m_again.Value[k];
    }
    if (m_rounds == kMostRounds)
        still.clear();
    doubt(still);
}

bool ConfirmedRead::unexpected(std::size_t entry) const
{
    return m_expected[entry] && *m_expected[entry] != m_data.Value[entry];
}

void ConfirmedRead::doubt(const std::vector<std::size_t>& entries)
{
    m_doubtful = entries;
    m_again = {};
    for (const std::size_t entry : entries)
        m_again.Address.push_back(m_data.Address[entry]);
    m_again.Value.resize(entries.size());
    begin(m_again);
}

std::size_t ConfirmedRead::count() const
{
    return m_rounds > 0 ? m_data.Address.size() : static_cast<std::size_t>(m_reading->progress());
}

bool ConfirmedRead::known(std::size_t index) const
{
    if (contains(m_unread, index))
        return false;
    if (m_rounds > 0)
        return !contains(m_doubtful, index);
    return index < count() && (m_expected.empty() || !unexpected(index));
}

} // namespace tambrix
