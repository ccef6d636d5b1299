#include "shell/processing_dialog.h"

#include "controls/forms.h"
#include "controls/frame_limit.h"
#include "controls/steady_place.h"
#include "controls/value_label.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

namespace tambrix {

namespace {

constexpr int kWidth = 360;

} // namespace

ProcessingDialog::ProcessingDialog(ProgramState& state, TransferPlan plan, QWidget* parent)
    : QDialog(parent),
      m_state(state),
      m_transfer(state.gLink, state.gWorkingData, std::move(plan)),
      m_prgProcessing(new QProgressBar),
      m_done(new ValueLabel(QStringLiteral("lblDone"), QStringLiteral("Progress"), {})),
      m_loop([this] { return mayRun(); })
{
    setObjectName(QStringLiteral("frmProcessing"));
    setWindowTitle(QStringLiteral("TAMBRIX"));
    build();
    new FrameLimit(*this, m_state.lineWaits); // the window owns it
    CenterForm(*this);
}

void ProcessingDialog::build()
{
    auto* lblProcessing = new QLabel(m_transfer.plan().caption);
    lblProcessing->setObjectName(QStringLiteral("lblProcessing"));
    m_prgProcessing->setObjectName(QStringLiteral("prgProcessing"));
    if (m_transfer.plan().progressMaximum)
        m_prgProcessing->setMaximum(*m_transfer.plan().progressMaximum);
    m_prgProcessing->setValue(0);
    auto* cmdCancel = new QPushButton(QStringLiteral("Cancel"));
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(cmdCancel, &QPushButton::clicked, this, &ProcessingDialog::reject);

    auto* content = new QVBoxLayout(this);
    content->addWidget(lblProcessing);
    content->addWidget(m_prgProcessing);
    m_done->setForegroundRole(QPalette::PlaceholderText);
    m_done->setWidest(QStringLiteral("0000 of 0000 values, about 00 min 00 s left"));
    content->addWidget(new SteadyPlace(m_done));
    content->addWidget(cmdCancel, 0, Qt::AlignRight);
    m_prgProcessing->setMinimumWidth(kWidth);
    content->setSizeConstraint(QLayout::SetFixedSize);
}

void ProcessingDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous() && !m_loop.running())
        m_loop.start(work());
}

Task ProcessingDialog::work()
{
    m_cancelled = false;
    m_running.start();
    m_pace.start(0);
    co_await m_loop.pendingEvents();
    while (!m_cancelled && !m_transfer.ended()) {
        m_transfer.step();
        showProgress();
        co_await m_loop.pendingEvents();
    }
    if (m_transfer.linkBroken())
        warn("Error Processing Request\r\n\r\nProcess Not Complete");
    if (!m_transfer.findings().empty()) // kept: told once, at the end, not for every register
        warn("Not all data were transferred.\r\n\r\n" +
             sentences(m_transfer.findings()).toStdString());
    accept();
}

void ProcessingDialog::showProgress()
{
    const TransferPlan& plan = m_transfer.plan();
    setValueUnpainted(*m_prgProcessing, m_transfer.progress());
    const double now = static_cast<double>(m_running.elapsed()) / 1000;
    const auto text = m_pace.text(now, m_transfer.progress(), plan.last - plan.first + 1);
    if (!text)
        return;
    m_done->setValue(*text);
    m_prgProcessing->update();
}

void ProcessingDialog::warn(const std::string& text)
{
    m_state.prompts.showMessage({BoxIcon::Warning, BoxButtons::Ok, "TAMBRIX", text});
}

/// A box that is no part of the transfer, such as one of the help, does not stop it.
bool ProcessingDialog::mayRun() const
{
    return !m_state.gLink.isBusy();
}

} // namespace tambrix
