#pragma once

#include <QAbstractButton>

namespace tambrix {

/// The toolbar's one button for the mode: says on line or off line by colour and word, and asks
/// for the other one when it is clicked. What is shown is the mode, not the wish.
class ModeToggle : public QAbstractButton
{
    Q_OBJECT

public:
    ModeToggle();

    void showMode(bool online);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool m_online = false;
};

} // namespace tambrix
