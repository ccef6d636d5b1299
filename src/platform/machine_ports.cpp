#include "platform/machine_ports.h"

#include "link/settings_file.h"
#include "platform/serial_device.h"

#include <QFileInfo>
#include <QSerialPortInfo>

#include <algorithm>

namespace tambrix {

std::optional<int> serialPortNumber(const QString& name)
{
    for (int number = kLowestPort; number <= kHighestPort; ++number) {
        if (QFileInfo(serialDeviceName(number)).fileName() == name)
            return number;
    }
    return std::nullopt;
}

std::vector<MachinePort> machinePorts()
{
    std::vector<MachinePort> ports;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        ports.push_back({info.portName(), info.description(), serialPortNumber(info.portName()),
                         info.systemLocation(), info.serialNumber()});
    std::ranges::stable_sort(
        ports, {}, [](const MachinePort& port) { return port.number.value_or(kHighestPort + 1); });
    return ports;
}

} // namespace tambrix
