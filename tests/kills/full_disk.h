#pragma once

#include <QDir>

namespace tambrix {

/// Saves every kind of file on a small disk (at most some MiB) that has one page more left each
/// time, from none on: either the new file stands there afterwards, or the save failed with a
/// reason and the old one does. Prints what it finds; returns 1 when a file was lost.
int fillDisk(const QDir& disk);

} // namespace tambrix
