#include "maintenance/program_download_window.h"

#include "controls/forms.h"
#include "controls/named_controls.h"
#include "data/link_text.h"

#include <QCoreApplication>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace tambrix {

namespace {

constexpr int kProgressInterval = 50; // ms

} // namespace

ProgramDownloadWindow::ProgramDownloadWindow(ProgramState& state, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_state(state),
      m_progress(makeLabel(QStringLiteral("lblWaitDisplay"),
                           QStringLiteral("Sending Program at Address: 0000H"))),
      m_timer(this)
{
    setObjectName(QStringLiteral("frmDownloadProg"));
    setWindowTitle(QStringLiteral("Program Download"));
    setModal(true);
    QGroupBox* frame = makeFrame(QStringLiteral("fraWaitDisplay"), {});
    auto* inside = new QVBoxLayout(frame);
    inside->setContentsMargins(36, 24, 36, 24);
    inside->addWidget(m_progress, 0, Qt::AlignCenter);
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
    m_progress->setText(QStringLiteral("Sending Program at Address: "));
    CenterForm(*this);
    m_timer.start();
    QTimer::singleShot(0, this, &ProgramDownloadWindow::transfer); // the window paints first
}

void ProgramDownloadWindow::transfer()
{
    m_state.gLink.DumpProgram([] { QCoreApplication::processEvents(); });
    m_timer.stop();
    accept();
}

void ProgramDownloadWindow::showProgress()
{
    const RSComm& link = m_state.gLink;
    if (!link.InProgramMode())
        return;
    m_progress->setText(link.WritingIdent() ? QStringLiteral("Writing Program Ident ... ")
                                            : QStringLiteral("Writing to Program Address: ") +
                                                  fromLink(link.CurrentProgramAdd()));
}

} // namespace tambrix
