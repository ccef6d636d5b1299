#pragma once

#include "data/csv_text.h"
#include "data/label_names.h"
#include "data/setup_data.h"

#include <variant>

namespace tambrix {

/// A data set and what people call its labels.
struct NamedSetup
{
    SetupDataRecord record;
    LabelNames names;

    bool operator==(const NamedSetup&) const = default;
};

/// A whole data set as text, for spreadsheets and version control: every entry with its name,
/// register, unit and value, always in the same order, one a line. Reading it back gives the same
/// data set, bit for bit, and the same labels' names. The entries' names and units are for people:
/// reading ignores them.

/// Longer texts are refused before they are looked at, bytes: a data set takes some 150 KB.
inline constexpr qint64 kLongestSetupText = 1 << 20;

/// CSV: a line "TAMBRIX data set", format number, program version; a line of captions; then a line
/// for every entry, the first one of a label with the label's name. UTF-8, lines end in CR LF.
QByteArray setupCsv(const NamedSetup& setup);

/// JSON: an object with format, formatVersion, version, the list of entries and that of the
/// labels' names. UTF-8.
QByteArray setupJson(const NamedSetup& setup);

/// The data set of such a text. Refused with line and column: a value that is no plain whole
/// number of 32 bits (no decimal comma, no thousands separator), an entry that is missing or there
/// twice, and whatever else does not belong there.
std::variant<NamedSetup, TextFault> readSetupCsv(const QByteArray& text);

/// The same for JSON; a fault inside the list is told with the number of the entry.
std::variant<NamedSetup, TextFault> readSetupJson(const QByteArray& text);

} // namespace tambrix
