#include "controls/plate.h"

#include <QImage>
#include <QPainter>

#include <cmath>
#include <map>
#include <tuple>

namespace tambrix {

namespace {

/// What a plate looks like, whatever its size.
struct Look
{
    QColor ground;
    QColor line;
    int width;
    double corner;

    /// The side of the square that holds a whole corner and no more than straight lines beside it.
    int side() const { return static_cast<int>(std::ceil(corner)) + width; }
};

void paintAtOnce(QPainter& painter, const QRectF& rect, const Look& look)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look.line, look.width));
    painter.setBrush(look.ground);
    const double in = look.width / 2.0;
    painter.drawRoundedRect(rect.adjusted(in, in, -in, -in), look.corner, look.corner);
    painter.restore();
}

/// Device pixels of a pixel; 0 where pixels do not begin where those of the device do.
int wholeRatio(const QPainter& painter)
{
    const double ratio = painter.device()->devicePixelRatioF();
    const QTransform& transform = painter.worldTransform();
    const bool whole = std::floor(ratio) == ratio && transform.type() <= QTransform::TxTranslate &&
                       std::floor(transform.dx()) == transform.dx() &&
                       std::floor(transform.dy()) == transform.dy();
    return whole ? static_cast<int>(ratio) : 0;
}

/// The smallest plate: four corners and nothing between them.
QImage drawCorners(const Look& look, int ratio)
{
    const int side = 2 * look.side();
    QImage image(QSize(side, side) * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paintAtOnce(painter, QRectF(0, 0, side, side), look);
    return image;
}

const QImage& cornersOf(const Look& look, int ratio)
{
    using Key = std::tuple<QRgb, QRgb, int, double, int>;
    static std::map<Key, QImage> kept; // as many as the palettes have colours for plates
    QImage& image = kept[{look.ground.rgba(), look.line.rgba(), look.width, look.corner, ratio}];
    if (image.isNull())
        image = drawCorners(look, ratio);
    return image;
}

void paintCorners(QPainter& painter, const QRect& rect, const Look& look, int ratio)
{
    const QImage& corners = cornersOf(look, ratio);
    const int side = look.side();
    const QSize part = QSize(side, side) * ratio;
    const QPoint far(rect.right() + 1 - side, rect.bottom() + 1 - side);
    for (const bool right : {false, true})
        for (const bool below : {false, true})
            painter.drawImage(QPoint(right ? far.x() : rect.x(), below ? far.y() : rect.y()),
                              corners,
                              QRect({right ? part.width() : 0, below ? part.height() : 0}, part));
}

/// The ground between the corners, and the line along the four sides.
void paintBetweenCorners(QPainter& painter, const QRect& rect, const Look& look)
{
    const int side = look.side();
    const int line = look.width;
    const QRect columns = rect.adjusted(side, 0, -side, 0); // the whole height
    const QRect rows = rect.adjusted(0, side, 0, -side);    // the whole width
    const int columnsEnd = columns.bottom() + 1 - line;
    const int rowsEnd = rows.right() + 1 - line;
    for (const QRect& strip : {QRect(columns.x(), columns.y(), columns.width(), line),
                               QRect(columns.x(), columnsEnd, columns.width(), line),
                               QRect(rows.x(), rows.y(), line, rows.height()),
                               QRect(rowsEnd, rows.y(), line, rows.height())})
        painter.fillRect(strip, look.line);
    if (look.ground.alpha() == 0)
        return;
    const int beside = side - line;
    for (const QRect& ground : {columns.adjusted(0, line, 0, -line),
                                QRect(rows.x() + line, rows.y(), beside, rows.height()),
                                QRect(rowsEnd - beside, rows.y(), beside, rows.height())})
        painter.fillRect(ground, look.ground);
}

} // namespace

void paintPlate(QPainter& painter, const QRect& rect, const QColor& ground, const QColor& line,
                int width, double corner)
{
    const Look look{ground, line, width, corner};
    const int ratio = wholeRatio(painter);
    const int smallest = 2 * look.side();
    if (ratio == 0 || rect.width() < smallest || rect.height() < smallest)
        return paintAtOnce(painter, rect, look);
    paintCorners(painter, rect, look, ratio);
    paintBetweenCorners(painter, rect, look);
}

} // namespace tambrix
