#pragma once

#include "recorder/sql_file.h"

namespace tambrix {

/// Version of the tables below. A program reads its own and older ones.
inline constexpr int kHistoryVersion = 1;

/// The table of one of `kSpeedBins`.
QString speedTable(std::size_t bin);

/// The version of an open file; 0 for one without tables.
int historyVersion(SqlFile& file);

/// Makes the tables in a new file, or brings an older file to this version.
SqlResult makeHistoryTables(SqlFile& file);

} // namespace tambrix
