#include "datasets/compare_session.h"

#include "data/link_text.h"
#include "datasets/backup_dialog.h"
#include "datasets/compare_text.h"

#include <QFileInfo>

#include <algorithm>

namespace tambrix {

namespace {

using Kind = DatasetSource::Kind;

const QString kCancelled = QStringLiteral("Cancelled.");

} // namespace

CompareSession::CompareSession(ProgramState& state, std::function<bool()> mayRun)
    : m_state(state), m_loop(std::move(mayRun))
{
}

bool CompareSession::canWrite() const
{
    return m_comparison && right.kind == Kind::Controller && !running();
}

bool CompareSession::canRetry() const
{
    const int open = static_cast<int>(m_rows.size()) - countOf(m_rows, WriteState::Verified);
    return open > 0 && canWrite();
}

/// A controller is on a side: the program has to be on line.
bool CompareSession::begin()
{
    m_cancelled = false;
    const bool live = left.kind == Kind::Controller || right.kind == Kind::Controller;
    return !live || (m_state.offerOnline() && m_state.canReachBoard());
}

void CompareSession::finish(const QString& summary)
{
    m_summary = summary;
    m_reading.reset();
    m_restore.reset();
    m_loop.stop();
    if (m_state.gLink.CommError) // the screens' own loops stand still behind this window
        m_state.dropOffline();
    emit ended();
}

void CompareSession::compare()
{
    if (running())
        return;
    m_tickOnly.reset();
    m_loop.start(compareTask());
}

void CompareSession::compareOnly(std::vector<std::string> addresses)
{
    if (running())
        return;
    left = {Kind::WorkingData, {}};
    right = {Kind::Controller, {}};
    m_tickOnly = std::move(addresses);
    m_loop.start(compareTask());
}

void CompareSession::undoLastRestore()
{
    const auto last = backups().lastRestore();
    if (running() || !last)
        return;
    left = {Kind::Backup, last->backup};
    right = {Kind::Controller, {}};
    m_tickOnly = last->addresses;
    m_loop.start(compareTask());
}

Task CompareSession::compareTask()
{
    co_await m_loop.pendingEvents();
    if (left == right)
        co_return finish(QStringLiteral("Choose two different data sets."));
    QString reason;
    for (auto [source, data] : {std::pair(&left, &m_leftData), std::pair(&right, &m_rightData)}) {
        if (source->kind == Kind::Controller)
            continue;
        auto loaded = loadDataset(m_state, *source, reason);
        if (!loaded)
            co_return finish(reason);
        *data = std::move(*loaded);
    }
    if (!begin())
        co_return finish(QStringLiteral("The controller cannot be read: the program is off line."));
    if (const bool live = left.kind == Kind::Controller; live || right.kind == Kind::Controller) {
        co_await readController(QStringLiteral("Reading the controller"),
                                live ? &m_rightData : &m_leftData);
        if (!m_reading->ended() || m_reading->failed())
            co_return finish(m_cancelled ? kCancelled : m_reading->failure());
        (live ? m_leftData : m_rightData) = m_reading->data();
        m_readAt = QDateTime::currentDateTime();
    }
    showComparison(m_leftData, m_rightData);
    finish(verdict());
}

Task CompareSession::readController(QString what, const SetupDataRecord* expected)
{
    m_reading = std::make_unique<ControllerReading>(m_state.gLink, expected);
    while (!m_cancelled && !m_reading->ended()) {
        m_reading->step();
        emit progressed(what, m_reading->progress(), m_reading->total());
        co_await m_loop.pendingEvents();
    }
}

void CompareSession::showComparison(const SetupDataRecord& from, const SetupDataRecord& to)
{
    m_rows.clear();
    m_comparison = std::make_unique<Comparison>(
        from, to, m_reading ? m_reading->running() : std::optional<RunningValues>());
    if (!m_tickOnly)
        m_comparison->tickOrdinary();
    else
        m_comparison->tickOnly(*m_tickOnly);
    emit compared();
}

void CompareSession::write()
{
    if (canWrite())
        m_loop.start(writeTask());
}

Task CompareSession::writeTask()
{
    co_await m_loop.pendingEvents();
    const std::vector<RestoreRow> rows = m_comparison->tickedRows();
    if (rows.empty())
        co_return finish(QStringLiteral("Nothing is ticked."));
    if (!begin())
        co_return finish(QStringLiteral("Nothing was written: the program is off line."));
    co_await readController(QStringLiteral("Backing up the controller"), &m_rightData);
    if (!m_reading->ended() || m_reading->failed())
        co_return finish(QStringLiteral("Nothing was written. ") +
                         (m_cancelled ? kCancelled : m_reading->failure()));
    const SetupDataRecord now = m_reading->data();
    if (changedSince(now, rows))
        co_return;
    if (const QString reason = backUp(now, rows); !reason.isEmpty())
        co_return finish(QStringLiteral("Nothing was written. ") + reason);
    co_await restoreTask(rows);
}

/// Values that the press or somebody else changed since they were compared: the list is made anew
/// and the user looks again. Shift counts always do.
bool CompareSession::changedSince(const SetupDataRecord& now, const std::vector<RestoreRow>& rows)
{
    const Comparison since(m_rightData, now);
    std::vector<std::string> ticked;
    ticked.reserve(rows.size());
    int changed = 0;
    for (const RestoreRow& row : rows)
        ticked.push_back(row.address);
    for (const ComparedEntry& entry : since.entries()) {
        const bool concerned =
            std::find(ticked.begin(), ticked.end(), entry.address) != ticked.end();
        changed += concerned && entry.differs() && entry.address.front() != 'D';
    }
    if (changed == 0)
        return false;
    m_rightData = now;
    m_readAt = QDateTime::currentDateTime();
    m_tickOnly = ticked;
    showComparison(m_leftData, m_rightData);
    finish(QStringLiteral("Nothing was written: of the ticked values %1 changed in the controller "
                          "since they were compared. Look again, then write.")
               .arg(changed));
    return true;
}

/// Returns why the restore must not begin; empty when all is well.
QString CompareSession::backUp(const SetupDataRecord& record, const std::vector<RestoreRow>& rows)
{
    const auto saved = saveBackup(m_state, record);
    if (const auto* refusal = std::get_if<Refusal>(&saved))
        return refusal->reason;
    m_backup = std::get<QString>(saved);
    LastRestore note{m_backup, {}};
    for (const RestoreRow& row : rows)
        note.addresses.push_back(row.address);
    return backups().rememberRestore(note).value_or(QString());
}

void CompareSession::retry()
{
    if (canRetry())
        m_loop.start(retryTask());
}

Task CompareSession::retryTask()
{
    co_await m_loop.pendingEvents();
    if (!begin())
        co_return finish(restoreSummary());
    co_await restoreTask(m_rows);
}

Task CompareSession::restoreTask(std::vector<RestoreRow> rows)
{
    m_restore = std::make_unique<Restore>(m_state.gLink, std::move(rows));
    while (!m_cancelled && !m_restore->ended()) {
        m_restore->step();
        emit progressed(QStringLiteral("Writing and reading back"), m_restore->progress(),
                        m_restore->total());
        co_await m_loop.pendingEvents();
    }
    m_rows = m_restore->rows();
    m_comparison->setOutcome(m_rows);
    noteFound();
    finish(restoreSummary());
}

/// What was read back is what the next write finds: only a change after that is one.
void CompareSession::noteFound()
{
    for (const RestoreRow& row : m_rows) {
        const bool read = row.state == WriteState::Verified || row.state == WriteState::Different;
        const auto& addresses = m_rightData.Address;
        const auto place = std::find(addresses.begin(), addresses.end(), row.address);
        if (read && place != addresses.end())
            m_rightData.Value[static_cast<std::size_t>(place - addresses.begin())] = row.found;
    }
}

void CompareSession::takeIntoWorkingData()
{
    if (!m_comparison || running())
        return;
    DataChange change;
    const auto& addresses = m_state.gWorkingData.Address;
    const std::vector<RestoreRow> rows = m_comparison->tickedRows();
    for (const RestoreRow& row : rows) {
        const auto place = std::find(addresses.begin(), addresses.end(), row.address);
        if (place != addresses.end())
            change.values.push_back({static_cast<int>(place - addresses.begin()), row.value});
    }
    m_summary = takenText(change.values.size(), rows.size() - change.values.size());
    m_state.edit(QStringLiteral("Take into Working Data"), std::move(change));
    emit ended();
}

QString CompareSession::verdict() const
{
    return verdictText(m_comparison->differences());
}

QString CompareSession::restoreSummary() const
{
    QString text = verdict() + QStringLiteral("  ") + outcomeText(m_rows);
    if (!m_backup.isEmpty())
        text += QStringLiteral("  Backup: ") + QFileInfo(m_backup).fileName();
    return text;
}

} // namespace tambrix
