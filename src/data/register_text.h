#pragma once

#include "data/refusal.h"

#include <string>
#include <variant>

namespace tambrix {

/// A register as a user types it: "W690", "b100.3", "F123", "A800H"; upper case afterwards.
/// Refused: what names no register of the controller's 64 KiB.
std::variant<std::string, Refusal> registerFromText(const QString& text);

} // namespace tambrix
