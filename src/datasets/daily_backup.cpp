#include "datasets/daily_backup.h"

#include "data/own_file.h"
#include "datasets/backup_dialog.h"

#include <QApplication>
#include <QEvent>
#include <QFileInfo>

namespace tambrix {

namespace {

constexpr int kLookEvery = 20'000;   // ms
constexpr int kQuietFor = 2'000;     // ms without a key or a click
constexpr int kRetryAfter = 15 * 60; // s
const QString kTime = QStringLiteral("DailyBackup/time");
const QString kLast = QStringLiteral("DailyBackup/last");

bool isUserAction(QEvent::Type type)
{
    return type == QEvent::KeyPress || type == QEvent::MouseButtonPress || type == QEvent::Wheel ||
           type == QEvent::TouchBegin;
}

} // namespace

bool dailyBackupDue(const QDateTime& now, const QTime& at, const QDateTime& last)
{
    QDateTime latest(now.date(), at);
    if (latest > now)
        latest = latest.addDays(-1);
    return last.isValid() && last < latest;
}

DailyBackup::DailyBackup(ProgramState& state) : m_state(state), m_loop([this] { return mayRun(); })
{
    m_timer.setInterval(kLookEvery);
    connect(&m_timer, &QTimer::timeout, this, &DailyBackup::look);
    if (time())
        m_timer.start();
    qApp->installEventFilter(this);
}

QString DailyBackup::settingsFile() const
{
    return m_state.dataRoot.filePath(QStringLiteral("backups.ini"));
}

std::optional<QTime> DailyBackup::time() const
{
    const QTime at =
        QTime::fromString(ownSetting(settingsFile(), kTime).toString(), QStringLiteral("HH:mm"));
    return at.isValid() ? std::optional(at) : std::nullopt;
}

void DailyBackup::setTime(const std::optional<QTime>& time)
{
    auto reason = keepOwnSetting(settingsFile(), kLast, QDateTime::currentDateTime());
    if (!reason) // what was missed before counts no more
        reason = keepOwnSetting(settingsFile(), kTime,
                                time ? time->toString(QStringLiteral("HH:mm")) : QString());
    if (reason)
        emit told(QStringLiteral("Daily backup: its time could not be kept. ") + *reason);
    if (time)
        m_timer.start();
    else
        m_timer.stop();
}

bool DailyBackup::eventFilter(QObject*, QEvent* event)
{
    if (isUserAction(event->type()))
        m_lastAction.start();
    return false;
}

bool DailyBackup::mayRun() const
{
    return !m_state.gLink.isBusy() && QApplication::activeModalWidget() == nullptr &&
           (!m_lastAction.isValid() || m_lastAction.elapsed() > kQuietFor);
}

void DailyBackup::look()
{
    const auto at = time();
    const QDateTime now = QDateTime::currentDateTime();
    if (at && !running() && m_state.canReachBoard() && !(m_notBefore > now) &&
        dailyBackupDue(now, *at, ownSetting(settingsFile(), kLast).toDateTime()))
        m_loop.start(work());
}

Task DailyBackup::work()
{
    co_await m_loop.pendingEvents();
    m_reading = std::make_unique<ControllerReading>(m_state.gLink);
    while (m_state.canReachBoard() && !m_reading->ended()) {
        m_reading->step();
        co_await m_loop.pendingEvents();
    }
    tell();
    m_reading.reset();
    m_loop.stop();
}

void DailyBackup::tell()
{
    const bool whole = m_reading->ended() && !m_reading->failed();
    if (!whole && !m_state.canReachBoard())
        return emit told(QStringLiteral("Daily backup: broken off, the program went off line."));
    const auto saved = whole ? saveBackup(m_state, m_reading->data())
                             : std::variant<QString, Refusal>(Refusal{m_reading->failure()});
    if (const auto* path = std::get_if<QString>(&saved)) {
        keepOwnSetting(settingsFile(), kLast, QDateTime::currentDateTime());
        return emit told(QStringLiteral("Daily backup: ") + QFileInfo(*path).fileName());
    }
    m_notBefore = QDateTime::currentDateTime().addSecs(kRetryAfter);
    emit told(QStringLiteral("Daily backup could not be made: ") + std::get<Refusal>(saved).reason);
}

} // namespace tambrix
