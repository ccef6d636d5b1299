#pragma once

#include <QIcon>

namespace tambrix {

/// One of the program's line drawings, in the text colour of the palette that is in use when it is
/// painted. Names are those of the files in controls/icons: "open", "save", "help", "compare",
/// "labels", "history", "monitor", "backups", "port", "print", "back", "forward", "contents",
/// "close". An unknown name paints nothing.
QIcon lineIcon(const QString& name);

} // namespace tambrix
