#include "datasets/value_edit.h"

#include <utility>

namespace tambrix {

ValueEdit::ValueEdit(ProgramState& state, const QString& what, std::vector<EntryValue> values)
    : QUndoCommand(what), m_state(state), m_values(std::move(values))
{
}

void ValueEdit::exchange()
{
    for (EntryValue& edit : m_values)
        std::swap(m_state.gWorkingData.Value[static_cast<std::size_t>(edit.entry)], edit.value);
}

} // namespace tambrix
