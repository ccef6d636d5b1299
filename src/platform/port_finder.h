#pragma once

#include "platform/chosen_port.h"
#include "platform/machine_ports.h"

#include <functional>
#include <vector>

namespace tambrix {

/// Looks for a port that may have gone, without a wait.
class PortSearch
{
public:
    virtual ~PortSearch() = default;

    /// The port works now: notes by what it is known again.
    virtual void remember() = 0;

    /// Whether the port is there.
    virtual bool present() = 0;
};

/// A port that is always there: the simulated controller's.
class PortAlwaysThere : public PortSearch
{
public:
    void remember() override {}
    bool present() override { return true; }
};

/// Finds the real port: a serial server when it takes the connection; a serial device under its
/// name or, for an adapter with a serial number, under the new name that it has got.
class PortFinder : public PortSearch
{
public:
    using PortList = std::function<std::vector<MachinePort>()>;

    explicit PortFinder(ChosenPort& port, PortList ports = machinePorts)
        : m_port(port), m_listPorts(std::move(ports))
    {
    }

    void remember() override;
    bool present() override;

private:
    bool devicePresent();

    ChosenPort& m_port;
    PortList m_listPorts;
    QString m_device;       ///< as it was last remembered
    QString m_serialNumber; ///< of its adapter; may be empty
};

} // namespace tambrix
