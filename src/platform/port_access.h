#pragma once

#include <QString>

namespace tambrix {

/// What the system tells about a serial device without opening it.
struct PortAccess
{
    bool exists = false;
    bool permitted = false; ///< this user may read and write it
    QString group;          ///< whose members may; empty where the system has none
    QString holder;         ///< the program that has it open; empty when that is not told
};

PortAccess portAccess(const QString& device);

} // namespace tambrix
