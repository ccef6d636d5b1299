#pragma once

#include "platform/task.h"
#include "shell/program_state.h"

#include <QWidget>

#include <array>

class QGroupBox;
class QLabel;

namespace tambrix {

class CooperativeLoop;

/// The tab that holds the identity of the program in the board against that of the file on disk.
class IdentityPage : public QWidget
{
    Q_OBJECT

public:
    explicit IdentityPage(ProgramState& state);

    /// Shows what the companions of the program file say; `boardType` is the file's type code.
    void showDisk(const QString& programFile, int boardType);

    /// Reads name, checksum and revision from the board, in turns of `loop`, while the link works.
    Task refresh(CooperativeLoop& loop);

    void showOffline();

private:
    static constexpr std::size_t kBoardSide = 3;
    static constexpr std::size_t kDiskSide = 5;

    void showRegister(int index, int value);
    void enableBoardSide(bool enabled);

    ProgramState& m_state;
    std::array<QLabel*, kBoardSide> m_inBoard{};
    std::array<QLabel*, kDiskSide> m_onDisk{};
};

} // namespace tambrix
