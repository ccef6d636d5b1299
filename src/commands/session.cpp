#include "commands/session.h"

#include "data/link_text.h"
#include "link/forwarding_port.h"
#include "platform/port_access.h"
#include "simulator/inprocess/built_in_controller.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

namespace tambrix {

namespace {

constexpr int kReadTries = 3;
const QString kUserFolder = QStringLiteral("/TAMBRIX"); // the same as the window's

/// Puts the speed that the command was told in place of the settings file's.
class PortAtSpeed : public ForwardingPort
{
public:
    PortAtSpeed(SerialPort& port, int baud) : ForwardingPort(port), m_baud(baud) {}

    std::optional<PortFault> configure(int portNumber, std::string_view settings) override
    {
        return ForwardingPort::configure(
            portNumber, m_baud == 0 ? std::string(settings) : std::to_string(m_baud) + ",n,8,1");
    }

private:
    int m_baud;
};

/// As the window has them: the data root is the program's folder, or the user's own.
ProgramFolders foldersFor(const CommonOptions& options, const QTemporaryDir& scratch)
{
    const QString program = options.programFolder.isEmpty() ? QCoreApplication::applicationDirPath()
                                                            : options.programFolder;
    if (!QFileInfo(program).isDir())
        throw Failure{ExitCode::Usage,
                      QStringLiteral("the program folder '%1' does not exist").arg(program)};
    ProgramFolders folders = chooseFolders(
        QDir(program),
        QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + kUserFolder));
    if (options.simulate)
        folders.settings = QDir(scratch.filePath(QStringLiteral("Support")));
    return folders;
}

/// What the command was told, else what Connection keeps, else the port of Comm Port.
Connection connectionOf(const CommonOptions& options, const QDir& dataRoot)
{
    if (options.serialDevice.isEmpty())
        return readConnection(connectionFile(dataRoot));
    const auto connection = connectionFromText(options.serialDevice);
    if (!connection)
        throw Failure{ExitCode::Usage,
                      QStringLiteral("'%1' is no serial server (example: tcp://press3:4001)")
                          .arg(options.serialDevice)};
    return *connection;
}

std::filesystem::path pathOf(const QDir& folder)
{
    return QFileInfo(folder.absolutePath()).filesystemAbsoluteFilePath();
}

} // namespace

BoxAnswer AbsentOperator::showMessage(const OperatorBox& box)
{
    if (box.buttons == BoxButtons::YesNo)
        return answer && answer(box) ? BoxAnswer::Yes : BoxAnswer::No;
    m_lines.push_back(oneLine(fromLink(box.title) + QStringLiteral(": ") + fromLink(box.text)));
    return box.buttons == BoxButtons::Ok ? BoxAnswer::Ok : BoxAnswer::Cancel;
}

Session::Session(const CommonOptions& options)
    : m_folders(foldersFor(options, m_scratch)),
      m_clock(options.line ? options.line->clock : m_steadyClock),
      m_simulated(options.simulate ? std::make_unique<BuiltInController>(m_clock) : nullptr),
      m_device(m_clock),
      m_port(std::make_unique<PortAtSpeed>(options.line  ? options.line->port
                                           : m_simulated ? m_simulated->port()
                                                         : m_device,
                                           options.baud)),
      m_link(pathOf(m_folders.program), m_clock, m_operator, pathOf(m_folders.settings))
{
    m_device.use(connectionOf(options, m_folders.data));
}

Session::~Session()
{
    goOffline();
}

void Session::goOnline()
{
    m_link.OpenRSComm(*m_port);
    if (m_link.portError())
        refuseHeldPort();
    requireLink();
}

/// A port that cannot be opened: another program may have it.
void Session::refuseHeldPort()
{
    const QString device = m_device.deviceName();
    const QString holder = device.isEmpty() ? QString() : portAccess(device).holder;
    if (!holder.isEmpty())
        throw Failure{ExitCode::NoCommunication,
                      QStringLiteral("%1 is in use by %2").arg(device, holder)};
}

void Session::goOffline()
{
    m_link.CloseRSComm();
}

std::int64_t Session::read(const std::string& address)
{
    for (int tries = 0; tries < kReadTries; ++tries) {
        const std::string value = m_link.RSRead(address);
        if (m_link.readSucceeded())
            return std::stoll(value);
        requireLink();
    }
    throw lost(
        QStringLiteral("%1 could not be read: the line is disturbed").arg(fromLink(address)));
}

void Session::requireLink()
{
    if (m_link.CommError || !m_link.OnlineMode)
        throw lost(QStringLiteral("no communication with the controller"));
}

Failure Session::lost(const QString& text)
{
    const QStringList lines = m_operator.takeLines();
    return {ExitCode::NoCommunication, lines.isEmpty() ? text : lines.back()};
}

} // namespace tambrix
