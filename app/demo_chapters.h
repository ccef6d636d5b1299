#pragma once

#include "app/demo_stage.h"

namespace tambrix {

/// The whole demonstration, chapter after chapter.
Task demonstration(DemoStage& stage);

/// On line, machine speed, an alarm raised and reset, off line again.
Task demoMainDisplay(DemoStage& stage);

/// A whole press uploaded, saved, opened again and downloaded.
Task demoData(DemoStage& stage);

} // namespace tambrix
