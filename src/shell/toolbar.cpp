#include "shell/toolbar.h"

#include "controls/line_icon.h"
#include "controls/tones.h"
#include "link/settings_file.h"
#include "shell/mode_toggle.h"
#include "shell/program_state.h"

#include <QAction>
#include <QLabel>
#include <QToolButton>

namespace tambrix {

namespace {

constexpr QSize kIconSize(20, 20);

void setColor(QLabel& mark, const QColor& color)
{
    QPalette palette = mark.palette();
    if (palette.color(QPalette::WindowText) == color)
        return;
    palette.setColor(QPalette::WindowText, color);
    mark.setPalette(palette);
}

QWidget* makeSpring()
{
    auto* spring = new QWidget;
    spring->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    return spring;
}

} // namespace

Toolbar::Toolbar(ProgramState& state)
    : QToolBar(QStringLiteral("Toolbar")), m_state(state), m_mode(new ModeToggle)
{
    setObjectName(QStringLiteral("toolbar"));
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setIconSize(kIconSize);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addWidget(m_mode);
    connect(m_mode, &ModeToggle::clicked, this, &Toolbar::modeClicked);
    addSeparator();
    m_last = addSeparator();
    m_end = addWidget(makeSpring());
    m_unsaved = addMark(QStringLiteral("lblUnsaved"),
                        QStringLiteral("The set-up data holds changes that are in no file"));
    m_unsaved->setText(QStringLiteral("not saved"));
    m_simulated = addMark(QStringLiteral("lblSimulated"),
                          QStringLiteral("The controller is simulated; there is no press"));
    m_simulated->setText(QStringLiteral("simulated"));
    m_port = addMark(QStringLiteral("lblPort"), QStringLiteral("Port and speed in use"));
    showMode(false);
}

QLabel* Toolbar::addMark(const QString& name, const QString& toolTip)
{
    auto* mark = new QLabel;
    mark->setObjectName(name);
    mark->setToolTip(toolTip);
    mark->setTextFormat(Qt::PlainText);
    mark->setContentsMargins(8, 0, 8, 0);
    mark->setForegroundRole(QPalette::WindowText); // not the one of a button
    QFont bold = mark->font();
    bold.setBold(true);
    mark->setFont(bold);
    addWidget(mark);
    return mark;
}

void Toolbar::addTool(const QString& icon, const QString& word, QAction& menuItem)
{
    insertTool(m_last, icon, word, menuItem);
}

void Toolbar::addLastTool(const QString& icon, const QString& word, QAction& menuItem)
{
    insertTool(m_end, icon, word, menuItem);
}

void Toolbar::insertTool(QAction* before, const QString& icon, const QString& word,
                         QAction& menuItem)
{
    auto* tool = new QAction(lineIcon(icon), word, this);
    tool->setObjectName("tool" + word);
    const QString keys = menuItem.shortcut().toString(QKeySequence::NativeText);
    tool->setToolTip(keys.isEmpty() ? word : QStringLiteral("%1 (%2)").arg(word, keys));
    tool->setEnabled(menuItem.isEnabled());
    connect(&menuItem, &QAction::enabledChanged, tool, &QAction::setEnabled);
    connect(tool, &QAction::triggered, &menuItem, &QAction::trigger);
    insertAction(before, tool);
    widgetForAction(tool)->setFocusPolicy(Qt::NoFocus); // the Tab key belongs to the screens
}

void Toolbar::showMode(bool online)
{
    m_mode->showMode(online);
    m_port->setText(portText());
    refresh();
}

void Toolbar::refresh()
{
    const Tones& tones = tonesOf(palette());
    setColor(*m_unsaved, tones.accent);
    setColor(*m_simulated, tones.unusual);
    setColor(*m_port, tones.dim);
    actions().at(actions().indexOf(m_end) + 1)->setVisible(m_state.hasUnsavedChanges());
    actions().at(actions().indexOf(m_end) + 2)->setVisible(m_state.simulated);
}

QString Toolbar::portText() const
{
    const CommSettings settings = readCommSettings(m_state.gLink.CommSettingsFile());
    const QString speed = QString::fromStdString(settings.speed);
    if (!m_state.portName.isEmpty())
        return m_state.portName + u' ' + speed;
    return QStringLiteral("COM%1 %2").arg(settings.port).arg(speed);
}

} // namespace tambrix
