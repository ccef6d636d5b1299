#pragma once

#include "shell/program_state.h"

#include <QWidget>

#include <array>

class QLabel;

namespace tambrix {

class ValueBar;
class ValueLabel;

/// One label as a picture: how much ink each of its ductors gives.
class LabelPane : public QWidget
{
    Q_OBJECT

public:
    explicit LabelPane(ProgramState& state);

    /// Shows label `label` (0 to 99) of the working data.
    void showLabel(int label);
    int label() const { return m_label; }

private:
    ProgramState& m_state;
    int m_label = 0;
    QLabel* m_title;
    QLabel* m_name;
    std::array<ValueBar*, kDuctors> m_bars{};
    std::array<ValueLabel*, kDuctors> m_densities{};
};

} // namespace tambrix
