#include "demo/chapters.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>

namespace tambrix {

namespace {

constexpr int kFirstOn = 2; // column of the table
constexpr int kWrong = 9;   // label
const QString kTable = QStringLiteral(
    "Wash-up\t85\t90\t20\t110\t120\t40\t25\t25\r\nCola 330 red\t0\t110\t70\t0\t60\t95\t75\t45\r\n"
    "Cola 330 zero\t20\t70\t60\t0\t70\t70\t60\t45\r\nLemon 500\t70\t75\t95\t25\t90\t120\t60\t40\r\n"
    "\t0\t0\t0\t0\t0\t0\t0\t0\r\nTonic 250\t60\t130\t70\t25\t70\t0\t70\t70\r\n"
    "Beer gold\t40\t20\t135\t90\t0\t70\t115\t60\r\nBeer gold, less "
    "red\t60\t115\t115\t70\t115\t130\t40\t60\r\n");

QAbstractItemModel& table(DemoStage& stage)
{
    return *stage.control<QTableView>("tblLabels").model();
}

/// Text of a cell; `column` counts from the label's number.
QString cell(DemoStage& stage, int label, int column)
{
    return table(stage).index(label, column).data().toString();
}

void paste(DemoStage& stage, int label, int column, const QString& text)
{
    auto& view = stage.control<QTableView>("tblLabels");
    view.setCurrentIndex(table(stage).index(label, column));
    QApplication::clipboard()->setText(text);
    stage.triggerMenu("mnuPaste");
}

Task fillTheTable(DemoStage& stage)
{
    stage.press("cmdShown(1)");
    paste(stage, 0, 1, kTable);
    co_await stage.step({}, {}, [&stage] { return cell(stage, 6, 1) == "Beer gold"; });
    stage.control<QTableView>("tblLabels").setCurrentIndex(table(stage).index(6, kFirstOn));
    co_await stage.step("ON durations and names pasted from a spreadsheet", "labels-on",
                        [&stage] { return cell(stage, 6, kFirstOn + 2) == "135"; });
    stage.press("cmdShown(0)");
    co_await stage.step("The ink that each label gives", "labels", [&stage] {
        return stage.control<QLabel>("lblShownName").text() == "Beer gold" &&
               cell(stage, 6, kFirstOn + 2).startsWith("87");
    });
}

/// Two values too many for what the limits allow: nothing happens until they have been seen.
Task breakTheRules(DemoStage& stage)
{
    stage.press("cmdShown(1)");
    co_await stage.step({}, {}, [&stage] { return cell(stage, 6, kFirstOn + 2) == "135"; });
    paste(stage, kWrong, kFirstOn, "60\t250\t145\t70\r\n");
    co_await stage.waitForWindow("frmPlan", "What the rules forbid is shown first", "labels-rules");
    stage.press("cmdOk");
    co_await stage.step({}, {}, [&stage] {
        return stage.isInFront("frmLabels") && cell(stage, kWrong, kFirstOn + 3) == "70";
    });
}

Task findAndUndo(DemoStage& stage)
{
    stage.control<QLineEdit>("txtFind").setText("ON > 120");
    co_await stage.step("Labels with more than 12 cans of ON", "labels-find", [&stage] {
        return stage.control<QLabel>("lblNote").text().startsWith("3 of 100");
    });
    stage.control<QLineEdit>("txtFind").clear();
    stage.press("cmdUndo");
    co_await stage.step({}, {}, [&stage] { return cell(stage, kWrong, kFirstOn + 3) != "70"; });
    stage.press("cmdUndo");
    co_await stage.step("Both steps undone", {}, [&stage] { return cell(stage, 6, 1).isEmpty(); });
}

} // namespace

Task demoLabels(DemoStage& stage)
{
    stage.triggerMenu("mnuEditOffline");
    stage.triggerMenu("mnuToolsLabels");
    co_await stage.waitForWindow("frmLabels", {}, {});
    co_await fillTheTable(stage);
    co_await breakTheRules(stage);
    co_await findAndUndo(stage);
    co_await stage.leaveBy("cmdClose");
    stage.triggerMenu("mnuEditOffline");
}

} // namespace tambrix
