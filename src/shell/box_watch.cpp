#include "shell/box_watch.h"

#include <QApplication>
#include <QMessageBox>

namespace tambrix {

namespace {

constexpr const char* kLostTitle = "WARNING - Communication Error!";

} // namespace

BoxAnswer BoxWatch::showMessage(const OperatorBox& box)
{
    const bool watched = box.title == kLostTitle && box.buttons == BoxButtons::RetryCancel;
    if (!watched)
        return m_prompts.showMessage(box);
    if (lost)
        lost();
    const BoxAnswer answer = m_prompts.showMessage(box);
    if (answered)
        answered(answer);
    return answer;
}

void BoxWatch::cancelBox()
{
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box != nullptr && box->windowTitle() == QLatin1String(kLostTitle))
        box->reject();
}

} // namespace tambrix
