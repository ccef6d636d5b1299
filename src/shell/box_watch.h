#pragma once

#include "link/clock.h"
#include "shell/prompts.h"

#include <functional>

namespace tambrix {

/// Stands between the link and the person, and tells when the link has lost the board: its box
/// "WARNING - Communication Error!" stands, and how it was answered.
class BoxWatch : public Prompts
{
public:
    explicit BoxWatch(Prompts& prompts) : m_prompts(prompts) {}

    std::function<void()> lost;              ///< before the box is shown
    std::function<void(BoxAnswer)> answered; ///< once it is gone

    /// Answers the box that stands with Cancel.
    static void cancelBox();

    BoxAnswer showMessage(const OperatorBox& box) override;
    std::optional<QString> askText(const QString& title, const QString& prompt,
                                   const QString& preset) override
    {
        return m_prompts.askText(title, prompt, preset);
    }
    std::optional<QString> askOpenFile(const FileQuestion& question) override
    {
        return m_prompts.askOpenFile(question);
    }
    std::optional<QString> askSaveFile(const FileQuestion& question) override
    {
        return m_prompts.askSaveFile(question);
    }

private:
    Prompts& m_prompts;
};

} // namespace tambrix
