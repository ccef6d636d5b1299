#pragma once

#include "shell/program_state.h"

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

namespace tambrix {

/// A column of a report table.
struct ReportColumn
{
    QString heading;
    double share = 1; ///< of the table's width, against the sum of all shares
    Qt::Alignment alignment = Qt::AlignRight;
};

/// Rows that belong together: a page break never falls between them.
struct ReportBlock
{
    std::vector<QStringList> rows; ///< one text a column
};

/// One part of the report.
struct ReportTable
{
    QString title;
    std::vector<ReportColumn> columns;
    std::vector<ReportBlock> blocks;
};

/// What a label gives one ductor.
struct DuctorInk
{
    std::int32_t on = 0;    ///< 0.1 cans
    std::int32_t cycle = 0; ///< 0.1 cans
    double share = 0;       ///< its density, 0 to 1
    QString density;
};

/// A page with one label as a picture.
struct LabelSheet
{
    QString title; ///< "Label 6: Beer gold"
    std::array<DuctorInk, kDuctors> ductors;
};

/// What a report says, before it is laid out on pages.
struct Report
{
    QString name; ///< the set-up file's name, or "untitled"
    QString date; ///< of printing, in the system's short form
    QStringList notes;
    std::vector<ReportTable> tables;
    std::vector<LabelSheet> sheets; ///< behind the tables, a page each
};

/// The parts that the report settings ask for, from the working data set. `now` dates the report.
Report reportContent(const ProgramState& state, const QDateTime& now);

/// A page for each of `labels` (0 to 99) instead.
Report labelReport(const ProgramState& state, const std::vector<int>& labels, const QDateTime& now);

} // namespace tambrix
