#pragma once

#include "shell/menu_item.h"

#include <QObject>

class QWidget;

namespace tambrix {

/// The "&Tools" menu: windows and options that go beyond the controller's own screens. Whoever has
/// one adds it here; the menu is hidden while it is empty. An entry by itself sends no byte.
class ToolsMenu : public QObject
{
    Q_OBJECT

public:
    /// `window` is the main window, which the windows of this menu stand above.
    ToolsMenu(QMenu& menu, QWidget& window);

    /// An item that does something once. `item.action` may be set later with the returned action.
    QAction* addCommand(const MenuItem& item);

    /// An item with a check mark, not set until the user ticks it; `switched` hears every change.
    /// Kept from one run to the next under its name, once there is a file to keep it in.
    QAction* addOption(const MenuItem& item, std::function<void(bool)> switched);

    /// An item that shows a window beside the others: made when it is first asked for, with the
    /// main window as parent, and brought to the front when it is there already.
    QAction* addWindow(const MenuItem& item, std::function<QWidget*(QWidget& parent)> make);

    void addSeparator();

    /// Keeps the options in this INI file from now on, and sets them as it says.
    void keepIn(const QString& iniFile);

private:
    QAction* add(const MenuItem& item);

    QMenu& m_menu;
    QWidget& m_window;
    QString m_iniFile;
};

} // namespace tambrix
