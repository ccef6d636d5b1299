#pragma once

#include <QString>

namespace tambrix {

/// Device that serial port number `portNumber` (1 to 99) means on this system: "COM3" on Windows,
/// the third serial device elsewhere.
QString serialDeviceName(int portNumber);

} // namespace tambrix
