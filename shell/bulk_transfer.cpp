#include "shell/bulk_transfer.h"

#include "shell/helpers.h"

#include <algorithm>

namespace tambrix {

namespace {

constexpr int kReadTries = 3;
constexpr int kSetupEntries = 5;

int entriesOf(const LabelRange& labels)
{
    return kEntriesPerLabel * (labels.last - labels.first + 1);
}

/// `count` entries; the progress maximum is one more than that, as the bar has always had it.
TransferPlan group(const char* caption, int first, int count)
{
    return {QLatin1String(caption), first, first + count - 1, count + 1, false};
}

TransferPlan everything(const char* caption)
{
    return {QLatin1String(caption), 0, gDataUpperBound, gDataUpperBound + 1, false};
}

TransferPlan planOf(int code, const LabelRange& labels)
{
    using namespace transfer_code;
    const int firstLabelEntry = labelBase(labels.first);
    switch (code) {
    case kSetupData:
        return group("Uploading Set-up Data, Please Standby", kSetupSlot, kSetupEntries);
    case kShiftData:
        return group("Uploading Shift Data, Please Standby", kShiftCountSlot, kDuctors);
    case kLabelData:
        return group("Uploading Label Data, Please Standby", firstLabelEntry, entriesOf(labels));
    case kEverything:
        return everything("Uploading, Please Standby");
    case kDownload + kSetupData:
        return group("Downloading Set-Up Data, Please Standby", kSetupSlot, kSetupEntries);
    case kDownload + kShiftData:
        return group("Downloading Shift Data, Please Standby", kShiftCountSlot, kDuctors);
    case kDownload + kLabelData:
        return group("Downloading Label Data, Please Standby", firstLabelEntry, entriesOf(labels));
    case kDownload + kEverything:
        return everything("Downloading, Please Standby");
    default:
        return {QStringLiteral("Please Standby"), 0, 0, std::nullopt, false};
    }
}

} // namespace

TransferPlan transferPlan(int requestCode, const LabelRange& labels)
{
    TransferPlan plan = planOf(requestCode, labels);
    plan.download = requestCode >= transfer_code::kDownload;
    return plan;
}

BulkTransfer::BulkTransfer(ProgramState& state, TransferPlan plan)
    : m_state(state), m_plan(std::move(plan)), m_entry(m_plan.first), m_furthest(m_plan.first)
{
}

void BulkTransfer::step()
{
    const std::string& address = m_state.gWorkingData.Address[static_cast<std::size_t>(m_entry)];
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
    const QString text = fromLink(m_state.gLink.RSRead(address));
    if (m_state.gLink.readSucceeded())
        m_state.gWorkingData.Value[static_cast<std::size_t>(m_entry++)] = text.toInt();
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
    m_state.gLink.RSWrite(address,
                          valueText(m_state.gWorkingData.Value[static_cast<std::size_t>(m_entry)]));
    if (m_state.gLink.writeSucceeded())
        ++m_entry;
    else
        m_givenUp = true; // the link has tried twice, or refused the value
}

} // namespace tambrix
