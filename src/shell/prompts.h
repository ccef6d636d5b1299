#pragma once

#include "link/operator.h"

#include <QString>

#include <optional>

namespace tambrix {

/// What a file dialog starts from.
struct FileQuestion
{
    QString title;
    QString filter; ///< captions and patterns in turn: "Setup Files(*.sdt)|*.sdt|"
    QString folder;
    QString name;   ///< preset in the file-name box; one with a "*" presets nothing
    QString suffix; ///< without point; goes to a name that is saved without any
};

/// Everything that the program asks the user: message boxes (the link's too), input boxes and
/// file dialogs.
/// Tests put a scripted user in its place, which records every text and title.
class Prompts : public Operator
{
public:
    /// Asks for one line of text, starting from `preset`. Nothing when the box was cancelled.
    virtual std::optional<QString> askText(const QString& title, const QString& prompt,
                                           const QString& preset) = 0;

    /// Asks for a file that exists. Nothing when the dialog was cancelled.
    virtual std::optional<QString> askOpenFile(const FileQuestion& question) = 0;

    /// Asks where to save, and whether to overwrite a file that exists. Nothing when cancelled.
    virtual std::optional<QString> askSaveFile(const FileQuestion& question) = 0;
};

} // namespace tambrix
