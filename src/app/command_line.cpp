#include "app/command_line.h"

#include "data/version.h"
#include "platform/connection.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

namespace tambrix {

namespace {

const QCommandLineOption kSimulate(QStringLiteral("simulate"),
                                   QStringLiteral("Talk to the built-in simulated controller."));
const QCommandLineOption kSerialDevice(
    QStringLiteral("serial-device"),
    QStringLiteral(
        "Use serial device <PATH>, whatever the settings say; tcp://HOST:PORT is a serial "
        "server in the network."),
    QStringLiteral("PATH"));
const QCommandLineOption kProgramFolder(
    QStringLiteral("program-folder"),
    QStringLiteral("Find Support, Help and set-up files in <DIR> (default: beside the program)."),
    QStringLiteral("DIR"));
const QCommandLineOption kTheme(QStringLiteral("theme"),
                                QStringLiteral("Colours: <light> or <dark>, whatever the desktop "
                                               "says."),
                                QStringLiteral("light|dark"));
const QCommandLineOption kDemo(
    QStringLiteral("demo"),
    QStringLiteral("Run the main job unattended on the simulated controller and write a picture "
                   "of each screen into <DIR>."),
    QStringLiteral("DIR"));
const QCommandLineOption kDemoSize(
    QStringLiteral("demo-size"),
    QStringLiteral("Width and height of the demonstration's main window (default: 1366x768)."),
    QStringLiteral("WxH"));
const QCommandLineOption kHelp({QStringLiteral("h"), QStringLiteral("help")},
                               QStringLiteral("Show this help."));
const QCommandLineOption kVersion({QStringLiteral("v"), QStringLiteral("version")},
                                  QStringLiteral("Show the version."));

/// Options that the window system takes for itself; here only so that they are no error.
void addWindowSystemOptions(QCommandLineParser& parser)
{
    for (const char* name : {"platform", "style"}) {
        QCommandLineOption option(QLatin1String(name), {}, QStringLiteral("name"));
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    }
}

CommandLine saying(const QString& text, int exitCode)
{
    CommandLine line;
    line.text = text;
    line.exitCode = exitCode;
    return line;
}

/// Empty unless it reads like "1366x768".
QSize sizeOf(const QString& text)
{
    const QStringList sides = text.split(u'x');
    return sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
}

Theme themeOf(const QCommandLineParser& parser)
{
    const QString theme = parser.value(kTheme);
    if (theme == QLatin1String("light"))
        return Theme::Light;
    return theme == QLatin1String("dark") ? Theme::Dark : Theme::Desktop;
}

/// What is wrong with the arguments, or nothing.
QString complaint(const QCommandLineParser& parser)
{
    const QStringList files = parser.positionalArguments();
    if (files.size() > 1)
        return QStringLiteral("Unexpected argument '%1'.").arg(files[1]);
    if (!files.isEmpty() && !QFileInfo(files[0]).isFile())
        return QStringLiteral("The file '%1' does not exist.").arg(files[0]);
    if (!files.isEmpty() && parser.isSet(kDemo))
        return QStringLiteral("--demo brings its own set-up file.");
    if (parser.isSet(kDemoSize) && sizeOf(parser.value(kDemoSize)).isEmpty())
        return QStringLiteral("--demo-size is a width and a height: 1366x768.");
    if (parser.isSet(kTheme) && themeOf(parser) == Theme::Desktop)
        return QStringLiteral("--theme is light or dark.");
    const QString folder = parser.value(kProgramFolder);
    if (parser.isSet(kProgramFolder) && !QDir(folder).exists())
        return QStringLiteral("The program folder '%1' does not exist.").arg(folder);
    if (parser.isSet(kSerialDevice) && (parser.isSet(kSimulate) || parser.isSet(kDemo)))
        return QStringLiteral("--serial-device cannot be combined with the simulated controller.");
    if (!connectionFromText(parser.value(kSerialDevice)))
        return QStringLiteral("'%1' is no serial server; it must read tcp://HOST:PORT.")
            .arg(parser.value(kSerialDevice));
    for (const auto* option : {&kSerialDevice, &kDemo}) {
        if (parser.isSet(*option) && parser.value(*option).isEmpty())
            return QStringLiteral("--%1 needs a value.").arg(option->names().constFirst());
    }
    return {};
}

} // namespace

CommandLine parseCommandLine(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.setApplicationDescription(
        QStringLiteral("TAMBRIX: set-up utility of a pneumatic ink-ductor colour-control system."));
    parser.addOptions(
        {kSimulate, kSerialDevice, kProgramFolder, kTheme, kDemo, kDemoSize, kHelp, kVersion});
    parser.addPositionalArgument(QStringLiteral("FILE.sdt"),
                                 QStringLiteral("Open this set-up file, as File > Open does."),
                                 QStringLiteral("[FILE.sdt]"));
    addWindowSystemOptions(parser);

    const bool parsed = parser.parse(arguments);
    if (parsed && parser.isSet(kHelp))
        return saying(parser.helpText(), 0);
    if (parsed && parser.isSet(kVersion))
        return saying(QStringLiteral("TAMBRIX %1\n").arg(QLatin1String(kVersionText)), 0);
    const QString wrong = parsed ? complaint(parser) : parser.errorText();
    if (!wrong.isEmpty())
        return saying(QStringLiteral("tambrix: %1\nTry 'tambrix --help'.\n").arg(wrong),
                      kUsageError);

    CommandLine line;
    line.demoFolder = parser.value(kDemo);
    line.simulate = parser.isSet(kSimulate) || parser.isSet(kDemo);
    line.demoSize = sizeOf(parser.value(kDemoSize));
    line.theme = themeOf(parser);
    line.serialDevice = parser.value(kSerialDevice);
    line.programFolder = parser.value(kProgramFolder);
    if (!parser.positionalArguments().isEmpty())
        line.setupFile = QFileInfo(parser.positionalArguments().constFirst()).absoluteFilePath();
    return line;
}

} // namespace tambrix
