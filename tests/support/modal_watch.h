#pragma once

#include <QApplication>
#include <QTimer>

#include <functional>

namespace tambrix {

/// Waits, while the event loop runs, for a modal window of one kind and does something with it
/// once: the scripted hand for windows that are open inside a call.
template <typename Window> class ModalWatch
{
public:
    explicit ModalWatch(std::function<void(Window&)> action)
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this, act = std::move(action)] {
            auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
            if (window == nullptr || m_seen)
                return;
            m_seen = true;
            act(*window);
        });
        m_timer.start(0);
    }

    bool seen() const { return m_seen; }

private:
    QTimer m_timer;
    bool m_seen = false;
};

} // namespace tambrix
