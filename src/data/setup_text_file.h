#pragma once

#include "data/refusal.h"
#include "data/setup_text.h"

namespace tambrix {

/// The data set of a file in CSV or JSON, whatever the file is called: JSON begins with a brace.
/// Refused with one sentence, with line and column where there is one.
std::variant<NamedSetup, Refusal> readSetupText(const QString& path);

} // namespace tambrix
