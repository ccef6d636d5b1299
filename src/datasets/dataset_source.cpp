#include "datasets/dataset_source.h"

#include "data/setup_file_source.h"
#include "shell/file_commands.h"

#include <QFileInfo>

namespace tambrix {

QString DatasetSource::title() const
{
    const bool onDisk = kind == Kind::File || kind == Kind::Backup;
    return onDisk ? QFileInfo(path).fileName() : columnTitle();
}

QString DatasetSource::columnTitle() const
{
    switch (kind) {
    case Kind::WorkingData:
        return QStringLiteral("Working Data");
    case Kind::File:
        return QStringLiteral("File");
    case Kind::Backup:
        return QStringLiteral("Backup");
    default:
        return QStringLiteral("Controller");
    }
}

std::optional<SetupDataRecord> loadDataset(ProgramState& state, const DatasetSource& source,
                                           QString& reason)
{
    if (source.kind == DatasetSource::Kind::WorkingData)
        return state.gWorkingData;
    auto loaded = loadSetupData(source.path);
    if (const auto* refusal = std::get_if<Refusal>(&loaded)) {
        reason = refusal->reason;
        return std::nullopt;
    }
    auto record = std::get<SetupDataRecord>(std::move(loaded));
    if (record.Version != state.gProgramVersion &&
        askForOtherVersion(state.prompts, record.Version) != BoxAnswer::Yes) {
        reason = QStringLiteral("The file was not used.");
        return std::nullopt;
    }
    return record;
}

} // namespace tambrix
