#pragma once

#include "commands/common_options.h"
#include "commands/console.h"
#include "commands/exit_code.h"

#include <QCommandLineParser>
#include <QList>
#include <QStringList>

#include <functional>
#include <vector>

namespace tambrix {

/// What a command works with.
struct CommandCall
{
    const QCommandLineParser& parser; ///< its own options
    QStringList arguments;            ///< behind the command's name, options taken out
    CommonOptions common;
    Console& console;
};

/// One command of tambrix-cli: "tambrix-cli NAME [options] ARGUMENTS".
struct Command
{
    QString name;
    QString arguments; ///< as the help shows them: "A [B]"
    int fewest = 0;    ///< number of arguments that it takes
    int most = 0;      ///< -1: any number
    QString summary;
    QString example;
    QList<QCommandLineOption> options; ///< besides the common ones
    std::function<ExitCode(const CommandCall&)> run;
};

/// Every command, in the order of the help.
const std::vector<Command>& commandTable();

} // namespace tambrix
