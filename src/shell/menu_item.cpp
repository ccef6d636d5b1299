#include "shell/menu_item.h"

#include <QAction>

namespace tambrix {

QAction* addItem(QMenu& menu, const MenuItem& item)
{
    QAction* action = menu.addAction(item.caption);
    action->setObjectName(item.name);
    action->setShortcut(item.key);
    action->setCheckable(item.checkable);
    action->setEnabled(static_cast<bool>(item.action));
    if (item.action)
        QObject::connect(action, &QAction::triggered, &menu, [run = item.action] { run(); });
    return action;
}

void addItems(QMenu& menu, const std::vector<MenuItem>& items)
{
    for (const MenuItem& item : items)
        addItem(menu, item);
}

} // namespace tambrix
