#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>

class QWidget;

namespace tambrix {

/// Paints a window at most some 30 times a second. Its values change with every pass of the line,
/// up to 150 times a second; painting each of them would keep the line waiting and nobody could
/// read them.
class FrameLimit : public QObject
{
public:
    explicit FrameLimit(QWidget& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    QWidget& m_window;
    QElapsedTimer m_sincePainted;
    QBasicTimer m_next; ///< runs while there is something to paint
};

} // namespace tambrix
