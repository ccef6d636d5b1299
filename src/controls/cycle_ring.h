#pragma once

#include "controls/picture.h"

namespace tambrix {

/// One cycle as a ring that begins at the top: the ON window filled, and its numbers inside.
class CycleRing : public Picture
{
    Q_OBJECT

public:
    explicit CycleRing(const QString& name);

    /// Durations in 0.1 cans; a cycle below 1 is none, and shows a dash.
    void show(int on, int cycle);

    QString spokenValue() const override;
    QSize sizeHint() const override { return minimumSizeHint() * 3 / 2; }
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString numbers() const;
    void paintNumbers(QPainter& painter, const QRectF& hole) const;

    int m_on = 0;
    int m_cycle = 0;
};

} // namespace tambrix
