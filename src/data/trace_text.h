#pragma once

#include "data/line_trace.h"

#include <QByteArray>
#include <QString>

#include <optional>

class QDateTime;
class QDir;
class QIODevice;

namespace tambrix {

/// The exchanges as text, one byte a line: time in seconds, ">" to the board or "<" from it, and
/// the byte in hexadecimal; "**" where it belongs to the passcode. The newest `most` of them, from
/// the first frame on; "# board in read mode" heads what begins in a mode.
QByteArray traceText(const LineTrace& trace, std::uint64_t most = UINT64_MAX);

/// Saves the newest 2,000 exchanges as a file named after the time `now` into `folder`, which is
/// made when it is missing, and keeps the newest 20 such files. Returns why it could not, or
/// nothing.
std::optional<QString> keepTrace(const LineTrace& trace, const QDir& folder, const QDateTime& now);

/// Reads such a text into `trace`, masking the passcode, and returns what is wrong with it: the
/// first line that is none of a trace, or nothing. Text that is longer than `trace` has room for
/// leaves its newest exchanges.
QString readTrace(QIODevice& text, LineTrace& trace);

/// The same for a file.
QString loadTrace(const QString& path, LineTrace& trace);

} // namespace tambrix
