#include "demo/chapters.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QToolButton>

namespace tambrix {

namespace {

constexpr int kAlarmDuctor = 2; // ductor 3, counted from 0

} // namespace

Task demoMainDisplay(DemoStage& stage)
{
    const auto mode = [&stage] { return stage.control<QToolButton>("MODE").text(); };
    const auto speed = [&stage] { return stage.control<QLabel>("lblDisplay").text(); };
    const auto status = [&stage] { return stage.control<QLabel>("STATUS").text(); };
    const auto messages = [&stage] {
        return stage.control<QPlainTextEdit>("txtMessageDisplay").toPlainText();
    };

    co_await stage.step("The program starts off line", "main-display-offline", [=] {
        return mode() == "OFFLINE" && speed() == "-" && messages().endsWith("OFFLINE") &&
               status() == "System Message:  Program is Currently OFFLINE";
    });
    co_await stage.goOnline();
    co_await stage.step("Online Data shows machine speed and a normal system",
                        "main-display-online", [=] {
                            return mode() == "ONLINE" && speed().toInt() > 0 &&
                                   messages().contains("System Normal");
                        });
    stage.board().press().raiseAlarm(kAlarmDuctor);
    co_await stage.step("Ductor 3 loses its feedback and raises an alarm", "main-display-alarm",
                        [=] {
                            return messages().contains("Ductor No.3 Feedback Fault") &&
                                   status() == "System Message:  Alarm(s) Active in Q900";
                        });
    stage.press("cmdAlarmReset");
    co_await stage.step("Reset Alarms clears it", "main-display-reset", [=] {
        return messages().contains("System Normal") &&
               status() == "System Message:  All Faults Normal";
    });
    co_await stage.goOffline();
    co_await stage.step(
        "Offline Data leaves the controller alone", "main-display-offline-again",
        [=] { return mode() == "OFFLINE" && speed() == "-" && messages().endsWith("OFFLINE"); });
}

} // namespace tambrix
