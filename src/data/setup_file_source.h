#pragma once

#include "data/refusal.h"
#include "data/setup_data.h"

#include <QString>

#include <variant>

namespace tambrix {

/// The data set of a set-up file, with 1,614 entries as Open takes it: what the file does not have
/// gets an empty address and the value 0, what it has more is left out. A file that is none, is
/// damaged or cannot be read is refused with the reason.
std::variant<SetupDataRecord, Refusal> loadSetupData(const QString& path);

} // namespace tambrix
