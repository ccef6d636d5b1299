#include "help/system_info.h"

#include "data/version.h"
#include "link/bounded_file.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>
#include <QScreen>
#include <QSerialPortInfo>
#include <QSettings>
#include <QSysInfo>

namespace tambrix {

namespace {

const QString kToolKey =
    QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools\\MSInfo");
const QString kToolFolderKey =
    QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools Location");
const QString kToolName = QStringLiteral("/MSINFO32.EXE");
const QString kNotThere = QStringLiteral("none found");

QString screens()
{
    QStringList all;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QSize size = screen->size() * screen->devicePixelRatio();
        all.append(QStringLiteral("%1 x %2 at %3 %")
                       .arg(size.width())
                       .arg(size.height())
                       .arg(qRound(screen->devicePixelRatio() * 100)));
    }
    return all.join(QLatin1String(", "));
}

/// A path with what keeps the program from using it.
QString withState(const QString& path, bool mustBeWritable)
{
    const QFileInfo info(path);
    const QString native = QDir::toNativeSeparators(path);
    if (!info.exists())
        return native + QLatin1String(" (missing)");
    if (mustBeWritable && !info.isWritable())
        return native + QLatin1String(" (cannot be written to)");
    return native;
}

QString commSettings(const std::filesystem::path& path)
{
    constexpr std::uintmax_t kLongestLine = 80; // bytes
    const auto start = readStart(path, kLongestLine);
    return start ? QString::fromLatin1(*start).section(u'\n', 0, 0).trimmed() : kNotThere;
}

QString serialPorts()
{
    QStringList ports;
    for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) {
        const QString about = port.description();
        ports.append(about.isEmpty() ? port.portName()
                                     : QStringLiteral("%1 (%2)").arg(port.portName(), about));
    }
    return ports.isEmpty() ? kNotThere : ports.join(QLatin1String(", "));
}

QString mode(const RSComm& link)
{
    if (link.OnlineMode)
        return QStringLiteral("ONLINE");
    return link.CommError ? QStringLiteral("OFFLINE after a communication error")
                          : QStringLiteral("OFFLINE");
}

} // namespace

std::vector<SystemFact> systemInformation(const ProgramState& state)
{
    const QDir folder(state.programFolder.absolutePath());
    const QString support = folder.filePath(QStringLiteral("Support"));
    return {
        {QStringLiteral("Program"), QStringLiteral("TAMBRIX ") + QLatin1String(kVersionText)},
        {QStringLiteral("Mode"), mode(state.gLink)},
        {QStringLiteral("System"), QSysInfo::prettyProductName()},
        {QStringLiteral("Kernel"), QSysInfo::kernelType() + u' ' + QSysInfo::kernelVersion()},
        {QStringLiteral("Processor"), QSysInfo::currentCpuArchitecture()},
        {QStringLiteral("Qt"), QStringLiteral("%1, built with %2")
                                   .arg(QLatin1String(qVersion()), QLatin1String(QT_VERSION_STR))},
        {QStringLiteral("Window system"), QGuiApplication::platformName()},
        {QStringLiteral("Screens"), screens()},
        {QStringLiteral("Language"), QLocale().bcp47Name()},
        {QStringLiteral("Program folder"), withState(folder.path(), false)},
        {QStringLiteral("Support folder"), withState(support, true)},
        {QStringLiteral("Data folder"), withState(state.dataRoot.absolutePath(), true)},
        {QStringLiteral("Help file"), withState(state.helpFile, false)},
        {QStringLiteral("RSPort.cfg (port, speed)"), commSettings(state.gLink.CommSettingsFile())},
        {QStringLiteral("Serial ports"), serialPorts()},
    };
}

QString registryText(const QString& key, const QString& value)
{
#ifdef Q_OS_WIN
    return QSettings(key, QSettings::NativeFormat).value(value).toString();
#else
    Q_UNUSED(key)
    Q_UNUSED(value)
    return {};
#endif
}

QString systemInfoTool(const RegistryReader& registry)
{
    QString tool = registry(kToolKey, QStringLiteral("Path"));
    if (tool.isEmpty()) {
        const QString folder = registry(kToolFolderKey, QStringLiteral("MSINFO"));
        tool = folder.isEmpty() ? QString() : folder + kToolName;
    }
    return QFileInfo(tool).isFile() ? tool : QString();
}

} // namespace tambrix
