#pragma once

#include <QString>

namespace tambrix {

/// Message text with tabs as rich text: the lines from the first tab to the last become one table,
/// a column a tab. A box's own tab stops stand too close for long names and for large type.
QString tabbedTextAsTable(const QString& text);

} // namespace tambrix
