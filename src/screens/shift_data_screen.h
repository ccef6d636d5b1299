#pragma once

#include "data/setup_data.h"
#include "shell/screen.h"

#include <array>

class QGroupBox;

namespace tambrix {

class NumericEntryField;
class ValueBar;
class ValueLabel;

/// How often each ductor has cycled in this shift, and the reset of those counts.
class ShiftDataScreen : public Screen
{
    Q_OBJECT

public:
    explicit ShiftDataScreen(ProgramState& state);

protected:
    void applyOnlineView() override;
    void applyOfflineView() override;
    Task onlinePass() override;
    Task offlinePass() override;

private:
    QGroupBox* makeCounts();
    QGroupBox* makeReset();
    void showCount(std::size_t ductor, qint64 count);
    void resetCounts();

    std::array<ValueLabel*, kDuctors> m_counts{};
    std::array<ValueBar*, kDuctors> m_bars{};
    std::array<double, kDuctors> m_values{}; ///< the counts shown
    NumericEntryField* m_ductor;
    QPushButton* m_reset;
    QGroupBox* m_countFrame;
    QGroupBox* m_resetFrame;
};

/// The bits that ask the controller to clear counts, for a ductor number as typed: 2^(n-1), all
/// eight for 0, and none for what is below 1 otherwise.
int resetMask(const QString& ductorNumber);

} // namespace tambrix
