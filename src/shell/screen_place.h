#pragma once

#include <QPointer>
#include <QWidget>

class QLabel;
class QVBoxLayout;

namespace tambrix {

/// Where the main window shows its one child screen, below the screen's title. Here, and nowhere
/// else, the step of scale is chosen: all screens grow with the window and the desktop's font.
class ScreenPlace : public QWidget
{
    Q_OBJECT

public:
    ScreenPlace();

    /// Shows `screen`, which must outlive its stay here.
    void put(QWidget& screen);
    /// Hides it again.
    void take(QWidget& screen);

    /// In per cent; see scaleStep().
    int step() const { return m_step; }

    /// What the screen needs in the smallest type: a window may shrink as far as that.
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void rescale();

    QLabel* m_title;
    QVBoxLayout* m_layout;
    int m_step = 0;
    QFont m_desktop;
};

} // namespace tambrix
