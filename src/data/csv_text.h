#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <variant>
#include <vector>

namespace tambrix {

/// A table as CSV: fields set apart by commas, lines ended by CR LF. A field with a comma, a quote,
/// a blank at an end or a line break stands in quotes. With another separator, in its place.
QString csvText(const std::vector<QStringList>& table, QChar separator = u',');

/// A person's text as a spreadsheet may have it: one that it would take for a formula begins with
/// an apostrophe. `unguarded()` takes that away again.
QString guarded(const QString& text);
QString unguarded(const QString& text);

/// Where a text stops being what it should be, both counted from 1.
struct TextFault
{
    int line = 1;
    int column = 1;
    QString reason;

    /// "Line 3, column 12: no number."
    QString sentence() const;
};

/// One field of a CSV text and where it begins.
struct CsvField
{
    QString text;
    int line = 1;
    int column = 1;

    TextFault fault(const QString& reason) const { return {line, column, reason}; }
};

using CsvRow = std::vector<CsvField>;

using CsvTable = std::variant<std::vector<CsvRow>, TextFault>;

/// Takes a CSV text in UTF-8 apart. More than `mostRows` rows are refused as soon as that is seen.
CsvTable readCsv(const QByteArray& text, std::size_t mostRows);

/// The same for the text that spreadsheets put on the clipboard: tabs between fields, and quotes
/// only round a field with a tab or a line break, so that one inside a field is a character.
CsvTable readTabbed(const QString& text, std::size_t mostRows);

} // namespace tambrix
