#pragma once

#include "controls/named_controls.h"

#include <QLabel>

#include <span>

class QWidget;

namespace tambrix {

/// A value that the controller shows. It is read out as what it is and what it shows ("Machine
/// CPM: 1234"), anew with every change.
class ValueLabel : public QLabel
{
    Q_OBJECT

public:
    /// `name` is its control name; `what` is what the value is, as a caption or in plain words.
    ValueLabel(const QString& name, const QString& what, const QString& value);

    void setValue(const QString& value);

    /// Keeps room for this text, whatever is shown.
    void setWidest(const QString& widest);
    /// Stands on a ground of its own, for state texts whose colours are given.
    void setOnPlate();

    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;

signals:
    /// The text has become wider than the room that is kept, or was until now; or all texts need
    /// other room, as with another font.
    void roomChanged();

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool fits(const QString& text) const;
    bool fitsAsBefore(const QString& next) const;

    QString m_what;
    QString m_widest;
    bool m_fits = true; ///< what is shown is no wider than the room that is kept
    bool m_onPlate = false;
};

/// A value label of the screens: a quarter larger than its caption, the value at its right.
ValueLabel* makeValueLabel(const QString& name, const QString& value, const QString& what);

/// The Tab key visits `controls` in this order.
void setTabSequence(std::span<QWidget* const> controls);

} // namespace tambrix
