#pragma once

#include "controls/value_label.h"

namespace tambrix {

/// A label whose text is as large as its place lets it be: never cut, whatever it says and
/// whenever it is shown. The size is chosen for `widest`, so that the text does not jump.
class FittedLabel : public ValueLabel
{
    Q_OBJECT

public:
    FittedLabel(const QString& name, const QString& what, const QString& value,
                const QString& widest);

    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// The label's font, as large as the place lets it be.
    QFont fittedFont();

    /// What was measured last: measuring takes longer than painting.
    struct Measured
    {
        QFont font;
        QString text;
        QSize place;
        int points = 0;
    };

    QString m_widest;
    Measured m_measured;
};

} // namespace tambrix
