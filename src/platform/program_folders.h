#pragma once

#include <QDir>

namespace tambrix {

/// The folders that the program works in, chosen once at start; what is opened or saved later
/// moves none of them.
struct ProgramFolders
{
    /// Everything below one folder.
    ProgramFolders(const QDir& folder);

    QDir program;  ///< has Help, the fault texts and the programming tool's folders; only read
    QDir data;     ///< the data root: what the program keeps for itself lies below it
    QDir settings; ///< where RSPort.cfg lies
};

/// The data root is `program` when files can be made there, else `user`. RSPort.cfg lies in
/// Support below `program` wherever that can be written, or made, else in Support below the root.
ProgramFolders chooseFolders(const QDir& program, const QDir& user);

} // namespace tambrix
