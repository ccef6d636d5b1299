#include "shell/data_edit.h"

#include "shell/program_state.h"

#include <utility>

namespace tambrix {

namespace {

constexpr int kLabelChoice = 1; // id of steps that become one; -1: never

} // namespace

DataEdit::DataEdit(ProgramState& state, const QString& what, DataChange change)
    : QUndoCommand(what), m_state(state), m_change(std::move(change))
{
}

int DataEdit::id() const
{
    const bool choice =
        m_change.values.size() == 1 && m_change.values.front().entry == kCurrentLabelSlot;
    return choice ? kLabelChoice : -1;
}

void DataEdit::exchangeNow()
{
    exchange(m_change, m_state.gWorkingData, m_state.labelNames);
    m_state.announceEdit();
}

} // namespace tambrix
