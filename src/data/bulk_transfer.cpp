#include "data/bulk_transfer.h"

#include "data/link_text.h"
#include "data/register_check.h"

#include <QStringList>

#include <utility>

namespace tambrix {

namespace {

constexpr int kReadTries = 3;
constexpr qsizetype kMostSentences = 12; // what a message box takes on a small screen

QString sentence(const EntryFinding& finding)
{
    const QString name =
        fromLink(finding.address.empty() ? nameOf(entryAt(finding.entry)) : finding.address);
    const QString wanted = QString::number(finding.wanted);
    const QString found =
        finding.found ? QString::number(*finding.found) : QStringLiteral("no answer");
    switch (finding.fault) {
    case EntryFault::Refused:
        return QStringLiteral("%1: wanted %2, found %3; the register cannot hold %2.")
            .arg(name, wanted, found);
    case EntryFault::Unverified:
        return QStringLiteral("%1: wanted %2, found %3.").arg(name, wanted, found);
    case EntryFault::Unread:
        return QStringLiteral("%1: no answer; %2 was kept.").arg(name, wanted);
    case EntryFault::Skipped:
        break;
    }
    return QStringLiteral("%1: skipped, names no register; %2 was kept.").arg(name, wanted);
}

} // namespace

BulkTransfer::BulkTransfer(RSComm& link, SetupDataRecord& data, TransferPlan plan)
    : m_link(link),
      m_data(data),
      m_plan(std::move(plan)),
      m_entry(m_plan.first),
      m_furthest(m_plan.first),
      m_lowest(m_plan.first)
{
}

void BulkTransfer::step()
{
    const std::string& address = m_data.Address[static_cast<std::size_t>(m_entry)];
    // kept: an entry without a sound address is left out. The link takes such an address for the
    // first byte of the flag area, which nobody may write to.
    if (!namesRegister(address))
        pass(EntryFault::Skipped);
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
        m_replaced = std::exchange(value(m_entry++), text.toInt());
    else
        readFailed();
}

/// The answer that did not fit may be a late one, and then the answer before it was late as well:
/// the entry before is read again, too.
void BulkTransfer::readFailed()
{
    if (linkBroken())
        return;
    if (++m_failures >= kReadTries)
        return giveUpReading();
    if (m_entry == m_furthest && m_entry > m_lowest)
        value(--m_entry) = m_replaced; // until it has been read again
}

/// kept: an entry that cannot be read keeps its value, and so does the one before it while that
/// one's answer is in doubt; the "0" of a failed read is no value of the press.
void BulkTransfer::giveUpReading()
{
    while (m_entry <= m_furthest)
        pass(EntryFault::Unread);
    m_lowest = m_entry;
    m_failures = 0;
}

void BulkTransfer::download(const std::string& address)
{
    const std::int32_t wanted = value(m_entry);
    if (!takesValue(address, wanted))
        return sendRefused(address, wanted);
    m_link.RSWrite(address, valueText(wanted));
    const bool written = m_link.writeSucceeded();
    const auto found = written ? std::optional<std::int64_t>(wanted) : holds(address);
    if (found == wanted)
        ++m_entry;
    else if (!linkBroken())
        pass(EntryFault::Unverified, found);
}

/// kept: the link's box shows for the first refused value only; a strange file has hundreds, and
/// all of them are told at the end.
void BulkTransfer::sendRefused(const std::string& address, std::int32_t wanted)
{
    if (!std::exchange(m_refusalShown, true))
        m_link.RSWrite(address, valueText(wanted)); // sends nothing
    pass(EntryFault::Refused, holds(address));
}

std::optional<std::int64_t> BulkTransfer::holds(const std::string& address)
{
    for (int tries = 0; tries < kReadTries && !linkBroken(); ++tries) {
        const QString text = fromLink(m_link.RSRead(address));
        if (m_link.readSucceeded())
            return text.toLongLong();
    }
    return std::nullopt;
}

void BulkTransfer::pass(EntryFault fault, std::optional<std::int64_t> found)
{
    const auto index = static_cast<std::size_t>(m_entry);
    m_findings.push_back({m_entry, fault, m_data.Address[index], m_data.Value[index], found});
    ++m_entry;
}

QString sentences(const std::vector<EntryFinding>& findings)
{
    QStringList lines;
    for (const EntryFinding& finding : findings) {
        if (lines.size() == kMostSentences)
            break;
        lines += sentence(finding);
    }
    const auto left = static_cast<qsizetype>(findings.size()) - lines.size();
    if (left > 0)
        lines += QStringLiteral("... and %1 more.").arg(left);
    return lines.join(QLatin1String("\r\n"));
}

} // namespace tambrix
