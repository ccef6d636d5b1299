#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>

#include <vector>

class QWidget;

namespace tambrix {

class FrameLimit;

/// The waits of the line, in which windows are painted. A byte is sent and waited for up to a
/// thousand times a second, and mostly there is nothing to paint: a plain list, since a signal
/// would take longer to tell than all of its hearers to find that out.
class LineWaits
{
public:
    /// The program has sent a byte and waits for the answer.
    void begin();

private:
    friend class FrameLimit;
    std::vector<FrameLimit*> m_frames;
};

/// Paints a window at most some 30 times a second. Its values change with every pass of the line,
/// up to 150 times a second; painting each of them would keep the line waiting and nobody could
/// read them. While the program waits for an answer anyway, painting costs the line nothing: as
/// long as there are such waits, the window is painted in them.
class FrameLimit : public QObject
{
public:
    /// `waits` must outlive the window.
    FrameLimit(QWidget& window, LineWaits& waits);
    ~FrameLimit() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    friend class LineWaits;

    void paintInWait();
    bool lineInUse() const;
    qint64 untilNextFrame() const;
    void paint();

    QWidget& m_window;
    LineWaits& m_waits;
    QElapsedTimer m_sincePainted;
    QElapsedTimer m_sinceWait;
    QBasicTimer m_next; ///< runs while there is something to paint
    bool m_painting = false;
};

} // namespace tambrix
