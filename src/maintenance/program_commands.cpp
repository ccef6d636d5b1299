#include "maintenance/program_commands.h"

#include "maintenance/program_download_window.h"
#include "maintenance/target_board_window.h"

#include <QFileInfo>
#include <QTimer>

namespace tambrix {

ProgramCommands::ProgramCommands(ProgramState& state, QWidget& mainWindow, QTimer& backgroundPoll)
    : m_state(state), m_mainWindow(mainWindow), m_backgroundPoll(backgroundPoll)
{
}

void ProgramCommands::downloadProgram()
{
    if (m_state.gLink.isBusy() || !m_state.offerOnline() || !pickProgram() ||
        !downloadConfirmed() || !m_state.mayDownload())
        return;
    m_backgroundPoll.stop();
    ProgramDownloadWindow(m_state, &m_mainWindow).exec();
    m_backgroundPoll.start();
    m_state.ApplyOnlineMode();
}

void ProgramCommands::showTargetBoard()
{
    if (m_state.gLink.isBusy() || !pickProgram())
        return;
    TargetBoardWindow window(m_state, &m_mainWindow);
    window.InitializeForm(m_state.gProgramFilePath);
    window.exec();
}

bool ProgramCommands::pickProgram()
{
    const auto file = m_state.prompts.askOpenFile({QStringLiteral("Open"),
                                                   QStringLiteral("Fennix Files(*.fnx)|*.fnx|"),
                                                   startFolder(),
                                                   {},
                                                   {}});
    if (!file)
        return false;
    m_state.gProgramFilePath = *file;
    m_state.gLink.DownloadFile(QFileInfo(*file).filesystemAbsoluteFilePath());
    return m_state.gLink.ValidProgram();
}

bool ProgramCommands::downloadConfirmed()
{
    const std::string name = printable(m_state.gLink.program().identity().name);
    return m_state.prompts.showMessage({BoxIcon::Question, BoxButtons::YesNo, "Program Download",
                                        "You are about to download \"" + name +
                                            "\" to the Q900.\r\n\r\n"
                                            "Do you wish to continue?"}) == BoxAnswer::Yes;
}

QString ProgramCommands::startFolder() const
{
    return m_state.gProgramFilePath.isEmpty() ? m_state.programFolder.absolutePath()
                                              : QFileInfo(m_state.gProgramFilePath).path();
}

} // namespace tambrix
