#pragma once

#include <QKeySequence>
#include <QMenu>
#include <QString>

#include <functional>
#include <vector>

namespace tambrix {

/// One item of a menu. Without an action it is greyed: what it would do is not there.
struct MenuItem
{
    QString caption; ///< with its access-key mark
    QString name;    ///< control name
    QKeySequence key;
    std::function<void()> action;
    bool checkable = false;
};

/// Adds one item and returns its action.
QAction* addItem(QMenu& menu, const MenuItem& item);

/// Adds the items in order.
void addItems(QMenu& menu, const std::vector<MenuItem>& items);

} // namespace tambrix
