#pragma once

#include "reports/report_content.h"

#include <QSizeF>

namespace tambrix {

/// Heights on paper, in points (1/72 inch).
inline constexpr double kPageHeaderHeight = 34;
inline constexpr double kNoteHeight = 14;
inline constexpr double kTableTitleHeight = 30;
inline constexpr double kTableRowHeight = 14;
inline constexpr double kTableHeadingHeight = 18;

enum class LineKind { Note, TableTitle, TableHeading, TableRow };

/// One line of a page.
struct ReportLine
{
    LineKind kind = LineKind::Note;
    double top = 0;        ///< below the page header, in points
    std::size_t table = 0; ///< index into the report's tables
    QStringList cells;     ///< one text a column; a single one for notes and titles
    bool endsBlock = false;
};

struct ReportPage
{
    std::vector<ReportLine> lines;
};

/// Lays the report out on pages with `bodyHeight` points below their header. A block stays on one
/// page, a table's title and headings stay with its first block and are repeated on every page
/// that it goes on to. There is always at least one page.
std::vector<ReportPage> paginate(const Report& report, double bodyHeight);

} // namespace tambrix
