#include "demo/recorded_day.h"

#include "demo/stage.h"
#include "link/rs_comm.h"
#include "recorder/history_recorder.h"
#include "recorder/recorded_registers.h"
#include "simulator/inprocess/simulated_serial_port.h"

#include <QDateTime>
#include <QTemporaryDir>

#include <functional>
#include <utility>

namespace tambrix {

namespace {

using namespace std::chrono_literals;

constexpr auto kStep = 60s; // between two readings
constexpr int kStepsAnHour = 1h / kStep;
constexpr int kHours = 24;
constexpr int kDuctor = 2; // ductor 3, counted from 0

/// Time that passes only when somebody waits.
class DayClock : public Clock
{
public:
    Duration now() const override { return m_now; }
    void pause(Duration span) override { m_now += span; }

private:
    Duration m_now{};
};

class Nobody : public Operator
{
public:
    BoxAnswer showMessage(const OperatorBox& /*box*/) override { return BoxAnswer::Cancel; }
};

/// A press, its line, and the program's link to it with a recorder.
class DayOfAPress
{
public:
    explicit DayOfAPress(const QString& file)
        : m_begin(QDateTime::currentMSecsSinceEpoch() - kHours * kHour),
          m_recorder(m_link, file, {m_clock, [this] { return m_begin + m_clock.now() / 1ms; }})
    {
        m_line.setBaud(0);
        m_recorder.setSilence(3 * kStep / 1ms);
        m_recorder.setWriter([] { return QStringLiteral("Color Control"); });
        m_board.press().setOperationalMode(PressModel::OperationalMode::Auto);
        m_board.press().setMachineSpeed(kSpeed);
        m_link.OpenRSComm(m_port);
    }

    void runHour(int hour)
    {
        for (int step = 0; step < kStepsAnHour; ++step) {
            happen(hour, step);
            for (const std::string& address : fullRecord(m_recorder.currentLabel()))
                m_link.RSRead(address);
            m_link.RSRead(reg::kAlarms.address);
            m_clock.pause(kStep);
            m_recorder.flush();
        }
    }

private:
    static constexpr int kSpeed = 1200; // cans per minute

    /// What the day brings, at the beginning of some hours or in their middle.
    void happen(int hour, int step)
    {
        PressModel& press = m_board.press();
        if (step == kStepsAnHour / 2) {
            if (hour == 12)
                press.setMachineSpeed(kSpeed);
            if (hour == 18)
                m_link.RSWrite(addressOf(reg::kWorkingOn, kDuctor), "30");
        } else if (step == 0) {
            if (hour == 8 || hour == 16)
                m_link.RSWrite(reg::kLabelNumber.address, hour == 8 ? "6" : "7");
            if (hour == 12)
                press.setMachineSpeed(0);
            if (hour == 20)
                press.raiseAlarm(kDuctor);
            if (hour == 21)
                m_link.RSWrite(reg::kAlarmReset.address, "1");
        }
    }

    UtcMs m_begin;
    QTemporaryDir m_folder;
    DayClock m_clock;
    SimulatedBoard m_board;
    SimulatedLine m_line{m_board};
    SimulatedSerialPort m_port{m_line, m_clock};
    Nobody m_nobody;
    RSComm m_link{m_folder.path().toStdString(), m_clock, m_nobody};
    HistoryRecorder m_recorder;
};

} // namespace

Task recordDay(DemoStage& stage, QString file)
{
    DayOfAPress day(file);
    for (int hour = 0; hour < kHours; ++hour) {
        day.runHour(hour);
        const std::function<bool()> nextTurn = [first = true]() mutable {
            return !std::exchange(first, false);
        };
        co_await stage.step({}, {}, nextTurn);
    }
}

} // namespace tambrix
