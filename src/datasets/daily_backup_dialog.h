#pragma once

#include <QDialog>
#include <QTime>

#include <optional>

class QCheckBox;
class QTimeEdit;

namespace tambrix {

/// Tools > Daily Backup...: whether there is one, and at what time of day.
class DailyBackupDialog : public QDialog
{
    Q_OBJECT

public:
    explicit DailyBackupDialog(const std::optional<QTime>& time, QWidget* parent = nullptr);

    /// What was chosen; none: no daily backup.
    std::optional<QTime> time() const;

private:
    QCheckBox* m_chkDaily;
    QTimeEdit* m_txtTime;
};

} // namespace tambrix
