#pragma once

#include "data/comparison.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace tambrix {

/// "No differences.", or how many values differ.
QString verdictText(const Differences& differences);

/// How a write ended: "3 written, 2 verified, 1 not."
QString outcomeText(const std::vector<RestoreRow>& rows);

/// How many values went into the working data, and how many found no place there.
QString takenText(std::size_t taken, std::size_t left);

/// What is known of an entry: what became of it, else what speaks against it.
QString stateText(const ComparedEntry& entry);

/// The comparison as a table, its head first: what differs, and what speaks against it.
std::vector<QStringList> comparisonTable(const Comparison& comparison, const QString& left,
                                         const QString& right);

/// Fields set apart by tabs, lines by line breaks: what a spreadsheet takes from the clipboard.
QString asTabText(const std::vector<QStringList>& table);

/// The table as a page to print, under a title.
QString asHtml(const std::vector<QStringList>& table, const QString& title);

} // namespace tambrix
