#include "controls/numeric_entry_field.h"
#include "demo/chapters.h"
#include "simulator/memory_map.h"

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>

namespace tambrix {

namespace {

constexpr int kTypedCycle = 480; // 0.1 cans

void press(QWidget& widget, Qt::Key key, const QString& text)
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &up);
}

/// Types into a field as a user does, and ends with Enter unless `open`.
void type(DemoStage& stage, const QString& name, const QString& text, bool open = false)
{
    auto& field = stage.control<NumericEntryField>(name);
    field.setFocus();
    for (const QChar digit : text)
        press(field, Qt::Key_unknown, digit);
    if (!open)
        press(field, Qt::Key_Return, QStringLiteral("\r"));
}

QString shown(DemoStage& stage, const QString& label)
{
    return stage.control<QLabel>(label).text();
}

Task demoSetup(DemoStage& stage)
{
    const auto cycle = [&stage] { return stage.control<NumericEntryField>("txtSetup(0)").text(); };
    stage.window().showScreen(ScreenId::SetupParameters);
    co_await stage.step(
        "Set-up shows the controller's parameters", "setup-online", [&stage, cycle] {
            return cycle().toInt() == stage.board().peekWord(memory_map::kMaxCycle) &&
                   !stage.control<NumericEntryField>("txtSetup(3)").text().isEmpty();
        });
    type(stage, "txtSetup(0)", QString::number(kTypedCycle));
    stage.press("cmdEnableFeedbackAll");
    co_await stage.step("A typed value and Enable All reach the controller", "setup-edited",
                        [&stage] {
                            return stage.board().peekWord(memory_map::kMaxCycle) == kTypedCycle &&
                                   stage.board().peek(memory_map::kFeedbackEnable) == 255 &&
                                   stage.control<QCheckBox>("chkFeedback(7)").isChecked();
                        });
    stage.later([&stage] { type(stage, "txtSetup(1)", "abc"); });
    co_await stage.answerBox("Set-up", "OK", "setup-refused");
    stage.window().activateWindow();
    co_await stage.step("The refused entry keeps the focus", {},
                        [&stage] { return stage.control<QWidget>("txtSetup(1)").hasFocus(); });
    press(stage.control<NumericEntryField>("txtSetup(1)"), Qt::Key_Escape, {});
    press(stage.control<NumericEntryField>("txtSetup(1)"), Qt::Key_Escape, {});
    co_await stage.goOffline();
    co_await stage.step(
        "Off line the working data shows, greyed", "setup-offline", [&stage, cycle] {
            return cycle() == "500" && !stage.control<QWidget>("txtSetup(0)").isEnabled();
        });
    stage.triggerMenu("mnuEditOffline");
    co_await stage.step("Offline editing opens it for editing", "setup-offline-editing",
                        [&stage] { return stage.control<QWidget>("txtSetup(0)").isEnabled(); });
    stage.control<NumericEntryField>("txtSetup(0)").stepBy(1);
    co_await stage.step("An arrow steps the working data", {},
                        [cycle] { return cycle() == "501"; });
    stage.control<NumericEntryField>("txtSetup(0)").stepBy(-1);
    stage.triggerMenu("mnuEditOffline");
    co_await stage.step({}, {},
                        [&stage] { return !stage.control<QWidget>("txtSetup(0)").isEnabled(); });
}

Task demoShiftData(DemoStage& stage)
{
    stage.window().showScreen(ScreenId::ShiftData);
    co_await stage.step("Shift Data off line", "shift-data-offline",
                        [&stage] { return shown(stage, "lblData(1)") == "0"; });
    co_await stage.goOnline();
    co_await stage.step("Shift Data counts on line", "shift-data-online",
                        [&stage] { return shown(stage, "lblData(8)") != "0"; });
    const QString before = shown(stage, "lblData(3)");
    type(stage, "txtData", "3");
    stage.press("cmdResetCounts");
    co_await stage.step("Reset Counts clears ductor 3 alone", "shift-data-reset",
                        [&stage, &before] {
                            return shown(stage, "lblData(3)").size() < before.size() &&
                                   shown(stage, "lblData(2)").size() >= before.size();
                        });
}

Task demoColorControl(DemoStage& stage)
{
    const auto on = [&stage] { return stage.control<NumericEntryField>("txtColorCtrl(0)").text(); };
    stage.board().press().setLabelSelect(true);
    stage.window().showScreen(ScreenId::ColorControl);
    co_await stage.step("Color Control shows the label in work", "color-control-online",
                        [&stage, on] {
                            return on().toInt() == stage.board().peek(memory_map::workingOn(0)) &&
                                   stage.control<QWidget>("txtColorCtrl(16)").isEnabled() &&
                                   shown(stage, "lblStatus(2)") == "AUTO";
                        });
    type(stage, "txtColorCtrl(16)", "5");
    co_await stage.step("Label 5 is being loaded", "color-control-loading",
                        [&stage] { return stage.control<QWidget>("cmdDefault").hasFocus(); });
    co_await stage.step("Label 5 is loaded, the focus is back", "color-control-loaded",
                        [&stage, on] {
                            return stage.control<QWidget>("txtColorCtrl(16)").hasFocus() &&
                                   on().toInt() == stage.board().peek(memory_map::labelOn(5, 0));
                        });
    stage.board().press().setOperationalMode(PressModel::OperationalMode::Manual);
    co_await stage.step(
        {}, {}, [&stage] { return stage.control<QWidget>("cmdDuctorsManualON").isEnabled(); });
    stage.press("cmdDuctorsManualON");
    co_await stage.step("In manual all ductors are switched on", "color-control-manual", [&stage] {
        return stage.board().peek(memory_map::kManualDuctors) == 255 &&
               stage.control<QCheckBox>("chkDuctorManual(7)").isChecked();
    });
    stage.board().press().setOperationalMode(PressModel::OperationalMode::Auto);
    co_await stage.goOffline();
    co_await stage.step("Color Control off line", "color-control-offline", [&stage] {
        return !stage.control<QWidget>("txtColorCtrl(0)").isEnabled();
    });
    stage.triggerMenu("mnuEditOffline");
    co_await stage.step("Offline editing opens the label data", "color-control-offline-editing",
                        [&stage] { return stage.control<QWidget>("txtColorCtrl(0)").isEnabled(); });
    stage.triggerMenu("mnuEditOffline");
    co_await stage.step(
        {}, {}, [&stage] { return !stage.control<QWidget>("txtColorCtrl(0)").isEnabled(); });
    co_await stage.goOnline();
}

Task demoIoStatus(DemoStage& stage)
{
    stage.window().showScreen(ScreenId::IoStates);
    co_await stage.step("I/O Status on line", "io-status-online", [&stage] {
        return shown(stage, "lblSlot00State(0)") == "ON" &&
               shown(stage, "lblSlot01State(15)") == "off";
    });
    co_await stage.goOffline();
    co_await stage.step("I/O Status off line shows dashes", "io-status-offline",
                        [&stage] { return shown(stage, "lblSlot00State(0)") == "-"; });
}

} // namespace

Task demoScreens(DemoStage& stage)
{
    co_await stage.goOnline();
    co_await demoSetup(stage);
    co_await demoShiftData(stage);
    co_await demoColorControl(stage);
    co_await demoIoStatus(stage);
    stage.window().showScreen(ScreenId::MainDisplay);
}

} // namespace tambrix
