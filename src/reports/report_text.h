#pragma once

#include <QFont>
#include <QRectF>

class QPainter;

namespace tambrix {

/// Sizes of type on paper, in points.
inline constexpr int kReportTextSize = 9;
inline constexpr int kReportTitleSize = 13;

/// A font for a painter that is scaled to points.
QFont reportFont(int size, bool bold = false);

/// A text that is too wide for its place is drawn narrower: a report cuts no value short. Only a
/// file name may be longer than that.
void drawReportText(QPainter& painter, const QRectF& place, Qt::Alignment alignment,
                    const QString& text);

} // namespace tambrix
