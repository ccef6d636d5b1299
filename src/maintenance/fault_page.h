#pragma once

#include "platform/task.h"
#include "shell/program_state.h"

#include <QWidget>

#include <array>
#include <functional>
#include <optional>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QVBoxLayout;

namespace tambrix {

class LinkPoller;

/// The tab with the board's fault and network error codes, their texts and what to do.
class FaultPage : public QWidget
{
    Q_OBJECT

public:
    /// `reset` is what Reset Faults does.
    FaultPage(ProgramState& state, const std::function<void()>& reset);

    /// Whether the CO-CPU slot is shown: on boards that have co-processors.
    void showSlot(bool shown);

    /// Reads the six codes, in turns of `poller`, and shows them with their texts. A link that is
    /// broken, or breaks meanwhile, shows as the cable-check code.
    Task refresh(LinkPoller& poller);

    /// Off line: says that the board cannot be reached.
    void showMode(bool online);

    /// Reset Faults is available where there is something to reset.
    void enableReset(bool enabled);

private:
    static constexpr std::size_t kCodes = 6;

    QWidget* makeFaults();
    QWidget* makeNetworkErrors();
    void addCode(QVBoxLayout& layout, std::size_t index);
    std::optional<int> readRegister(std::size_t index);
    QString readCode(std::size_t index);
    void showCodes();
    void showTexts(std::initializer_list<std::size_t> boxes, const char* file);
    void showSlotNumber(int slot);

    ProgramState& m_state;
    std::array<QString, kCodes> m_codes; ///< as shown, hexadecimal
    std::array<QLabel*, kCodes> m_labels{};
    std::array<QPlainTextEdit*, kCodes> m_boxes{};
    QPushButton* m_reset;
    bool m_slotShown = false;
};

} // namespace tambrix
