#pragma once

#include "shell/program_state.h"

#include <QUndoCommand>

#include <vector>

namespace tambrix {

/// One entry of the working data and the value that it is to have.
struct EntryValue
{
    int entry = 0; ///< 0 to 1613
    std::int32_t value = 0;
};

/// Changes entries of the working data in one step that can be taken back.
class ValueEdit : public QUndoCommand
{
public:
    ValueEdit(ProgramState& state, const QString& what, std::vector<EntryValue> values);

    void redo() override { exchange(); }
    void undo() override { exchange(); }

private:
    void exchange();

    ProgramState& m_state;
    std::vector<EntryValue> m_values; ///< those that the working data does not have now
};

} // namespace tambrix
