#pragma once

#include <QColor>
#include <QRect>

class QPainter;

namespace tambrix {

/// How round the corners of a plate are, in pixels.
inline constexpr double kPlateCorner = 5;

/// Paints a flat ground with round corners and a line of `width` pixels around it, inside `rect`.
/// Most of what changes on a screen stands on such a plate, so it is painted again with every
/// change: its corners are drawn once and kept, since a round corner takes ten times what all the
/// rest of the plate does.
void paintPlate(QPainter& painter, const QRect& rect, const QColor& ground, const QColor& line,
                int width = 1, double corner = kPlateCorner);

} // namespace tambrix
