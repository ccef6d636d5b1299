#include "app/look_tools.h"

#include "controls/calm_style.h"
#include "shell/main_window.h"
#include "shell/toolbar.h"
#include "shell/tools_menu.h"

#include <QApplication>
#include <QProcess>

namespace tambrix {

void addLookTools(MainWindow& window, const QString& programFolder)
{
    ToolsMenu& tools = window.tools();
    tools.addOption(
        {QStringLiteral("Lar&ge Controls"), QStringLiteral("mnuToolsLargeControls"), {}, {}},
        [](bool large) { CalmStyle::setLargeControls(large); });
    tools.addOption(
        {QStringLiteral("Hide &Toolbar"), QStringLiteral("mnuToolsHideToolbar"), {}, {}},
        [&window](bool hidden) { window.toolbar().setVisible(!hidden); });
    tools.addCommand({QStringLiteral("S&imulated Controller"),
                      QStringLiteral("mnuToolsSimulated"),
                      {},
                      [programFolder] {
                          QProcess::startDetached(QApplication::applicationFilePath(),
                                                  {QStringLiteral("--simulate"),
                                                   QStringLiteral("--program-folder"),
                                                   programFolder});
                      }});
}

} // namespace tambrix
