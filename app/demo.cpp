#include "app/demo.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>

#include <cstdio>

namespace tambrix {

using namespace std::chrono_literals;

namespace {

constexpr auto kLook = 20ms;             // how often a step looks whether it is there
constexpr int kLooksBeforeFailing = 400; // 8 s
constexpr QSize kOperatorsScreen(1366, 768);
constexpr int kAlarmDuctor = 2; // ductor 3, counted from 0

template <typename Control> Control& control(const QWidget& window, const char* name)
{
    auto* found = window.findChild<Control*>(QLatin1String(name));
    if (found == nullptr)
        qFatal("the demonstration finds no control %s", name);
    return *found;
}

} // namespace

Demo::Demo(MainWindow& window, BuiltInController& controller, const QDir& pictures)
    : m_window(window), m_controller(controller), m_pictures(pictures), m_loop([] { return true; })
{
}

void Demo::start()
{
    m_window.resize(kOperatorsScreen);
    m_loop.start(run());
}

Task Demo::run()
{
    co_await mainDisplay();
    QApplication::exit(m_failed ? 1 : 0);
}

Task Demo::mainDisplay()
{
    const auto mode = [this] { return control<QToolButton>(m_window, "MODE").text(); };
    const auto speed = [this] { return control<QLabel>(m_window, "lblDisplay").text(); };
    const auto messages = [this] {
        return control<QPlainTextEdit>(m_window, "txtMessageDisplay").toPlainText();
    };
    const auto status = [this] { return control<QLabel>(m_window, "STATUS").text(); };

    co_await step("The program starts off line", "main-display-offline", [=] {
        return mode() == "OFFLINE" && speed() == "-" &&
               status() == "System Message:  Program is Currently OFFLINE";
    });
    m_window.goOnline();
    co_await step("Online Data shows machine speed and a normal system", "main-display-online",
                  [=] {
                      return mode() == "ONLINE" && speed().toInt() > 0 &&
                             messages().contains("System Normal");
                  });
    m_controller.board().press().raiseAlarm(kAlarmDuctor);
    co_await step("Ductor 3 loses its feedback and raises an alarm", "main-display-alarm", [=] {
        return messages().contains("Ductor No.3 Feedback Fault") &&
               status() == "System Message:  Alarm(s) Active in Q900";
    });
    control<QPushButton>(m_window, "cmdAlarmReset").click();
    co_await step("Reset Alarms clears it", "main-display-reset", [=] {
        return messages().contains("System Normal") &&
               status() == "System Message:  All Faults Normal";
    });
    m_window.goOffline();
    co_await step("Offline Data leaves the controller alone", "main-display-offline-again",
                  [=] { return mode() == "OFFLINE" && speed() == "-"; });
}

Task Demo::step(QString what, QString picture, std::function<bool()> shown)
{
    int looks = 0;
    while (!shown() && ++looks < kLooksBeforeFailing)
        co_await m_loop.pause(kLook);
    const bool ok = shown();
    m_failed = m_failed || !ok;
    std::printf("%s: %s -> %s.png\n", ok ? "ok" : "FAILED", qPrintable(what), qPrintable(picture));
    std::fflush(stdout);
    take(picture);
}

void Demo::take(const QString& picture)
{
    const QString file = m_pictures.filePath(picture + ".png");
    if (m_window.grab().save(file))
        return;
    m_failed = true;
    std::printf("FAILED: cannot write %s\n", qPrintable(file));
}

} // namespace tambrix
