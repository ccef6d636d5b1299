#pragma once

#include <QDir>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace tambrix {

/// One kind of file that the program keeps, and how a test writes and recognises it.
struct Saver
{
    const char* name;
    /// Saves the file's version `number` (1 and up) in a folder; the reason when it fails.
    std::function<std::optional<QString>(const QDir& folder, int number)> save;
    /// Which version stands there: all of it. Nothing when there is no whole file.
    std::function<std::optional<int>(const QDir& folder)> version;
    /// Versions of a few numbers come again.
    bool comesAgain = false;
};

const std::vector<Saver>& savers();

} // namespace tambrix
