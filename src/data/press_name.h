#pragma once

#include <QDir>
#include <QString>

#include <optional>

namespace tambrix {

/// The name that the users gave their press; empty while it has none. Kept below the data root.
QString pressName(const QDir& dataRoot);

/// Keeps another name, its blanks simplified, 60 characters at most. Returns the reason when it
/// failed.
std::optional<QString> setPressName(const QDir& dataRoot, const QString& name);

} // namespace tambrix
