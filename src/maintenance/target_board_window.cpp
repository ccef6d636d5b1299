#include "maintenance/target_board_window.h"

#include "controls/forms.h"
#include "controls/named_controls.h"
#include "data/program_file_name.h"
#include "maintenance/board_fields.h"
#include "maintenance/fault_page.h"
#include "maintenance/identity_page.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tambrix {

using namespace std::chrono_literals;

namespace {

/// Off line only the PC's clock moves.
constexpr auto kOfflineTurn = 100ms;
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
      m_loop([this] { return mayRun(); })
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
    if (m_loop.running()) // back from being minimised
        return;
    CenterForm(*this);
    m_tabs->setCurrentIndex(0);
    m_loop.start(pollLoop());
}

void TargetBoardWindow::done(int result)
{
    m_loop.stop();
    QDialog::done(result);
}

Task TargetBoardWindow::pollLoop()
{
    RSComm& link = m_state.gLink;
    m_firstPassDone = false;
    m_offlineShown = false;
    for (;;) {
        co_await m_loop.pendingEvents();
        m_fields->showPcClock(m_now());
        if (link.CommError && (link.OnlineMode || m_firstPassDone))
            dropOffline();
        if (!link.OnlineMode) {
            showOffline();
            co_await m_loop.pause(kOfflineTurn);
            continue;
        }
        if (!m_firstPassDone)
            co_await firstPass();
        m_offlineShown = false;
        co_await m_fields->refresh(m_loop);
    }
}

/// What is read once in every on-line period: faults and identity.
Task TargetBoardWindow::firstPass()
{
    m_fields->showOnline();
    co_await m_faults->refresh(m_loop);
    co_await m_identity->refresh(m_loop);
    if (!m_state.gLink.CommError)
        m_goOnline->hide();
    m_firstPassDone = true;
}

void TargetBoardWindow::dropOffline()
{
    m_state.gLink.OnlineMode = false;
    m_firstPassDone = false;
    m_state.ApplyOnlineMode();
}

void TargetBoardWindow::showOffline()
{
    m_firstPassDone = false;
    if (m_offlineShown)
        return;
    m_goOnline->show();
    m_faults->showOffline();
    m_identity->showOffline();
    m_fields->showOffline();
    m_offlineShown = true;
}

void TargetBoardWindow::goOnline()
{
    RSComm& link = m_state.gLink;
    if (link.OnlineMode || link.isBusy())
        return;
    link.CommError = false;
    link.OnlineMode = true;
    m_state.ApplyOnlineMode();
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
    for (const char* reg : {"B8178", "B8179", "B8177", "B8176"}) {
        if (!link.CommError)
            link.RSWrite(reg, "0");
    }
    m_loop.start(pollLoop()); // reads everything afresh, or shows that the board is gone
}

bool TargetBoardWindow::mayRun() const
{
    const QWidget* modal = QApplication::activeModalWidget();
    return !m_state.gLink.isBusy() && (modal == nullptr || modal == this);
}

} // namespace tambrix
