#include "simulator/inprocess/built_in_controller.h"

namespace tambrix {

BuiltInController::BuiltInController(Clock& clock)
    : m_board(clock.now()), m_line(m_board), m_port(m_line, clock)
{
}

std::optional<PortFault> BuiltInController::Port::configure(int portNumber,
                                                            std::string_view settings)
{
    auto fault = SimulatedSerialPort::configure(portNumber, settings);
    if (!fault)
        m_line.setBaud(speed());
    return fault;
}

} // namespace tambrix
