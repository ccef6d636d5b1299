#include "shell/tools_menu.h"

#include "data/own_file.h"

#include <QAction>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <utility>

namespace tambrix {

namespace {

QString keyOf(const QAction& option)
{
    return QStringLiteral("Tools/") + option.objectName();
}

void bringToFront(QWidget& window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

ToolsMenu::ToolsMenu(QMenu& menu, QWidget& window)
    : QObject(&window), m_menu(menu), m_window(window)
{
    m_menu.menuAction()->setVisible(false);
}

QAction* ToolsMenu::add(const MenuItem& item)
{
    m_menu.menuAction()->setVisible(true);
    return addItem(m_menu, item);
}

QAction* ToolsMenu::addCommand(const MenuItem& item)
{
    return add(item);
}

QAction* ToolsMenu::addOption(const MenuItem& item, std::function<void(bool)> switched)
{
    QAction* option = add(item);
    option->setCheckable(true);
    option->setEnabled(true);
    connect(option, &QAction::toggled, this, [this, option, act = std::move(switched)](bool on) {
        if (!m_iniFile.isEmpty())
            keepOwnSetting(m_iniFile, keyOf(*option), on);
        act(on);
    });
    return option;
}

QAction* ToolsMenu::addWindow(const MenuItem& item, std::function<QWidget*(QWidget& parent)> make)
{
    MenuItem opening = item;
    opening.action = [this, open = std::move(make), shown = std::make_shared<QPointer<QWidget>>()] {
        if (shown->isNull())
            *shown = open(m_window);
        bringToFront(**shown);
    };
    return add(opening);
}

void ToolsMenu::addSeparator()
{
    m_menu.addSeparator();
}

void ToolsMenu::keepIn(const QString& iniFile)
{
    m_iniFile = iniFile;
    for (QAction* option : m_menu.actions()) {
        if (option->isCheckable())
            option->setChecked(ownSetting(m_iniFile, keyOf(*option)).toBool());
    }
}

} // namespace tambrix
