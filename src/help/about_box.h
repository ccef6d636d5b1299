#pragma once

#include "shell/program_state.h"

#include <QDialog>

namespace tambrix {

/// Product name, version, what the program is, where to get support, and the way to the system
/// information.
class AboutBox : public QDialog
{
    Q_OBJECT

public:
    explicit AboutBox(const ProgramState& state, QWidget* parent = nullptr);

private:
    QLayout* makeTexts();
    void showSystemInfo();

    const ProgramState& m_state;
};

} // namespace tambrix
