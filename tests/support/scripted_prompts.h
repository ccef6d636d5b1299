#pragma once

#include "platform/prompts.h"
#include "tests/support/scripted_operator.h"

namespace tambrix {

/// The scripted person for windows: besides boxes, records what was asked for in input boxes.
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

    std::vector<QString> textTitles;
    std::vector<QString> textPrompts;
    std::vector<QString> textPresets;
    std::optional<QString> textAnswer; ///< none: the input box is cancelled
};

} // namespace tambrix
