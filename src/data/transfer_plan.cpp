#include "data/transfer_plan.h"

namespace tambrix {

namespace {

constexpr int kSetupEntries = static_cast<int>(reg::kSetupParameters.size());

int entriesOf(const LabelRange& labels)
{
    return kEntriesPerLabel * (labels.last - labels.first + 1);
}

/// kept: the progress maximum is one more than the entries. Users know the bar that way; it closes
/// one step short of its end.
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

} // namespace tambrix
