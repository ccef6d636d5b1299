#pragma once

#include "app/demo_stage.h"

namespace tambrix {

/// The whole demonstration, chapter after chapter.
Task demonstration(DemoStage& stage);

/// On line, machine speed, an alarm raised and reset, off line again.
Task demoMainDisplay(DemoStage& stage);

/// Report set-up and preview, about box, help.
Task demoReports(DemoStage& stage);

} // namespace tambrix
