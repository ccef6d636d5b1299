#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace tambrix {

/// Gives the keyboard back to the window below whenever the window that had it closes. The window
/// system does so for one window; of a message box and its progress window that close in one go,
/// it activates the one that is about to vanish, and then none.
class WindowBelow : public QObject
{
    Q_OBJECT

public:
    explicit WindowBelow(QWidget& mainWindow);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void activate();

    QWidget& m_mainWindow;
    QPointer<QWidget> m_parent; ///< of the dialog that was closed last
};

} // namespace tambrix
