#pragma once

#include "link/rs_comm.h"
#include "link/settings_file.h"
#include "platform/connection.h"
#include "platform/port_access.h"

#include <functional>

namespace tambrix {

/// What is wrong with the line, in plain words.
struct LineFinding
{
    enum class Kind {
        InOrder,
        PortMissing,
        PortInUse,
        NoPermission,
        NoConnection, ///< to the serial server, or another error of the port
        Silent,       ///< open, but nobody answers
        Noise,        ///< answers that do not fit
        WrongSpeed,
        Slow
    };

    Kind kind = Kind::InOrder;
    QString what; ///< one sentence
    QString toDo; ///< what helps
};

/// The line that is checked.
struct LineUnderCheck
{
    SerialPort& port; ///< closed
    Clock& clock;
    CommSettings settings;
    Connection connection;
    QString device;                     ///< as the port is named to the user
    std::function<PortAccess()> access; ///< what the system tells about the device
};

/// Opens the port, sends attention and nothing else, and closes it. Where nothing that fits comes
/// back, the other speed is tried and the old one put back; a serial server has its own. Takes
/// 0.6 s and, while the board is silent, some seconds.
LineFinding checkLine(const LineUnderCheck& line);

/// The same while on line, by reads of the machine speed through the link: the mode stays as it
/// is. `errors` are those of the line so far.
LineFinding checkOnline(RSComm& link, const Clock& clock, int baud,
                        const std::function<std::uint64_t()>& errors);

} // namespace tambrix
