#include "datasets/daily_backup_dialog.h"

#include "controls/named_controls.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QTimeEdit>
#include <QVBoxLayout>

namespace tambrix {

DailyBackupDialog::DailyBackupDialog(const std::optional<QTime>& time, QWidget* parent)
    : QDialog(parent),
      m_chkDaily(new QCheckBox(QStringLiteral("Make a &backup every day at"))),
      m_txtTime(new QTimeEdit(time.value_or(QTime(6, 0))))
{
    setObjectName(QStringLiteral("frmDailyBackup"));
    setWindowTitle(QStringLiteral("Daily Backup"));
    m_chkDaily->setObjectName(QStringLiteral("chkDaily"));
    m_chkDaily->setChecked(time.has_value());
    m_txtTime->setObjectName(QStringLiteral("txtTime"));
    m_txtTime->setAccessibleName(QStringLiteral("Time of day"));
    m_txtTime->setDisplayFormat(QStringLiteral("HH:mm"));
    m_txtTime->setEnabled(time.has_value());
    connect(m_chkDaily, &QCheckBox::toggled, m_txtTime, &QWidget::setEnabled);
    auto* about = makeLabel(QStringLiteral("lblAbout"),
                            QStringLiteral("Made while the program is on line, from what the "
                                           "controller holds. A missed one is made up."));
    about->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* row = new QHBoxLayout;
    row->addWidget(m_chkDaily);
    row->addWidget(m_txtTime);
    row->addStretch(1);
    auto* content = new QVBoxLayout(this);
    content->addLayout(row);
    content->addWidget(about);
    content->addWidget(buttons);
}

std::optional<QTime> DailyBackupDialog::time() const
{
    return m_chkDaily->isChecked() ? std::optional(m_txtTime->time()) : std::nullopt;
}

} // namespace tambrix
