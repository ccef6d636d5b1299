#pragma once

#include "data/label_range.h"

#include <QDialog>

#include <array>

class QLineEdit;
class QRadioButton;

namespace tambrix {

/// Asks which labels a transfer covers: all, or from one to another.
class LabelRangeDialog : public QDialog
{
    Q_OBJECT

public:
    explicit LabelRangeDialog(QWidget* parent = nullptr);

    /// What was chosen, once the dialog has closed; cancelled, with labels 0 to 0, before that.
    const LabelRange& range() const { return m_range; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildOptions();
    void ok();

    LabelRange m_range;
    std::array<QRadioButton*, 2> m_optLabels{};
    std::array<QLineEdit*, 2> m_txtLabels{};
};

} // namespace tambrix
