#include "demo/chapters.h"
#include "demo/recorded_day.h"
#include "recorder/history_recorder.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

namespace tambrix {

namespace {

int rows(const DemoStage& stage, const char* table)
{
    return stage.control<QTableView>(QLatin1String(table)).model()->rowCount();
}

Task showDuctor(DemoStage& stage)
{
    stage.control<QComboBox>("cboDuctor").setCurrentIndex(2);
    stage.press("cmdWhyDuctor");
    co_await stage.step("Why does ductor 3 give too much ink?", "history-ductor", [&stage] {
        return stage.isInFront("frmDuctorHistory") &&
               stage.control<QLabel>("lblFindings").text().contains("ductor 3 ON");
    });
    co_await stage.leaveBy("cmdClose");
}

} // namespace

Task demoHistory(DemoStage& stage)
{
    auto* recorder = stage.window().findChild<HistoryRecorder*>();
    co_await stage.step({}, {}, [recorder] { return recorder != nullptr; });
    recorder->store().close(); // the day is recorded by another writer
    co_await recordDay(stage, recorder->store().path());
    stage.triggerMenu("mnuToolsHistory");
    co_await stage.waitForWindow("frmHistory", {}, {});
    stage.press("cmdAll");
    co_await stage.step("A day of the press: speed, cycles, alarms, changes", "history", [&stage] {
        return stage.control<QPushButton>("cmdAll").isChecked() && rows(stage, "tblAlarms") > 0 &&
               rows(stage, "tblChanges") >= 3;
    });
    co_await showDuctor(stage);
    co_await stage.leaveBy("cmdClose");
}

} // namespace tambrix
