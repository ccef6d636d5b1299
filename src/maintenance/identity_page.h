#pragma once

#include "platform/task.h"
#include "shell/program_state.h"

#include <QWidget>

#include <array>

class QGroupBox;

namespace tambrix {

class LinkPoller;
class ValueLabel;

/// The tab that holds the identity of the program in the board against that of the file on disk.
class IdentityPage : public QWidget
{
    Q_OBJECT

public:
    explicit IdentityPage(ProgramState& state);

    /// Shows what the companions of the program file say; `boardType` is the file's type code.
    void showDisk(const QString& programFile, int boardType);

    /// Reads name, checksum and revision from the board, in turns of `poller`, while the link
    /// works.
    Task refresh(LinkPoller& poller);

    /// Off line: greys the board's side.
    void showMode(bool online);

private:
    static constexpr std::size_t kBoardSide = 3;
    static constexpr std::size_t kDiskSide = 5;

    void showRegister(std::size_t index, const QString& value);

    ProgramState& m_state;
    std::array<ValueLabel*, kBoardSide> m_inBoard{};
    std::array<ValueLabel*, kDiskSide> m_onDisk{};
};

} // namespace tambrix
