#pragma once

#include "reports/report_content.h"

#include <optional>

namespace tambrix {

/// What a board holds beside the values of a set-up file, for whoever moves a press to another
/// board: identity of its program, addresses, station, clock, resolver, limit switch. Reads it over
/// the line, some 30 registers. `now` dates the sheet. Nothing when the program is not on line,
/// and when the link is lost, which it has said itself.
std::optional<Report> boardSheet(ProgramState& state, const QDateTime& now);

} // namespace tambrix
