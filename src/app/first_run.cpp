#include "app/first_run.h"

#include "data/own_file.h"

#include <QFile>

namespace tambrix {

FirstRun::FirstRun(ProgramState& state, bool simulated)
    : m_state(state), m_markFile(state.dataRoot.filePath(QStringLiteral("connected")))
{
    state.everConnected = simulated || QFile::exists(m_markFile);
    connect(&state, &ProgramState::onlineModeApplied, this, &FirstRun::modeApplied);
}

/// A folder that cannot be written keeps the first steps for the next start; nothing is lost.
void FirstRun::modeApplied(bool online)
{
    if (!online || m_state.everConnected || m_state.gLink.CommError)
        return;
    m_state.everConnected = true;
    writeOwnFile(m_markFile, {});
}

} // namespace tambrix
