#pragma once

#include <QByteArray>
#include <QPainterPath>

namespace tambrix {

/// The lines of a drawing in SVG, in the drawing's own units. Takes what the program's line
/// drawings are made of: `path` elements with the steps M, L, H, V, C and Z, absolute or relative.
/// Another element is left out; another step ends its path.
QPainterPath lineDrawing(const QByteArray& svg);

} // namespace tambrix
