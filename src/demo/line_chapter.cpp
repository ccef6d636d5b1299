#include "demo/chapters.h"

#include <QLabel>
#include <QTableView>

namespace tambrix {

namespace {

QString textOf(const DemoStage& stage, const char* label)
{
    return stage.control<QLabel>(QLatin1String(label)).text();
}

Task showMonitor(DemoStage& stage)
{
    constexpr int kEnoughRows = 30;
    stage.triggerMenu("mnuToolsLineMonitor");
    co_await stage.step("The line monitor tells what goes over the line", "line-monitor", [&stage] {
        return stage.isInFront("frmLineMonitor") &&
               stage.control<QTableView>("tblLine").model()->rowCount() > kEnoughRows;
    });
    co_await stage.leaveBy("cmdLineClose");
}

Task checkTheLine(DemoStage& stage)
{
    stage.triggerMenu("mnuToolsCheckLine");
    co_await stage.waitForWindow("frmLineCheck", {}, {});
    stage.press("cmdCheckLine");
    co_await stage.step("The line is checked and in order", "line-check", [&stage] {
        return textOf(stage, "lblLineFinding").startsWith("The line is in order");
    });
    co_await stage.leaveBy("cmdClose");
}

/// The cable is pulled and put back: the program comes on line again by itself.
Task loseTheCable(DemoStage& stage)
{
    stage.triggerMenu("mnuToolsReconnect");
    stage.line().unplug();
    co_await stage.answerBox("WARNING - Communication Error!", "Cancel", "cable-pulled");
    co_await stage.step(
        "The cable is pulled: off line, looking for the board", "cable-off",
        [&stage] { return textOf(stage, "lblReconnect").contains("Looking for it"); });
    stage.line().plugIn();
    co_await stage.step("The cable is back: on line again", "cable-back", [&stage] {
        return textOf(stage, "lblReconnect").contains("On line again");
    });
    stage.triggerMenu("mnuToolsReconnect");
}

} // namespace

Task demoLine(DemoStage& stage)
{
    co_await stage.goOnline();
    co_await showMonitor(stage);
    co_await checkTheLine(stage);
    co_await loseTheCable(stage);
    co_await stage.goOffline();
}

} // namespace tambrix
