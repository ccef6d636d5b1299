#pragma once

#include "data/parameters.h"

namespace tambrix::reg {

// Registers of the processor board itself, beside those that the link uses for itself
// (link/board_registers.h).

inline constexpr Register kFaultCode{"B8176", "Current Fault", ""};
inline constexpr Register kLastFaultCode{"B8177", "Last Fault", ""};
inline constexpr Register kLastNetworkError{"B8178", "Last Comm Error", ""};
inline constexpr Register kNetworkError{"B8179", "Current Comm Error", ""};
inline constexpr Register kNetworkAddress1{"B8180", "Network Address 1", ""};
inline constexpr Register kNetworkAddress2{"B8191", "Network Address 2", ""};

inline constexpr Register kClockSecond{"B43008", "Second", ""};
inline constexpr Register kClockMinute{"B43010", "Minute", ""};
inline constexpr Register kClockHour{"B43012", "Hour", ""};
inline constexpr Register kClockDay{"B43015", "Day", ""};
inline constexpr Register kClockMonth{"B43016", "Month", ""};
inline constexpr Register kClockYear{"B43017", "Year", ""}; ///< of the century

// Words of the module's inputs, outputs and resolver.
inline constexpr Register kOutputs{"W110", "Outputs", ""};
inline constexpr Register kAnalogInput0{"W162", "Analog Input 0", ""};
inline constexpr Register kAnalogInput1{"W164", "Analog Input 1", ""};
inline constexpr Register kUnusedWord{"W170", "", ""}; ///< read with the others, means nothing
inline constexpr Register kResolverPosition{"W180", "Resolver POS", ""};
inline constexpr Register kResolverPeriod{"W184", "Resolver Period", ""};
inline constexpr Register kResolverScale{"W186", "Scale Factor", ""};
inline constexpr Register kResolverOffset{"W188", "Offset", ""};

} // namespace tambrix::reg
