#pragma once

#include "controls/picture.h"

#include <optional>
#include <vector>

class QPainter;

namespace tambrix {

/// The last minutes of one value as a line, with the band in which it moved.
class Trend : public Picture
{
    Q_OBJECT

public:
    struct Point
    {
        double ago = 0; ///< s before now
        int low = 0;
        int high = 0;
        int last = 0;
    };

    /// `name` is what the value is of, `span` how far back it goes, s; `step` how far apart its
    /// points are while it is read without a pause, s.
    Trend(const QString& name, double span, double step);

    /// The oldest first.
    void show(std::vector<Point> points);

    /// "1195 to 1205 in the last 10 min", "not read in the last 10 min".
    QString spokenValue() const override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString minutes() const;
    void drawPoints(QPainter& painter, const QRectF& frame) const;
    std::size_t endOfRun(std::size_t from) const;

    double m_span;
    double m_step;
    std::vector<Point> m_points;
};

} // namespace tambrix
