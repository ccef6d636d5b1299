#include "maintenance/program_download_window.h"

#include "controls/forms.h"
#include "controls/named_controls.h"
#include "data/link_text.h"

#include <QCoreApplication>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace tambrix {

namespace {

constexpr int kProgressInterval = 50; // ms
constexpr int kBarWidth = 320;

} // namespace

ProgramDownloadWindow::ProgramDownloadWindow(ProgramState& state, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_state(state),
      m_progress(makeLabel(QStringLiteral("lblWaitDisplay"),
                           QStringLiteral("Sending Program at Address: 0000H"))),
      m_bar(new QProgressBar),
      m_done(makeDimLabel(QStringLiteral(" "))),
      m_timer(this)
{
    setObjectName(QStringLiteral("frmDownloadProg"));
    setWindowTitle(QStringLiteral("Program Download"));
    setModal(true);
    QGroupBox* frame = makeFrame(QStringLiteral("fraWaitDisplay"), {});
    auto* inside = new QVBoxLayout(frame);
    inside->setContentsMargins(36, 24, 36, 24);
    inside->addWidget(m_progress, 0, Qt::AlignCenter);
    m_bar->setObjectName(QStringLiteral("prgProgram"));
    m_bar->setAccessibleName(QStringLiteral("Program sent"));
    m_bar->setMinimumWidth(kBarWidth);
    m_bar->setTextVisible(false);
    m_bar->setValue(0);
    inside->addWidget(m_bar);
    m_done->setObjectName(QStringLiteral("lblDone"));
    inside->addWidget(m_done, 0, Qt::AlignCenter);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    setFixedSize(sizeHint()); // the texts of a transfer are shorter than the first one
    m_timer.setObjectName(QStringLiteral("Timer1"));
    m_timer.setInterval(kProgressInterval);
    connect(&m_timer, &QTimer::timeout, this, &ProgramDownloadWindow::showProgress);
}

void ProgramDownloadWindow::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    m_progress->setText(m_transferMode == kReadBack
                            ? QStringLiteral("Reading Program at Address: ")
                            : QStringLiteral("Sending Program at Address: "));
    CenterForm(*this);
    m_timer.start();
    QTimer::singleShot(0, this, &ProgramDownloadWindow::transfer); // the window paints first
}

void ProgramDownloadWindow::transfer()
{
    if (m_transferMode == kReadBack)
        m_state.gLink.UploadProgram();
    else
        m_state.gLink.DumpProgram([] { QCoreApplication::processEvents(); });
    m_transferMode = kSend;
    m_timer.stop();
    accept();
}

void ProgramDownloadWindow::showProgress()
{
    const RSComm& link = m_state.gLink;
    if (m_transferMode == kReadBack)
        showReading();
    if (m_transferMode == kReadBack || !link.InProgramMode())
        return;
    showRecords();
    m_progress->setText(link.WritingIdent() ? QStringLiteral("Writing Program Ident ... ")
                                            : QStringLiteral("Writing to Program Address: ") +
                                                  fromLink(link.CurrentProgramAdd()));
}

void ProgramDownloadWindow::showReading()
{
    const RSComm& link = m_state.gLink;
    if (link.InUploadMode())
        m_progress->setText(link.ReadingIdent() ? QStringLiteral("Reading Program Ident ... ")
                                                : QStringLiteral("Reading From Program Address: ") +
                                                      fromLink(link.CurrentProgramAdd()));
}

/// The clock starts with the first record: what the operator was asked before it does not count.
void ProgramDownloadWindow::showRecords()
{
    const RSComm& link = m_state.gLink;
    if (link.records() == 0)
        return;
    if (!m_running.isValid()) {
        m_running.start();
        m_pace.start(0);
    }
    const double now = static_cast<double>(m_running.elapsed()) / 1000;
    const auto text = m_pace.text(now, link.recordsSent(), link.records());
    if (!text)
        return;
    m_bar->setRange(0, link.records());
    m_bar->setValue(link.recordsSent());
    m_done->setText(*text);
}

} // namespace tambrix
