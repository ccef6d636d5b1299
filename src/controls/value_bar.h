#pragma once

#include "controls/picture.h"

#include <span>

namespace tambrix {

/// A horizontal bar beside a number. A value above the bar's end fills it and shows an amber end.
class ValueBar : public Picture
{
    Q_OBJECT

public:
    explicit ValueBar(const QString& name);

    /// Shows `share` (0 to 1, more is cut with its mark) of the bar; `spoken` is the number.
    void show(double share, const QString& spoken);

    /// The value is not known: an empty track.
    void showNothing() { show(0, QStringLiteral("-")); }

    double share() const { return m_share; }

    QString spokenValue() const override { return m_spoken; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double m_share = 0;
    QString m_spoken = QStringLiteral("-");
};

/// The end of a common scale for bars that show `counts`: the next 1, 2 or 5 with zeros that is
/// no smaller than the largest one, and 1 at least.
double scaleEnd(std::span<const double> counts);

} // namespace tambrix
