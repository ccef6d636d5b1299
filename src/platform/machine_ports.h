#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace tambrix {

/// One serial port that is on the machine now.
struct MachinePort
{
    QString name;              ///< as the system calls it: "COM3", "ttyUSB0"
    QString description;       ///< what the device says of itself; may be empty
    std::optional<int> number; ///< the port number that means it, 1 to 99; empty: none does
    QString location = {};     ///< by what it is opened: "COM3", "/dev/ttyUSB0"
    QString serialNumber = {}; ///< of a USB adapter, when it has one

    bool operator==(const MachinePort&) const = default;
};

/// The port number that means the device `name`: 3 for "COM3", on other systems for "ttyS2".
std::optional<int> serialPortNumber(const QString& name);

/// The serial ports of the machine, those that can be chosen by number first.
std::vector<MachinePort> machinePorts();

} // namespace tambrix
