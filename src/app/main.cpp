#include "app/appearance.h"
#include "app/command_line.h"
#include "app/event_loop.h"
#include "app/first_run.h"
#include "app/line_tools.h"
#include "app/look_tools.h"
#include "app/window_memory.h"
#include "datasets/datasets_tools.h"
#include "demo/chapters.h"
#include "help/help_desk.h"
#include "history/history_tools.h"
#include "maintenance/comm_port_dialog.h"
#include "maintenance/program_commands.h"
#include "platform/steady_clock.h"
#include "reports/reports.h"
#include "screens/color_control_screen.h"
#include "screens/io_status_screen.h"
#include "screens/main_display.h"
#include "screens/setup_screen.h"
#include "screens/shift_data_screen.h"
#include "shell/main_window.h"
#include "shell/patient_port.h"
#include "shell/qt_prompts.h"
#include "shell/tools_menu.h"
#include "simulator/inprocess/built_in_controller.h"

#include <QApplication>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
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

/// What the menu items do whose rooms stand beside the shell. `programs` and `line` are made
/// after the menu.
MenuCommands menuCommands(ProgramState& state, Reports& reports, HelpDesk& help,
                          std::optional<ProgramCommands>& programs,
                          const std::optional<LineTools>& line)
{
    MenuCommands commands;
    commands.reportSetup = [&reports] { reports.showSetup(); };
    commands.printReport = [&reports] { reports.print(); };
    commands.downloadProgram = [&programs] { programs->downloadProgram(); };
    commands.targetBoard = [&programs] { programs->showTargetBoard(); };
    commands.commPort = [&state, &line] {
        CommPortDialog dialog(state, QApplication::activeWindow());
        dialog.setUsedInstead(line->usedInsteadOfNumber());
        dialog.exec();
    };
    commands.helpTopics = [&help] { help.showTopics(); };
    commands.about = [&help] { help.showAbout(); };
    return commands;
}

/// Where this user's own settings are kept; the user may not be allowed to write to the program
/// folder.
QString userSettings()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
           QStringLiteral("/tambrix.ini");
}

/// What the command line says about the port, as it was typed.
QString startedWith(const CommandLine& line)
{
    if (line.simulate)
        return QStringLiteral("--simulate");
    return line.serialDevice.isEmpty() ? QString()
                                       : QStringLiteral("--serial-device ") + line.serialDevice;
}

/// The command line's device goes before the connection that is kept.
Connection connectionOf(const CommandLine& line, const QDir& data)
{
    if (line.serialDevice.isEmpty())
        return readConnection(connectionFile(data));
    return connectionFromText(line.serialDevice).value_or(Connection{});
}

/// Says what there is to say before there is a window, and gives the exit code back.
int sayAndLeave(const CommandLine& line, int& argc, char* argv[])
{
#ifdef Q_OS_WIN
    const QApplication application(argc, argv); // a program with windows has no console there
    QMessageBox box(line.exitCode == 0 ? QMessageBox::Information : QMessageBox::Critical,
                    QStringLiteral("TAMBRIX"), line.text);
    box.exec();
#else
    Q_UNUSED(argc)
    Q_UNUSED(argv)
    std::fputs(qPrintable(line.text), line.exitCode == 0 ? stdout : stderr);
#endif
    return line.exitCode;
}

/// A demonstration leaves no trace, and the simulated controller needs no serial settings: what
/// they would keep goes to `scratch`.
ProgramFolders foldersFor(const CommandLine& line, const QTemporaryDir& scratch)
{
    const QDir program(line.programFolder.isEmpty() ? QApplication::applicationDirPath()
                                                    : line.programFolder);
    const QDir user(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
    ProgramFolders folders = chooseFolders(program, user);
    if (line.simulate)
        folders.settings = QDir(scratch.filePath(QStringLiteral("Support")));
    if (!line.demoFolder.isEmpty())
        folders.data = QDir(scratch.path());
    return folders;
}

/// Shows the window, as it was left the last time, and runs the program to its end.
int showAndRun(MainWindow& window, BuiltInController& controller, const CommandLine& line)
{
    const bool demo = !line.demoFolder.isEmpty(); // leaves no trace on the user's machine
    std::optional<WindowMemory> memory;
    if (!demo) {
        memory.emplace(window, userSettings());
        window.files().recent().keepIn(userSettings());
        window.tools().keepIn(userSettings());
    }
    window.show();
    if (!line.setupFile.isEmpty())
        QTimer::singleShot(0, &window, [&] { window.files().openFile(line.setupFile); });

    DemoStage stage(window, controller.board(), controller.line(), QDir(line.demoFolder));
    if (!line.demoSize.isEmpty())
        stage.setSize(line.demoSize);
    if (demo)
        stage.run(demonstration(stage));
    return QApplication::exec();
}

int runProgram(const CommandLine& line)
{
    SteadyClock clock;
    QtPrompts qtPrompts;
    BoxWatch prompts(qtPrompts);
    ChosenPort realPort(clock);
    BuiltInController controller(clock);
    SerialPort& basePort = line.simulate ? controller.port() : realPort;
    LineRecorder recorder(clock);
    TracedPort traced(basePort, recorder);
    PatientPort port(traced, clock);

    const QTemporaryDir scratch;
    ProgramState state(foldersFor(line, scratch), port, clock, prompts);
    port.tellWaits([&state] { state.lineWaits.begin(); });
    state.simulated = line.simulate;
    realPort.use(connectionOf(line, state.dataRoot));
    state.portName = line.simulate ? QString() : connectionText(realPort.connection());
    Reports reports(state);
    HelpDesk help(state);
    std::optional<ProgramCommands> programs;
    std::optional<LineTools> lineTools;
    MainWindow window(state, screens(), menuCommands(state, reports, help, programs, lineTools));
    programs.emplace(state, window, window.backgroundPoll());
    DatasetsTools datasets(state, window);
    datasets.setLabelReports([&reports](const auto& labels) { reports.previewLabels(labels); },
                             [&reports](const auto& labels) { reports.saveLabelsPdf(labels); });
    const HistoryTools history(state, window, clock);
    lineTools.emplace(
        state, window,
        LineTools::Line{clock, recorder, prompts, basePort, line.simulate ? nullptr : &realPort},
        startedWith(line));

    const FirstRun firstRun(state, line.simulate);
    reports.addTo(window.tools());
    addLookTools(window, state.programFolder.path());

    return showAndRun(window, controller, line);
}

/// Looked up before the window system takes the option out of the arguments.
bool asksForStyle(int argc, char* argv[])
{
    return qEnvironmentVariableIsSet("QT_STYLE_OVERRIDE") ||
           std::any_of(argv, argv + argc, [](const char* argument) {
               return QByteArray(argument).startsWith("-style") ||
                      QByteArray(argument).startsWith("--style");
           });
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
    if (!line.demoFolder.isEmpty() && !QDir().mkpath(line.demoFolder)) {
        line.text = QStringLiteral("tambrix: cannot make the folder '%1'.\n").arg(line.demoFolder);
        line.exitCode = kUsageError;
    }
    if (!line.text.isEmpty())
        return sayAndLeave(line, argc, argv);

    if (!line.demoFolder.isEmpty()) // nobody is there to use the system's own dialogs
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    useOwnEventLoop();
    const bool styleAskedFor = asksForStyle(argc, argv);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("TAMBRIX"));
    applyAppearance(styleAskedFor, line.theme);
    return runProgram(line);
}
