#include "commands/interruption.h"
#include "commands/register_commands.h"
#include "commands/session.h"
#include "data/operating_mode.h"
#include "data/setup_data.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonValue>
#include <QThread>

#include <map>

namespace tambrix {

namespace {

constexpr int kPause = 100;      // ms between two rounds: a dashboard needs no more
constexpr int kLostPause = 2000; // ms before a controller that does not answer is called again
constexpr int kRestStep = 100;   // ms until an interruption is noticed

/// One line of output for each change of the values that a dashboard shows.
class Watch
{
public:
    Watch(const CommonOptions& options, Console& console) : m_session(options), m_console(console)
    {
    }

    /// Goes on until it is interrupted or nobody reads its lines any more; Failure says which.
    [[noreturn]] void run()
    {
        for (;;) {
            try {
                m_session.goOnline();
                tell(QStringLiteral("line"), QStringLiteral("on line"));
                for (;; rest(kPause))
                    look();
            } catch (const Failure& failure) {
                if (failure.code != ExitCode::NoCommunication)
                    throw;
                m_session.goOffline();
                tell(QStringLiteral("line"), QStringLiteral("lost: ") + failure.text);
            }
            rest(kLostPause);
        }
    }

private:
    void look()
    {
        tell(QStringLiteral("speed"), read("W112"));
        tell(QStringLiteral("alarms"), read("B65"));
        tell(QStringLiteral("label"), read("W686"));
        tell(QStringLiteral("mode"),
             operatingModeText(operatingMode(static_cast<int>(read("B100")))));
        QJsonArray counts;
        for (int ductor = 0; ductor < kDuctors; ++ductor)
            counts.append(
                read(m_registers.Address[static_cast<std::size_t>(kShiftCountSlot + ductor)]));
        tell(QStringLiteral("counts"), counts);
    }

    qint64 read(const std::string& address)
    {
        stopIfInterrupted();
        return m_session.read(address);
    }

    /// Prints the value when it is not the one printed last. The lines are numbered, so that a
    /// reader sees a gap.
    void tell(const QString& what, const QJsonValue& value)
    {
        QJsonValue& last = m_told[what];
        if (last == value)
            return;
        last = value;
        m_console.print(QJsonObject{
            {QStringLiteral("n"), ++m_lines},
            {QStringLiteral("time"), QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs)},
            {what, value}});
    }

    static void rest(int milliseconds)
    {
        for (int rested = 0; rested < milliseconds; rested += kRestStep) {
            stopIfInterrupted();
            QThread::msleep(kRestStep);
        }
    }

    Session m_session;
    Console& m_console;
    const SetupDataRecord m_registers = defaultSetupData({});
    std::map<QString, QJsonValue> m_told;
    qint64 m_lines = 0;
};

} // namespace

Command watchCommand()
{
    Command command;
    command.name = QStringLiteral("watch");
    command.summary = QStringLiteral(
        "Print one JSON line for each change of speed, alarms, label, mode and shift counts, until "
        "interrupted. A lost line is a line of its own; watching goes on when the controller "
        "answers.");
    command.example = QStringLiteral("tambrix-cli watch | mosquitto_pub -l -t press/3");
    command.run = [](const CommandCall& call) -> ExitCode {
        catchInterruptions();
        Watch(call.common, call.console).run();
    };
    return command;
}

} // namespace tambrix
