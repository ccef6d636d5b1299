#pragma once

#include <QToolBar>

class QAction;
class QLabel;

namespace tambrix {

class ModeToggle;
class ProgramState;

/// The bar below the menus: the mode, the most used menu items with icon and word, and at its
/// right end what one must not forget: unsaved changes, the simulated controller, the port. Every
/// one of its actions is in the menus as well; the Tools menu hides it.
class Toolbar : public QToolBar
{
    Q_OBJECT

public:
    explicit Toolbar(ProgramState& state);

    /// Adds a button that does what the menu item does, and is enabled when it is. `icon` is a
    /// name for lineIcon().
    void addTool(const QString& icon, const QString& word, QAction& menuItem);
    /// The same, behind all that is added later.
    void addLastTool(const QString& icon, const QString& word, QAction& menuItem);
    /// A line behind the tools so far.
    void addGap() { insertSeparator(m_last); }

    /// Shows the mode, and the port that it uses now.
    void showMode(bool online);

    /// Brings the marks at the right end up to date.
    void refresh();

signals:
    void modeClicked();

private:
    void insertTool(QAction* before, const QString& icon, const QString& word, QAction& menuItem);
    QLabel* addMark(const QString& name, const QString& toolTip);
    QString portText() const;

    ProgramState& m_state;
    ModeToggle* m_mode;
    QAction* m_last; ///< tools stand before it, the last ones behind it
    QAction* m_end;  ///< marks stand behind it
    QLabel* m_unsaved;
    QLabel* m_simulated;
    QLabel* m_port;
};

} // namespace tambrix
