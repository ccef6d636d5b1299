#pragma once

#include <QObject>

namespace tambrix {

/// Makes the title bars of dark windows dark. Windows paints them light unless it is asked, and
/// asks nobody which colours the program has; elsewhere the desktop sees to it.
class FrameTone : public QObject
{
public:
    /// Watches every window of the application, which owns it.
    explicit FrameTone(QObject& application);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tambrix
