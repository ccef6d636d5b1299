#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>

class QWidget;

namespace tambrix {

/// Paints a window at most some 30 times a second. Its values change with every pass of the line,
/// up to 150 times a second; painting each of them would keep the line waiting and nobody could
/// read them. While the program waits for an answer anyway, painting costs the line nothing: as
/// long as there are such waits, the window is painted in them.
class FrameLimit : public QObject
{
public:
    explicit FrameLimit(QWidget& window);

    /// The program has sent a byte and waits for the answer: paints what is due.
    void paintInWait();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    bool lineInUse() const;
    qint64 untilNextFrame() const;
    void paint();

    QWidget& m_window;
    QElapsedTimer m_sincePainted;
    QElapsedTimer m_sinceWait;
    QBasicTimer m_next; ///< runs while there is something to paint
    bool m_painting = false;
};

} // namespace tambrix
