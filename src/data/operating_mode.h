#pragma once

#include <QString>

namespace tambrix {

/// What the panel of the press has chosen, by the bits of the input byte B100.
enum class OperatingMode { Off, Manual, Auto };

/// Bit 0 is automatic and goes before bit 1, manual.
constexpr OperatingMode operatingMode(int inputs)
{
    if ((inputs & 1) != 0)
        return OperatingMode::Auto;
    return (inputs & 2) != 0 ? OperatingMode::Manual : OperatingMode::Off;
}

/// "AUTO", "MAN" or "OFF".
inline QString operatingModeText(OperatingMode mode)
{
    switch (mode) {
    case OperatingMode::Auto:
        return QStringLiteral("AUTO");
    case OperatingMode::Manual:
        return QStringLiteral("MAN");
    case OperatingMode::Off:
        break;
    }
    return QStringLiteral("OFF");
}

} // namespace tambrix
