#pragma once

#include "data/data_change.h"

#include <QUndoCommand>

namespace tambrix {

class ProgramState;

/// Changes the working data and the labels' names in one step that can be taken back.
class DataEdit : public QUndoCommand
{
public:
    DataEdit(ProgramState& state, const QString& what, DataChange change);

    void redo() override { exchangeNow(); }
    void undo() override { exchangeNow(); }

    /// Choosing one label after the other is one step.
    int id() const override;
    bool mergeWith(const QUndoCommand* next) override { return next->id() == id(); }

private:
    void exchangeNow();

    ProgramState& m_state;
    DataChange m_change; ///< what the working data does not have now
};

} // namespace tambrix
