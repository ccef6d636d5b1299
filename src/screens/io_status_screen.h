#pragma once

#include "shell/screen.h"

#include <array>

class QGroupBox;

namespace tambrix {

class Lamp;
class ValueLabel;

/// The live inputs and outputs of the controller, and its analog and resolver module. Writes
/// nothing.
class IoStatusScreen : public Screen
{
    Q_OBJECT

public:
    explicit IoStatusScreen(ProgramState& state);

protected:
    void applyOnlineView() override;
    void applyOfflineView() override;
    Task onlinePass() override;

private:
    static constexpr std::size_t kModuleRows = 11;
    static constexpr std::size_t kSlotRows = 16;
    using SlotLabels = std::array<ValueLabel*, kSlotRows>;
    using SlotLamps = std::array<Lamp*, kSlotRows>;

    QGroupBox* makeModule();
    QGroupBox* makeInputs();
    QGroupBox* makeOutputs();
    void showDashes(bool enabled);
    void showEntry(std::size_t entry, const QString& value);
    void showOutputs(int bits);

    std::array<ValueLabel*, kModuleRows> m_module{};
    SlotLabels m_inputs{};
    SlotLabels m_outputs{};
    SlotLamps m_inputLamps{};
    SlotLamps m_outputLamps{};
    std::array<QGroupBox*, 3> m_frames;
};

} // namespace tambrix
