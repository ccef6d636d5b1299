#pragma once

#include <QWidget>

class QLabel;

namespace tambrix {

/// The place of a label whose text changes many times a second. A label tells its layout of every
/// new text, and the layout then works out the whole window anew, which takes longer than painting
/// the text. The place passes on only what changes the room that the label needs.
class SteadyPlace : public QWidget
{
    Q_OBJECT

public:
    explicit SteadyPlace(QLabel* label);

    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QLabel* m_label;
    QSize m_room; ///< as told last
};

} // namespace tambrix
