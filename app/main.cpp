#include "app/built_in_controller.h"
#include "app/command_line.h"
#include "app/demo_chapters.h"
#include "maintenance/comm_port_dialog.h"
#include "maintenance/program_commands.h"
#include "platform/patient_port.h"
#include "platform/qt_prompts.h"
#include "platform/qt_serial_port.h"
#include "platform/steady_clock.h"
#include "screens/color_control_screen.h"
#include "screens/io_status_screen.h"
#include "screens/setup_screen.h"
#include "screens/shift_data_screen.h"
#include "shell/main_display.h"
#include "shell/main_window.h"

#include <QApplication>

#include <cstdio>
#include <optional>

using namespace tambrix;

namespace {

template <typename Concrete> ScreenFactory screen()
{
    return [](ProgramState& state) { return std::make_unique<Concrete>(state); };
}

/// The child screens, in Window-menu order.
ScreenTable screens()
{
    return {screen<MainDisplay>(), screen<SetupScreen>(), screen<ShiftDataScreen>(),
            screen<ColorControlScreen>(), screen<IoStatusScreen>()};
}

int sayAndLeave(const CommandLine& line)
{
    std::fputs(qPrintable(line.text), line.exitCode == 0 ? stdout : stderr);
    return line.exitCode;
}

int runProgram(const CommandLine& line)
{
    SteadyClock clock;
    QtPrompts prompts;
    QtSerialPort realPort(clock, line.serialDevice);
    BuiltInController controller(clock);
    PatientPort port(line.simulate ? controller.port() : realPort, clock);

    const QString folder =
        line.programFolder.isEmpty() ? QApplication::applicationDirPath() : line.programFolder;
    ProgramState state(QDir(folder), port, clock, prompts);

    std::optional<ProgramCommands> programs; // needs the window that the menu is on
    MenuCommands commands;
    commands.downloadProgram = [&programs] { programs->downloadProgram(); };
    commands.targetBoard = [&programs] { programs->showTargetBoard(); };
    commands.commPort = [&state] { CommPortDialog(state, QApplication::activeWindow()).exec(); };
    MainWindow window(state, screens(), std::move(commands));
    programs.emplace(state, window, window.backgroundPoll());
    window.show();

    DemoStage stage(window, controller, QDir(line.demoFolder));
    if (!line.demoFolder.isEmpty())
        stage.run(demonstration(stage));
    return QApplication::exec();
}

int demoFolderMissing(const CommandLine& line)
{
    std::fprintf(stderr, "tambrix: cannot make the folder '%s'.\n", qPrintable(line.demoFolder));
    return 2;
}

} // namespace

int main(int argc, char* argv[])
{
    CommandLine line;
    {
        // The arguments are read before there is a window system: --version needs none.
        int count = argc;
        const QCoreApplication reader(count, argv);
        line = parseCommandLine(QCoreApplication::arguments());
    }
    if (!line.text.isEmpty())
        return sayAndLeave(line);
    if (!line.demoFolder.isEmpty() && !QDir().mkpath(line.demoFolder))
        return demoFolderMissing(line);

    if (!line.demoFolder.isEmpty()) // nobody is there to use the system's own dialogs
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("TAMBRIX"));
    return runProgram(line);
}
