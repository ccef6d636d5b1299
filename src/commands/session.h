#pragma once

#include "commands/common_options.h"
#include "commands/console.h"
#include "commands/failure.h"
#include "link/rs_comm.h"
#include "platform/chosen_port.h"
#include "platform/program_folders.h"
#include "platform/steady_clock.h"

#include <QDir>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <utility>

namespace tambrix {

class BuiltInController;

/// The person at the press is not there: the link's boxes are kept as lines of text, Retry is
/// never chosen, and a question is answered by `answer`, with No unless a command says more.
class AbsentOperator : public Operator
{
public:
    BoxAnswer showMessage(const OperatorBox& box) override;

    /// The texts of the boxes so far, one line each; forgets them.
    QStringList takeLines() { return std::exchange(m_lines, {}); }

    std::function<bool(const OperatorBox&)> answer; ///< true: Yes

private:
    QStringList m_lines;
};

/// A line to the controller for the length of one command. Whatever ends the command, the board
/// has left its mode and the port is closed afterwards.
class Session
{
public:
    explicit Session(const CommonOptions& options);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Opens the port and calls the board. Throws Failure (exit code 3) when it does not answer.
    void goOnline();
    void goOffline();

    /// The folder for backups and the like.
    const QDir& dataRoot() const { return m_folders.data; }

    /// The folder with the texts of fault codes.
    QDir supportFolder() const
    {
        return QDir(m_folders.program.filePath(QStringLiteral("Support")));
    }

    RSComm& link() { return m_link; }
    AbsentOperator& person() { return m_operator; }

    /// Reads a register; a disturbed answer is read again, twice at most. Throws Failure (3).
    std::int64_t read(const std::string& address);

    /// Throws Failure (3) with the link's own message when the link is broken.
    void requireLink();

    /// The failure that a broken link is: the link's own message, or `text`.
    Failure lost(const QString& text);

private:
    void refuseHeldPort();

    const QTemporaryDir m_scratch; ///< takes the settings that the simulated controller needs not
    const ProgramFolders m_folders;
    SteadyClock m_steadyClock;
    Clock& m_clock;
    AbsentOperator m_operator;
    std::unique_ptr<BuiltInController> m_simulated; ///< with --simulate
    ChosenPort m_device;
    std::unique_ptr<SerialPort> m_port; ///< the one of these two that is used
    RSComm m_link;
};

} // namespace tambrix
