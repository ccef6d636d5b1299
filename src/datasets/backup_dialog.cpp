#include "datasets/backup_dialog.h"

#include "controls/forms.h"
#include "controls/named_controls.h"
#include "data/backups.h"
#include "data/press_name.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

namespace tambrix {

namespace {

constexpr int kWidth = 360;
constexpr int kPaintEvery = 16; // entries: some 0.1 s at 9600

} // namespace

std::variant<QString, Refusal> saveBackup(const ProgramState& state, const SetupDataRecord& read)
{
    SetupDataRecord record = read;
    record.Version = state.gProgramVersion;
    return Backups(state.dataRoot)
        .save(record, QDateTime::currentDateTime(), pressName(state.dataRoot), state.labelNames);
}

BackupDialog::BackupDialog(ProgramState& state, QWidget* parent)
    : QDialog(parent),
      m_state(state),
      m_reading(state.gLink),
      m_progress(new QProgressBar),
      m_loop([this] { return !m_state.gLink.isBusy(); })
{
    setObjectName(QStringLiteral("frmBackup"));
    setWindowTitle(QStringLiteral("TAMBRIX"));
    build();
    CenterForm(*this);
}

void BackupDialog::build()
{
    m_progress->setObjectName(QStringLiteral("prgBackup"));
    m_progress->setAccessibleName(QStringLiteral("Progress"));
    m_progress->setMaximum(m_reading.total());
    m_progress->setMinimumWidth(kWidth);
    auto* cancel = makeButton(QStringLiteral("cmdCancel"), QStringLiteral("Cancel"));
    connect(cancel, &QPushButton::clicked, this, &BackupDialog::reject);

    auto* content = new QVBoxLayout(this);
    content->addWidget(makeLabel(QStringLiteral("lblBackup"),
                                 QStringLiteral("Backing Up the Controller, Please Standby")));
    content->addWidget(m_progress);
    content->addWidget(cancel, 0, Qt::AlignRight);
    content->setSizeConstraint(QLayout::SetFixedSize);
}

void BackupDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous() && !m_loop.running())
        m_loop.start(work());
}

Task BackupDialog::work()
{
    co_await m_loop.pendingEvents();
    while (!m_cancelled && !m_reading.ended()) {
        m_reading.step();
        if (m_reading.progress() % kPaintEvery == 0)
            m_progress->setValue(m_reading.progress());
        co_await m_loop.pendingEvents();
    }
    if (m_reading.failed())
        m_reason = m_reading.failure();
    else if (!m_cancelled)
        save();
    accept();
}

void BackupDialog::save()
{
    const auto saved = saveBackup(m_state, m_reading.data());
    m_made = std::holds_alternative<QString>(saved);
    if (!m_made)
        m_reason = std::get<Refusal>(saved).reason;
}

bool backUpBeforeDownload(ProgramState& state, QWidget* window)
{
    BackupDialog dialog(state, window);
    dialog.exec();
    if (!dialog.reason().isEmpty())
        state.prompts.showMessage({BoxIcon::Warning, BoxButtons::Ok, "TAMBRIX",
                                   "The download was not begun: there is no backup.\r\n\r\n" +
                                       dialog.reason().toStdString()});
    return dialog.made();
}

} // namespace tambrix
