#pragma once

#include "shell/program_state.h"

#include <QObject>

namespace tambrix {

/// Knows, by a file below the data root, whether a controller has ever answered on this machine:
/// until then the Main Display says what to do first.
class FirstRun : public QObject
{
public:
    /// A simulated controller's answer is none; nobody who looks around needs first steps.
    FirstRun(ProgramState& state, bool simulated);

private:
    void modeApplied(bool online);

    ProgramState& m_state;
    QString m_markFile;
};

} // namespace tambrix
