#pragma once

#include <QString>
#include <QStringList>

#include <variant>
#include <vector>

namespace tambrix {

/// A table as CSV: fields set apart by commas, lines ended by CR LF. A field with a comma, a quote,
/// a blank at an end or a line break stands in quotes.
QString csvText(const std::vector<QStringList>& table);

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

/// Takes a CSV text apart. More than `mostRows` rows are refused as soon as that is seen.
std::variant<std::vector<CsvRow>, TextFault> readCsv(const QString& text, std::size_t mostRows);

} // namespace tambrix
