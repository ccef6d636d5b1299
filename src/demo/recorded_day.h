#pragma once

#include "platform/task.h"

#include <QString>

namespace tambrix {

class DemoStage;

/// Lets a simulated press of its own run through a whole day that ends now, in some seconds, and
/// records it in the history `file`: two labels, a pause at noon, an alarm of ductor 3, a change
/// of its ON duration.
Task recordDay(DemoStage& stage, QString file);

} // namespace tambrix
