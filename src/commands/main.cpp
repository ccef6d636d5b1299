#include "commands/command_line_run.h"
#include "platform/terminal.h"

#include <QCoreApplication>

int main(int argc, char* argv[])
{
    const tambrix::Utf8Console console;
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tambrix-cli"));
    return tambrix::runCommandLine(QCoreApplication::arguments());
}
