#pragma once

#include <QString>

#include <optional>

namespace tambrix {

/// The code that stands for every code of a board that does not answer: check the cable.
inline const QString kBrokenLinkCode = QStringLiteral("42");

/// A code register's value as it is shown: upper-case hexadecimal of at least two digits.
QString codeText(int value);

/// What to do about a fault; `code` is the last fault, 0 to 255.
QString correctiveAction(int code);

/// The text of the last record of `file` with this code; empty when there is none. Nothing when
/// the file cannot be read.
std::optional<QString> lastTextOf(const QString& code, const QString& file);

} // namespace tambrix
