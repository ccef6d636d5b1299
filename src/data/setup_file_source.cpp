#include "data/setup_file_source.h"

#include "data/setup_file.h"
#include "data/whole_file.h"

#include <QFileInfo>

namespace tambrix {

namespace {

/// A set-up file takes some 30 KB. What is very much longer is none.
constexpr qint64 kLongestSetupFile = 1 << 20;

QString reasonOf(SetupFileFault fault)
{
    return fault == SetupFileFault::Truncated
               ? QStringLiteral("it ends before its last entry, or is no set-up file")
               : QStringLiteral("it is no set-up file");
}

Refusal refusal(const QString& path, const QString& reason)
{
    return {
        QStringLiteral("The file %1 cannot be used: %2.").arg(QFileInfo(path).fileName(), reason)};
}

} // namespace

std::variant<SetupDataRecord, Refusal> loadSetupData(const QString& path)
{
    const auto bytes = readWholeFile(path, kLongestSetupFile);
    if (!bytes)
        return refusal(path, whyUnread(path, kLongestSetupFile));
    auto content = readSetupFile({bytes->constData(), static_cast<std::size_t>(bytes->size())});
    if (const auto* fault = std::get_if<SetupFileFault>(&content))
        return refusal(path, reasonOf(*fault));
    auto record = std::get<SetupDataRecord>(std::move(content));
    record.Address.resize(gDataUpperBound + 1);
    record.Value.resize(gDataUpperBound + 1);
    return record;
}

} // namespace tambrix
