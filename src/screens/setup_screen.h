#pragma once

#include "controls/bit_boxes.h"
#include "controls/numeric_entry_field.h"
#include "shell/screen.h"

#include <array>
#include <bitset>

class QGroupBox;

namespace tambrix {

class CycleRing;

/// The controller's machine-wide colour-control parameters: four numbers, and per ductor whether
/// its feedback is watched.
class SetupScreen : public Screen
{
    Q_OBJECT

public:
    explicit SetupScreen(ProgramState& state);

protected:
    void applyOnlineView() override;
    void applyOfflineView() override;
    Task onlinePass() override;
    Task offlinePass() override;

private:
    static constexpr std::size_t kFields = 4;

    QGroupBox* makeParameters();
    QGroupBox* makeFeedback();
    QGroupBox* makeCycle();
    EntryRules rulesOf(std::size_t entry);
    void learn(std::size_t entry);
    void enableControls(bool enabled);
    void showEntry(std::size_t entry, const QString& value);
    bool setFeedback(int bits);

    std::array<NumericEntryField*, kFields> m_fields{};
    std::bitset<kFields> m_known; ///< what the fields show has been read in this mode
    BitBoxes m_feedback;
    QGroupBox* m_parameterFrame;
    QGroupBox* m_feedbackFrame;
    QGroupBox* m_cycleFrame = nullptr;
    CycleRing* m_ring = nullptr;
    int m_maximumCycle = 0; ///< as last read
};

} // namespace tambrix
