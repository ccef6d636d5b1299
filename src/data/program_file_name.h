#pragma once

#include <QString>

namespace tambrix {

/// The path's folder and base name with another extension (given without a point).
QString ChangeExtension(const QString& path, const QString& extension);

/// Board type code of a controller program: the character code of the first character of the
/// .FNX file of the same folder and base name; 68 when that file is missing or empty.
int ProgramFileTypeChar(const QString& path);

} // namespace tambrix
