#pragma once

#include "demo/stage.h"

namespace tambrix {

/// The whole demonstration, chapter after chapter.
Task demonstration(DemoStage& stage);

// A chapter is a file of its own, a declaration here and a place in the list in chapters.cpp.

/// On line, machine speed, an alarm raised and reset, off line again.
Task demoMainDisplay(DemoStage& stage);

/// Each parameter screen, on line and off line.
Task demoScreens(DemoStage& stage);

/// A whole press uploaded, saved, opened again and downloaded.
Task demoData(DemoStage& stage);

/// Three values changed on the press, compared, two of them restored and proved.
Task demoCompare(DemoStage& stage);

/// All labels at a glance: pasted, held against the rules, found, undone.
Task demoLabels(DemoStage& stage);

/// A program downloaded, faults reset, identities compared, clock set, serial settings shown.
Task demoMaintenance(DemoStage& stage);

/// The line's tools: monitor, check; the cable pulled, and the program on line again by itself.
Task demoLine(DemoStage& stage);

/// A day of a press in seconds: its plots, alarms and changes, and what one ductor did.
Task demoHistory(DemoStage& stage);

/// Report set-up and preview, about box, help.
Task demoReports(DemoStage& stage);

} // namespace tambrix
