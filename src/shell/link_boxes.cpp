#include "shell/link_boxes.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QKeyEvent>

namespace tambrix {

namespace {

constexpr int kLongestLook = 200; // ms for what the user did during the wait

/// Lets nothing of the user's input through but what closes the main window.
class ClosingOnly : public QObject
{
public:
    ClosingOnly() { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::ShortcutOverride: // accepted: no shortcut is looked for
            event->setAccepted(!static_cast<QKeyEvent*>(event)->matches(QKeySequence::Quit));
            return event->isAccepted();
        case QEvent::Close:
            event->ignore();
            return QApplication::activeModalWidget() != nullptr;
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::ContextMenu:
            return true;
        default:
            return false;
        }
    }
};

} // namespace

BoxAnswer LinkBoxes::showMessage(const OperatorBox& box)
{
    {
        const ClosingOnly filter;
        // Held-back input wakes nobody: without this call it would not be looked for.
        QAbstractEventDispatcher::instance()->wakeUp();
        QCoreApplication::processEvents(QEventLoop::AllEvents, kLongestLook);
    }
    return m_person.showMessage(box);
}

} // namespace tambrix
