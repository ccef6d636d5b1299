#pragma once

#include "commands/console.h"
#include "commands/session.h"
#include "data/setup_data.h"

#include <QString>

namespace tambrix {

/// The set-up file's data set. Throws Failure (exit code 5) with the reason.
SetupDataRecord loadedFile(const QString& path);

/// Writes a set-up file, whole or not at all. Throws Failure (exit code 5) with the reason.
void saveFile(const QString& path, const SetupDataRecord& record);

/// Everything that the controller holds, with progress. Throws Failure when it is lost (3) or the
/// command was interrupted (6).
SetupDataRecord readController(Session& session, Console& console);

} // namespace tambrix
