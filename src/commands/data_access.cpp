#include "commands/data_access.h"

#include "commands/interruption.h"
#include "data/controller_reading.h"
#include "data/setup_file.h"
#include "data/setup_file_source.h"
#include "data/version.h"
#include "data/whole_file.h"

#include <QByteArray>

namespace tambrix {

SetupDataRecord loadedFile(const QString& path)
{
    auto loaded = loadSetupData(path);
    if (const auto* refusal = std::get_if<Refusal>(&loaded))
        throw Failure{ExitCode::File, QStringLiteral("%1: %2").arg(path, refusal->reason)};
    return std::get<SetupDataRecord>(std::move(loaded));
}

void saveFile(const QString& path, const SetupDataRecord& record)
{
    if (const auto reason = writeWholeFile(path, QByteArray::fromStdString(setupFileBytes(record))))
        throw Failure{ExitCode::File, QStringLiteral("%1: %2").arg(path, *reason)};
}

SetupDataRecord readController(Session& session, Console& console)
{
    ControllerReading reading(session.link());
    while (!reading.ended()) {
        stopIfInterrupted("nothing was written");
        reading.step();
        console.progress(QStringLiteral("Reading"), reading.progress(), reading.total());
    }
    console.endProgress();
    if (reading.failed())
        throw session.lost(reading.failure());
    SetupDataRecord record = reading.data();
    record.Version = kFileVersion;
    return record;
}

} // namespace tambrix
