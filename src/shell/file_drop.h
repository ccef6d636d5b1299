#pragma once

#include <QObject>
#include <QString>

#include <functional>

class QMimeData;
class QWidget;

namespace tambrix {

/// Lets one set-up file be dropped on a window.
class FileDrop : public QObject
{
public:
    /// `opened` gets the file's path, after the drag is over.
    FileDrop(QWidget& window, std::function<void(const QString&)> opened);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void(const QString&)> m_opened;
};

/// The one set-up file that is dragged; empty for anything else.
QString draggedSetupFile(const QMimeData& data);

} // namespace tambrix
