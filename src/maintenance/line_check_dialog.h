#pragma once

#include "maintenance/line_check.h"

#include <QDialog>

#include <functional>

class QLabel;
class QPushButton;

namespace tambrix {

/// One button that tells what is wrong with the line, and what to do.
class LineCheckDialog : public QDialog
{
    Q_OBJECT

public:
    /// `check` does the work and gives the finding.
    explicit LineCheckDialog(std::function<LineFinding()> check, QWidget* parent = nullptr);

private:
    void run();

    std::function<LineFinding()> m_check;
    QPushButton* m_run;
    QLabel* m_what;
    QLabel* m_toDo;
};

} // namespace tambrix
