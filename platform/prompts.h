#pragma once

#include "link/operator.h"

#include <QString>

#include <optional>

namespace tambrix {

/// Everything that the program asks a person: message boxes (the link's too) and input boxes.
/// Tests put a scripted person in its place, who records every text and title.
class Prompts : public Operator
{
public:
    /// Asks for one line of text, starting from `preset`. Nothing when the box was cancelled.
    virtual std::optional<QString> askText(const QString& title, const QString& prompt,
                                           const QString& preset) = 0;
};

} // namespace tambrix
