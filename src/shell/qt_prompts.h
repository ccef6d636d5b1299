#pragma once

#include "shell/prompts.h"

namespace tambrix {

/// The real boxes, modal above whatever window is in front.
class QtPrompts : public Prompts
{
public:
    BoxAnswer showMessage(const OperatorBox& box) override;
    std::optional<QString> askText(const QString& title, const QString& prompt,
                                   const QString& preset) override;
    std::optional<QString> askOpenFile(const FileQuestion& question) override;
    std::optional<QString> askSaveFile(const FileQuestion& question) override;
};

/// Message text as the screen shows it: every CR LF or CR becomes one line break.
QString withLineBreaks(QString text);

/// The file's name with the suffix that its dialog shows, also behind a point that is part of the
/// name: "press 2.5" is saved as "press 2.5.sdt".
QString withSuffix(const QString& file, const QString& suffix);

/// A file question's filter as Qt's dialogs take it: "Setup Files(*.sdt)".
QStringList nameFilters(const QString& filter);

} // namespace tambrix
