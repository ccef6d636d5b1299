#include "shell/transfer_commands.h"

#include "shell/label_range_dialog.h"
#include "shell/processing_dialog.h"

namespace tambrix {

using namespace transfer_code;

namespace {

bool answersYes(ProgramState& state, const char* title, const char* text)
{
    return state.prompts.showMessage({BoxIcon::Question, BoxButtons::YesNo, title, text}) ==
           BoxAnswer::Yes;
}

/// Asks for the labels and leaves the range where the reports find it as well.
void askLabels(ProgramState& state, QWidget& window)
{
    LabelRangeDialog dialog(&window);
    dialog.exec();
    state.report.firstLabel = dialog.range().first;
    state.report.lastLabel = dialog.range().last;
    state.labelRangeCancelled = dialog.range().cancelled;
}

/// What was uploaded is one step that can be undone.
void makeStep(ProgramState& state, const std::vector<std::int32_t>& before)
{
    const SetupDataRecord after = state.gWorkingData;
    state.gWorkingData.Value = before;
    state.edit(QStringLiteral("Upload"), changeTo(after, state.gWorkingData));
}

} // namespace

void uploadData(ProgramState& state, QWidget& window, int group)
{
    if (!answersYes(state, "Data Upload",
                    "You are about to Upload Data from the PLC\r\n\r\nDo You Wish to Continue?"))
        return;
    state.gUploadNOW = today();
    transferData(state, window, group);
}

void downloadData(ProgramState& state, QWidget& window, int group)
{
    if (answersYes(state, "Data Download",
                   "You are about to Download Data to the PLC\r\n\r\nDo You Wish to Continue?"))
        transferData(state, window, kDownload + group);
}

void transferData(ProgramState& state, QWidget& window, int requestCode)
{
    if (!state.offerOnline())
        return;
    state.transferRequest = requestCode;
    state.labelRangeCancelled = false;
    if (requestCode == kLabelData || requestCode == kDownload + kLabelData)
        askLabels(state, window);
    if (state.labelRangeCancelled)
        return;
    if (requestCode >= kDownload && !state.mayDownload())
        return;
    const LabelRange labels{state.report.firstLabel, state.report.lastLabel, false};
    const std::vector<std::int32_t> before = state.gWorkingData.Value;
    ProcessingDialog dialog(state, transferPlan(requestCode, labels), &window);
    dialog.exec();
    makeStep(state, before);
}

} // namespace tambrix
