#pragma once

#include "shell/prompts.h"
#include "tests/support/scripted_operator.h"

namespace tambrix {

/// The scripted person for windows: besides boxes, records what was asked for in input boxes
/// and file dialogs.
class ScriptedPrompts : public Scripted<Prompts>
{
public:
    std::optional<QString> askText(const QString& title, const QString& prompt,
                                   const QString& preset) override
    {
        textTitles.push_back(title);
        textPrompts.push_back(prompt);
        textPresets.push_back(preset);
        return textAnswer;
    }

    std::optional<QString> askOpenFile(const FileQuestion& question) override
    {
        return choose(openQuestions, question);
    }

    std::optional<QString> askSaveFile(const FileQuestion& question) override
    {
        return choose(saveQuestions, question);
    }

    std::vector<QString> textTitles;
    std::vector<QString> textPrompts;
    std::vector<QString> textPresets;
    std::optional<QString> textAnswer; ///< none: the input box is cancelled

    std::vector<FileQuestion> openQuestions;
    std::vector<FileQuestion> saveQuestions;
    std::deque<QString> chosenFiles; ///< for the file dialogs in order; then they are cancelled

private:
    std::optional<QString> choose(std::vector<FileQuestion>& asked, const FileQuestion& question)
    {
        asked.push_back(question);
        if (chosenFiles.empty())
            return std::nullopt;
        const QString file = chosenFiles.front();
        chosenFiles.pop_front();
        return file;
    }
};

} // namespace tambrix
