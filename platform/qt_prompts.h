#pragma once

#include "platform/prompts.h"

namespace tambrix {

/// The real boxes, modal above whatever window is in front.
class QtPrompts : public Prompts
{
public:
    BoxAnswer showMessage(const MessageBox& box) override;
    std::optional<QString> askText(const QString& title, const QString& prompt,
                                   const QString& preset) override;
};

/// Message text as the screen shows it: every CR LF or CR becomes one line break.
QString withLineBreaks(QString text);

} // namespace tambrix
