#pragma once

#include "shell/program_state.h"

#include <QString>

#include <optional>

namespace tambrix {

/// Where one side of a comparison comes from.
struct DatasetSource
{
    enum class Kind { WorkingData, File, Backup, Controller };

    Kind kind = Kind::WorkingData;
    QString path; ///< of a file or a backup

    /// "Working Data", "Controller", or the file's name.
    QString title() const;
    /// The head of its column: "Working Data", "File", "Backup", "Controller".
    QString columnTitle() const;

    bool operator==(const DatasetSource&) const = default;
};

/// The data of a source other than the controller. Asks, as Open does, before it takes a file of
/// another program version. Nothing when the user does not want it, or when there is a `reason`.
std::optional<SetupDataRecord> loadDataset(ProgramState& state, const DatasetSource& source,
                                           QString& reason);

} // namespace tambrix
