#include "commands/common_options.h"

#include "commands/failure.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QSettings>

namespace tambrix {

namespace {

const QString kSerialDevice = QStringLiteral("serial-device");
const QString kBaud = QStringLiteral("baud");
const QString kSimulate = QStringLiteral("simulate");
const QString kProgramFolder = QStringLiteral("program-folder");
const QString kConfig = QStringLiteral("config");
const QString kJson = QStringLiteral("json");
const QString kQuiet = QStringLiteral("quiet");

/// "serial-device" as "TAMBRIX_SERIAL_DEVICE".
QByteArray environmentName(const QString& option)
{
    return "TAMBRIX_" + option.toUpper().replace(u'-', u'_').toLatin1();
}

QString valueOf(const QString& option, const QCommandLineParser& parser, const QSettings& config)
{
    if (parser.isSet(option))
        return parser.value(option);
    const QByteArray variable = environmentName(option);
    if (qEnvironmentVariableIsSet(variable.constData()))
        return qEnvironmentVariable(variable.constData());
    return config.value(option).toString();
}

int baudOf(const QString& text)
{
    if (text.isEmpty())
        return 0;
    if (text != QLatin1String("9600") && text != QLatin1String("19200"))
        throw Failure{ExitCode::Usage,
                      QStringLiteral("the speed is 9600 or 19200, not '%1'").arg(text)};
    return text.toInt();
}

QString configFile(const QCommandLineParser& parser)
{
    if (!parser.isSet(kConfig))
        return defaultConfigFile();
    const QString file = parser.value(kConfig);
    if (!QFileInfo(file).isFile())
        throw Failure{ExitCode::Usage,
                      QStringLiteral("there is no configuration file '%1'").arg(file)};
    return file;
}

} // namespace

QList<QCommandLineOption> commonOptions()
{
    return {{kSerialDevice,
             QStringLiteral("Use serial device <PATH>, or a serial server tcp://HOST:PORT."),
             QStringLiteral("PATH")},
            {kBaud, QStringLiteral("Speed of the line: 9600 or 19200."), QStringLiteral("RATE")},
            {kSimulate, QStringLiteral("Talk to the built-in simulated controller.")},
            {kProgramFolder, QStringLiteral("Find Support with RSPort.cfg in <DIR>."),
             QStringLiteral("DIR")},
            {kConfig,
             QStringLiteral("Read options from <FILE> (default: %1).").arg(defaultConfigFile()),
             QStringLiteral("FILE")},
            {kJson, QStringLiteral("Print results as JSON.")},
            {kQuiet, QStringLiteral("No progress, no notes; errors are still told.")}};
}

CommonOptions readCommonOptions(const QCommandLineParser& parser)
{
    const QSettings config(configFile(parser), QSettings::IniFormat);
    CommonOptions options;
    options.serialDevice = valueOf(kSerialDevice, parser, config);
    options.baud = baudOf(valueOf(kBaud, parser, config));
    options.programFolder = valueOf(kProgramFolder, parser, config);
    options.simulate = parser.isSet(kSimulate);
    options.json = parser.isSet(kJson);
    options.quiet = parser.isSet(kQuiet);
    if (options.simulate && parser.isSet(kSerialDevice))
        throw Failure{ExitCode::Usage,
                      QStringLiteral("--serial-device cannot be combined with --simulate")};
    return options;
}

QString defaultConfigFile()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("TAMBRIX"),
                     QStringLiteral("tambrix-cli"))
        .fileName();
}

} // namespace tambrix
