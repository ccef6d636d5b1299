#include "commands/register_commands.h"

#include "commands/interruption.h"
#include "commands/session.h"
#include "commands/typed_register.h"
#include "data/link_text.h"
#include "data/parameters.h"
#include "data/setup_data.h"
#include "platform/machine_ports.h"
#include "platform/port_access.h"

#include <QJsonObject>

#include <algorithm>
#include <optional>

namespace tambrix {

namespace {

const QCommandLineOption kForce(QStringLiteral("force"),
                                QStringLiteral("Also registers outside the parameter table, and "
                                               "values outside a screen's range."));

ExitCode readRegisters(const CommandCall& call)
{
    std::vector<std::string> addresses;
    for (const QString& argument : call.arguments)
        addresses.push_back(typedRegister(argument));
    catchInterruptions();
    Session session(call.common);
    session.goOnline();
    QJsonObject values;
    for (const std::string& address : addresses) {
        stopIfInterrupted();
        const qint64 value = session.read(address);
        values.insert(fromLink(address), value);
        if (!call.console.json())
            call.console.print(QStringLiteral("%1=%2").arg(fromLink(address)).arg(value));
    }
    if (call.console.json())
        call.console.print(values);
    return ExitCode::Done;
}

/// The entry of the data set that a register holds; nothing where it holds none.
std::optional<DataEntry> entryOf(const std::string& address)
{
    static const SetupDataRecord record = defaultSetupData({});
    const auto found = std::ranges::find(record.Address, address);
    if (found == record.Address.end())
        return std::nullopt;
    return entryAt(static_cast<int>(found - record.Address.begin()));
}

/// Refuses, before anything is sent, what is not to be written without --force.
void checkAssignment(const Assignment& assignment)
{
    const auto entry = entryOf(assignment.address);
    const QString name = fromLink(assignment.address);
    if (!entry)
        throw Failure{ExitCode::Usage,
                      QStringLiteral("%1 is none of the parameters; --force writes it all the same")
                          .arg(name)};
    const Parameter& parameter = entry->parameter;
    if (assignment.value < parameter.minimum || assignment.value > parameter.maximum)
        throw Failure{ExitCode::Usage, QStringLiteral("%1 (%2) takes %3 to %4, not %5")
                                           .arg(name, fromLink(nameOf(*entry)))
                                           .arg(parameter.minimum)
                                           .arg(parameter.maximum)
                                           .arg(assignment.value)};
}

/// Writes one value and reads it back. Returns whether it stands there.
bool writeAndVerify(Session& session, const Assignment& assignment, Console& console)
{
    session.link().RSWrite(assignment.address, std::to_string(assignment.value));
    session.requireLink();
    const qint64 found = session.read(assignment.address);
    const QString name = fromLink(assignment.address);
    if (found != assignment.value)
        console.complain(
            QStringLiteral("%1: wanted %2, found %3").arg(name).arg(assignment.value).arg(found));
    else if (console.json())
        console.print(QJsonObject{{name, found}});
    else
        console.print(QStringLiteral("%1=%2").arg(name).arg(found));
    return found == assignment.value;
}

ExitCode writeRegisters(const CommandCall& call)
{
    std::vector<Assignment> assignments;
    for (const QString& argument : call.arguments) {
        assignments.push_back(typedAssignment(argument));
        if (!call.parser.isSet(kForce))
            checkAssignment(assignments.back());
    }
    catchInterruptions();
    Session session(call.common);
    session.goOnline();
    bool verified = true;
    for (const Assignment& assignment : assignments) {
        stopIfInterrupted();
        verified = writeAndVerify(session, assignment, call.console) && verified;
    }
    return verified ? ExitCode::Done : ExitCode::NotVerified;
}

/// Whether this user may open the port now, and if not, why.
QString stateOf(const PortAccess& access)
{
    if (!access.holder.isEmpty())
        return QStringLiteral("in use by ") + access.holder;
    if (!access.permitted)
        return access.group.isEmpty() ? QStringLiteral("not permitted")
                                      : QStringLiteral("only for group ") + access.group;
    return QStringLiteral("free");
}

ExitCode listPorts(const CommandCall& call)
{
    for (const MachinePort& port : machinePorts()) {
        const QString state = stateOf(portAccess(port.location));
        if (call.console.json())
            call.console.print(QJsonObject{{QStringLiteral("port"), port.name},
                                           {QStringLiteral("description"), port.description},
                                           {QStringLiteral("number"), port.number.value_or(0)},
                                           {QStringLiteral("state"), state}});
        else
            call.console.print(QStringLiteral("%1 %2 %3")
                                   .arg(port.name, -12)
                                   .arg(state, -24)
                                   .arg(port.description));
    }
    return ExitCode::Done;
}

} // namespace

Command readCommand()
{
    Command command;
    command.name = QStringLiteral("read");
    command.arguments = QStringLiteral("REGISTER...");
    command.fewest = 1;
    command.most = -1;
    command.summary = QStringLiteral("Read registers of the controller and print their values.");
    command.example = QStringLiteral("tambrix-cli read W690 F123 B100.3");
    command.run = readRegisters;
    return command;
}

Command writeCommand()
{
    Command command;
    command.name = QStringLiteral("write");
    command.arguments = QStringLiteral("REGISTER=VALUE...");
    command.fewest = 1;
    command.most = -1;
    command.summary = QStringLiteral(
        "Write registers of the controller, in this order, and read each back. All are checked "
        "before the first is written.");
    command.example = QStringLiteral("tambrix-cli write W690=500 B692=180");
    command.options = {kForce};
    command.run = writeRegisters;
    return command;
}

Command portsCommand()
{
    Command command;
    command.name = QStringLiteral("ports");
    command.summary =
        QStringLiteral("List the serial ports of this PC, and which of them can be opened.");
    command.example = QStringLiteral("tambrix-cli ports");
    command.run = listPorts;
    return command;
}

} // namespace tambrix
