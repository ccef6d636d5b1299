#include "maintenance/target_board_window.h"

#include "controls/forms.h"
#include "controls/named_controls.h"
#include "data/processor_registers.h"
#include "data/program_file_name.h"
#include "maintenance/board_fields.h"
#include "maintenance/fault_page.h"
#include "maintenance/identity_page.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tambrix {

namespace {

constexpr int kBoardR120 = 50;
constexpr QSize kWindowSize(680, 560);

} // namespace

TargetBoardWindow::TargetBoardWindow(ProgramState& state, QWidget* parent,
                                     std::function<QDateTime()> now)
    : QDialog(parent),
      m_state(state),
      m_now(std::move(now)),
      m_tabs(new QTabWidget(this)),
      m_ok(makeButton(QStringLiteral("cmdOk"), QStringLiteral("&OK"))),
      m_goOnline(makeButton(QStringLiteral("cmdGoOnline"), QStringLiteral("&Go Online"))),
      m_faults(new FaultPage(state, [this] { resetFaults(); })),
      m_identity(new IdentityPage(state)),
      m_fields(new BoardFields(state, *m_ok, m_now)),
      m_poller(state, *this, *this)
{
    setObjectName(QStringLiteral("frmTargetBoard"));
    setWindowTitle(QStringLiteral("Target Board Interface"));
    m_fields->setParent(this);
    buildTabs();
    buildButtons();
    resize(kWindowSize);
}

TargetBoardWindow::~TargetBoardWindow() = default;

void TargetBoardWindow::buildTabs()
{
    struct Page
    {
        QWidget* widget;
        const char* caption;
    };
    const Page pages[] = {{m_fields->addressPage(), "Set Network Address"},
                          {m_faults, "Fault Codes / Status"},
                          {m_identity, "Program Ident/Revision"},
                          {m_fields->clockPage(), "Set Time && Date"}};
    m_tabs->setObjectName(QStringLiteral("tabTargetBoard"));
    m_tabs->setAccessibleName(windowTitle());
    for (const Page& page : pages) {
        page.widget->setObjectName(arrayName("fraTargetBoard", m_tabs->count()));
        m_tabs->addTab(page.widget, QLatin1String(page.caption));
    }
}

void TargetBoardWindow::buildButtons()
{
    connect(m_ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_goOnline, &QPushButton::clicked, this, &TargetBoardWindow::goOnline);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_goOnline);
    buttons->addStretch();
    buttons->addWidget(m_ok);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addLayout(buttons);
}

void TargetBoardWindow::InitializeForm(const QString& programFile)
{
    const int boardType = ProgramFileTypeChar(programFile);
    m_goOnline->hide();
    m_faults->showSlot(boardType == kBoardR120);
    m_fields->prepare(boardType);
    m_identity->showDisk(programFile, boardType);
}

void TargetBoardWindow::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (m_poller.running()) // back from being minimised
        return;
    CenterForm(*this);
    m_tabs->setCurrentIndex(0);
    m_poller.start();
}

void TargetBoardWindow::done(int result)
{
    m_poller.stop();
    QDialog::done(result);
}

void TargetBoardWindow::showMode(bool online)
{
    if (!online)
        m_goOnline->show();
    m_faults->showMode(online);
    m_identity->showMode(online);
    m_fields->showMode(online);
}

void TargetBoardWindow::everyTurn()
{
    m_fields->showPcClock(m_now());
}

/// What is read once in every on-line period: faults and identity.
Task TargetBoardWindow::enterOnline()
{
    co_await m_faults->refresh(m_poller);
    co_await m_identity->refresh(m_poller);
    if (m_state.canReachBoard())
        m_goOnline->hide();
}

Task TargetBoardWindow::onlinePass()
{
    return m_fields->refresh(m_poller);
}

void TargetBoardWindow::goOnline()
{
    if (!m_state.gLink.OnlineMode)
        m_state.setOnline(true);
}

void TargetBoardWindow::resetFaults()
{
    if (m_state.prompts.showMessage({BoxIcon::Critical, BoxButtons::YesNoCancel,
                                     "WARNING - Fault Code Reset!",
                                     "Target Board will be reinitialized.\r\n"
                                     "Do you wish to continue?"}) != BoxAnswer::Yes)
        return;
    m_faults->enableReset(false);
    RSComm& link = m_state.gLink;
    if (!link.OnlineMode || link.isBusy())
        return;
    for (const Register& code :
         {reg::kLastNetworkError, reg::kNetworkError, reg::kLastFaultCode, reg::kFaultCode}) {
        if (!link.CommError)
            link.RSWrite(code.address, "0");
    }
    m_poller.start(); // reads everything afresh, or shows that the board is gone
}

} // namespace tambrix
