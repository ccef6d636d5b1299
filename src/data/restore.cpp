#include "data/restore.h"

#include <algorithm>

namespace tambrix {

namespace {

bool needsWrite(const RestoreRow& row)
{
    return row.state != WriteState::Verified && row.state != WriteState::Written;
}

std::vector<std::size_t> rowsToWrite(const std::vector<RestoreRow>& rows)
{
    std::vector<std::size_t> indexes;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (needsWrite(rows[i]))
            indexes.push_back(i);
    }
    return indexes;
}

SetupDataRecord recordOf(const std::vector<RestoreRow>& rows, const std::vector<std::size_t>& which)
{
    SetupDataRecord record;
    for (const std::size_t i : which) {
        record.Address.push_back(rows[i].address);
        record.Value.push_back(rows[i].value);
    }
    return record;
}

TransferPlan download(std::size_t entries)
{
    return {{}, 0, static_cast<int>(entries) - 1, std::nullopt, true};
}

} // namespace

Restore::Restore(RSComm& link, std::vector<RestoreRow> rows)
    : m_link(link),
      m_rows(std::move(rows)),
      m_toWrite(rowsToWrite(m_rows)),
      m_wanted(recordOf(m_rows, m_toWrite)),
      m_writing(link, m_wanted, download(m_toWrite.size()))
{
    if (m_toWrite.empty())
        beginReading();
}

void Restore::step()
{
    if (m_reading) {
        m_reading->step();
        return;
    }
    const int before = m_writing.progress();
    const std::size_t findings = m_writing.findings().size();
    m_writing.step();
    const bool written = m_writing.progress() > before && m_writing.findings().size() == findings;
    m_rows[m_toWrite[static_cast<std::size_t>(before)]].state =
        written ? WriteState::Written : WriteState::Unknown;
    if (m_writing.ended() && !m_writing.linkBroken())
        beginReading();
}

void Restore::beginReading()
{
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const WriteState state = m_rows[i].state;
        if (state == WriteState::Written || state == WriteState::Unknown)
            m_toRead.push_back(i);
    }
    SetupDataRecord wanted = recordOf(m_rows, m_toRead);
    m_reading.emplace(
        m_link, std::move(wanted.Address),
        std::vector<std::optional<std::int32_t>>(wanted.Value.begin(), wanted.Value.end()),
        m_toRead.size());
}

bool Restore::ended() const
{
    return m_reading ? m_reading->ended() : m_writing.ended();
}

int Restore::progress() const
{
    return m_writing.progress() + (m_reading ? static_cast<int>(m_reading->count()) : 0);
}

int Restore::total() const
{
    const std::size_t reads = m_reading ? m_toRead.size() : m_toWrite.size();
    return static_cast<int>(m_toWrite.size() + reads);
}

std::vector<RestoreRow> Restore::rows() const
{
    std::vector<RestoreRow> rows = m_rows;
    if (m_reading)
        markReadBack(rows);
    return rows;
}

void Restore::markReadBack(std::vector<RestoreRow>& rows) const
{
    for (std::size_t k = 0; k < m_toRead.size(); ++k) {
        if (!m_reading->known(k))
            continue;
        RestoreRow& row = rows[m_toRead[k]];
        row.found = m_reading->data().Value[k];
        row.state = row.found == row.value ? WriteState::Verified : WriteState::Different;
    }
}

int countOf(const std::vector<RestoreRow>& rows, WriteState state)
{
    return static_cast<int>(std::count_if(
        rows.begin(), rows.end(), [state](const RestoreRow& row) { return row.state == state; }));
}

} // namespace tambrix
