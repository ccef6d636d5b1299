#pragma once

#include <QFont>
#include <QSize>
#include <QString>

class QWidget;

namespace tambrix {

/// Gives the widget and what it holds a font of this many points.
void setPoints(QWidget& widget, int points);

/// The largest point size between `smallest` and `largest` at which `text`, its lines unbroken,
/// fits into `space` (device-independent pixels); `smallest` when none does.
int fittingPointSize(QFont font, const QString& text, const QSize& space, int smallest,
                     int largest);

} // namespace tambrix
