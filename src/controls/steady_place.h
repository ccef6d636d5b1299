#pragma once

#include <QWidget>

namespace tambrix {

class ValueLabel;

/// The place of a value that changes many times a second. A label tells its layout of every new
/// text, and the layout then works out the whole window anew, which takes longer than painting the
/// text. The place keeps that to itself and passes on only what changes the room that the label
/// needs.
class SteadyPlace : public QWidget
{
    Q_OBJECT

public:
    explicit SteadyPlace(ValueLabel* label);

    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void askForRoom();

    ValueLabel* m_label;
    QSize m_room; ///< as told last
};

} // namespace tambrix
