#pragma once

#include "reports/report_content.h"

#include <QRectF>

class QPainter;

namespace tambrix {

/// Paints one label's page into `place`, in points: a bar a ductor, with the numbers behind it.
void paintLabelSheet(QPainter& painter, const LabelSheet& sheet, const QStringList& notes,
                     const QRectF& place);

} // namespace tambrix
