#include "commands/command_line_run.h"

#include "commands/command.h"
#include "commands/failure.h"
#include "data/version.h"

#include <algorithm>
#include <cstdio>

namespace tambrix {

namespace {

const QCommandLineOption kHelp({QStringLiteral("h"), QStringLiteral("help")},
                               QStringLiteral("Show this help."));

int say(std::FILE* stream, const QString& text, ExitCode code)
{
    std::fputs(text.toUtf8().constData(), stream);
    return static_cast<int>(code);
}

QString overview()
{
    QString text =
        QStringLiteral("Usage: tambrix-cli COMMAND [options] ARGUMENTS\n"
                       "The set-up utility of the ink-ductor controller, without a window.\n\n"
                       "Commands:\n");
    for (const Command& command : commandTable())
        text += QStringLiteral("  %1%2\n")
                    .arg((command.name + u' ' + command.arguments).leftJustified(30),
                         command.summary.section(u'.', 0, 0));
    return text +
           QStringLiteral("\n'tambrix-cli COMMAND --help' tells its options, with an example.\n\n"
                          "Exit codes:\n"
                          "  0  done, or both sides are the same\n"
                          "  1  compared, and they differ\n"
                          "  2  wrong command line, or a value that was refused\n"
                          "  3  no communication with the controller\n"
                          "  4  a value does not stand on the controller as it was written\n"
                          "  5  a file cannot be read or written, or nobody reads the output\n"
                          "  6  interrupted\n"
                          "  7  refused for safety\n");
}

QString helpOf(const Command& command, const QCommandLineParser& parser)
{
    QString options = parser.helpText();
    options.remove(0, options.indexOf(QLatin1String("\nOptions:")));
    return QStringLiteral("Usage: tambrix-cli %1 [options] %2\n%3\n%4\nExample: %5\n")
        .arg(command.name, command.arguments, command.summary, options, command.example);
}

void checkArguments(const Command& command, const QStringList& arguments)
{
    const auto count = arguments.size();
    if (count < command.fewest || (command.most >= 0 && count > command.most))
        throw Failure{ExitCode::Usage, QStringLiteral("usage: tambrix-cli %1 [options] %2")
                                           .arg(command.name, command.arguments)};
}

ExitCode call(const Command& command, const QCommandLineParser& parser, Console& console)
{
    checkArguments(command, parser.positionalArguments());
    return command.run({parser, parser.positionalArguments(), readCommonOptions(parser), console});
}

int run(const Command& command, QStringList arguments)
{
    QCommandLineParser parser;
    parser.addOptions(command.options);
    parser.addOptions(commonOptions());
    parser.addOption(kHelp);
    arguments.removeAt(1); // the command's name
    if (!parser.parse(arguments))
        return say(stderr, QStringLiteral("tambrix-cli: %1\n").arg(parser.errorText()),
                   ExitCode::Usage);
    if (parser.isSet(kHelp))
        return say(stdout, helpOf(command, parser), ExitCode::Done);
    Console console(parser.isSet(QStringLiteral("quiet")), parser.isSet(QStringLiteral("json")));
    try {
        return static_cast<int>(call(command, parser, console));
    } catch (const Failure& failure) {
        console.complain(failure.text);
        return static_cast<int>(failure.code);
    }
}

} // namespace

int runCommandLine(const QStringList& arguments)
{
    const QString name = arguments.value(1);
    if (name.isEmpty())
        return say(stderr, overview(), ExitCode::Usage);
    if (name == QLatin1String("--help") || name == QLatin1String("-h") ||
        name == QLatin1String("help"))
        return say(stdout, overview(), ExitCode::Done);
    if (name == QLatin1String("--version") || name == QLatin1String("-v"))
        return say(stdout, QStringLiteral("TAMBRIX %1\n").arg(QLatin1String(kVersionText)),
                   ExitCode::Done);
    const auto& table = commandTable();
    const auto command = std::ranges::find(table, name, &Command::name);
    if (command == table.end())
        return say(stderr,
                   QStringLiteral("tambrix-cli: there is no command '%1'; try --help\n").arg(name),
                   ExitCode::Usage);
    return run(*command, arguments);
}

} // namespace tambrix
