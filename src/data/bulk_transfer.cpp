#include "data/bulk_transfer.h"

#include "data/link_text.h"

#include <algorithm>

namespace tambrix {

namespace {

constexpr int kReadTries = 3;

} // namespace

BulkTransfer::BulkTransfer(RSComm& link, SetupDataRecord& data, TransferPlan plan)
    : m_link(link),
      m_data(data),
      m_plan(std::move(plan)),
      m_entry(m_plan.first),
      m_furthest(m_plan.first)
{
}

void BulkTransfer::step()
{
    const std::string& address = m_data.Address[static_cast<std::size_t>(m_entry)];
    // An entry that its file did not have names no register. The link would take an empty address
    // for the first byte of the flag area, which is no place to write to.
    if (address.empty())
        ++m_entry;
    else if (m_plan.download)
        download(address);
    else
        upload(address);
}

void BulkTransfer::upload(const std::string& address)
{
    if (m_entry > m_furthest) {
        m_furthest = m_entry;
        m_failures = 0;
    }
    const QString text = fromLink(m_link.RSRead(address));
    if (m_link.readSucceeded())
        m_data.Value[static_cast<std::size_t>(m_entry++)] = text.toInt();
    else
        readFailed();
}

/// The answer that did not fit may be a late one, and then the answer before it was late as well:
/// the entry before is read again, too.
void BulkTransfer::readFailed()
{
    m_givenUp = ++m_failures >= kReadTries;
    m_entry = std::max(m_entry - 1, m_plan.first);
}

void BulkTransfer::download(const std::string& address)
{
    m_link.RSWrite(address, valueText(m_data.Value[static_cast<std::size_t>(m_entry)]));
    if (m_link.writeSucceeded())
        ++m_entry;
    else
        m_givenUp = true; // the link has tried twice, or refused the value
}

} // namespace tambrix
