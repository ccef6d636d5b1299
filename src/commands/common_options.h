#pragma once

#include <QCommandLineOption>
#include <QList>
#include <QString>

#include <optional>

class QCommandLineParser;

namespace tambrix {

class Clock;
class SerialPort;

/// A line that is there already, in place of a port of this machine.
struct ReadyLine
{
    SerialPort& port;
    Clock& clock;
};

/// What every command may be told. Each value comes from the first of these that has it: the
/// command line, the environment (TAMBRIX_SERIAL_DEVICE, TAMBRIX_BAUD, TAMBRIX_PROGRAM_FOLDER),
/// the configuration file.
struct CommonOptions
{
    QString serialDevice;  ///< device path, or tcp://HOST:PORT; empty: the port of RSPort.cfg
    int baud = 0;          ///< 9600 or 19200; 0: as RSPort.cfg says
    bool simulate = false; ///< the built-in simulated controller
    QString programFolder; ///< folder with Support; empty: the program's own
    bool json = false;
    bool quiet = false;
    std::optional<ReadyLine> line; ///< a program that calls the commands may bring its own
};

/// The options themselves, for a command's parser.
QList<QCommandLineOption> commonOptions();

/// Reads them. Throws Failure (exit code 2) for a value that is none.
CommonOptions readCommonOptions(const QCommandLineParser& parser);

/// The configuration file that is read when --config names none.
QString defaultConfigFile();

} // namespace tambrix
