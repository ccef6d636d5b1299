#include "maintenance/line_monitor_model.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <array>
#include <vector>

namespace tambrix {

namespace {

constexpr std::array<const char*, LineMonitorModel::kColumns> kHeaders = {
    "Time", "Sent", "Received", "Meaning", "Duration", "Resends", "What Failed"};

QString byteText(std::int16_t byte)
{
    if (byte == kNoByte)
        return QStringLiteral("-");
    if (byte == kSecretByte)
        return QStringLiteral("**");
    return QStringLiteral("%1").arg(byte, 2, 16, QLatin1Char('0')).toUpper();
}

/// Red that can be read on the table's ground, light or dark.
QColor troubleColor()
{
    const bool dark = QGuiApplication::palette().color(QPalette::Base).lightness() < 128;
    return dark ? QColor(0xFF, 0x8A, 0x80) : QColor(0xB0, 0x00, 0x20);
}

} // namespace

LineMonitorModel::LineMonitorModel(const LineTrace& trace, std::optional<QDateTime> zero,
                                   QObject* parent)
    : QAbstractTableModel(parent), m_trace(trace), m_zero(std::move(zero))
{
}

void LineMonitorModel::follow()
{
    const std::uint64_t lookedAt = m_next;
    if (!m_story.follow(m_trace))
        return;
    dropForgotten();
    addNew();
    // A resend belongs to the entry before it.
    const auto amended = std::ranges::lower_bound(m_rows, lookedAt == 0 ? 0 : lookedAt - 1);
    if (amended == m_rows.end() || *amended + 1 != lookedAt)
        return;
    const int row = static_cast<int>(amended - m_rows.begin());
    emit dataChanged(index(row, 0), index(row, kColumns - 1));
}

void LineMonitorModel::dropForgotten()
{
    const auto kept = std::ranges::lower_bound(m_rows, m_story.forgotten());
    const int gone = static_cast<int>(kept - m_rows.begin());
    if (gone == 0)
        return;
    beginRemoveRows({}, 0, gone - 1);
    m_rows.erase(m_rows.begin(), kept);
    endRemoveRows();
}

void LineMonitorModel::addNew()
{
    std::vector<std::uint64_t> found;
    const auto& entries = m_story.entries();
    m_next = std::max(m_next, m_story.forgotten());
    for (; m_next < m_story.forgotten() + entries.size(); ++m_next) {
        if (passes(entries[m_next - m_story.forgotten()]))
            found.push_back(m_next);
    }
    if (found.empty())
        return;
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(found.size()) - 1);
    m_rows.insert(m_rows.end(), found.begin(), found.end());
    endInsertRows();
}

void LineMonitorModel::setFilter(const QString& registerName, bool errorsOnly)
{
    beginResetModel();
    m_register = registerName.trimmed();
    m_errorsOnly = errorsOnly;
    m_rows.clear();
    const auto& entries = m_story.entries();
    m_next = m_story.forgotten() + entries.size();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (passes(entries[i]))
            m_rows.push_back(m_story.forgotten() + i);
    }
    endResetModel();
}

bool LineMonitorModel::passes(const LineEntry& entry) const
{
    if (m_errorsOnly && entry.trouble == LineTrouble::None)
        return false;
    return m_register.isEmpty() ||
           tambrix::registerName(entry).startsWith(m_register, Qt::CaseInsensitive);
}

int LineMonitorModel::find(const QString& text, int row) const
{
    const int rows = rowCount();
    for (int step = 1; step <= rows && !text.isEmpty(); ++step) {
        const int candidate = (row + step + rows) % rows;
        if (rowText(candidate).contains(text, Qt::CaseInsensitive))
            return candidate;
    }
    return -1;
}

QString LineMonitorModel::rowText(int row) const
{
    QStringList columns;
    for (int column = 0; column < kColumns; ++column)
        columns += text(entryAt(row), column);
    return columns.join(u'\t');
}

int LineMonitorModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int LineMonitorModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(kColumns);
}

QVariant LineMonitorModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const LineEntry& entry = entryAt(index.row());
    if (role == Qt::DisplayRole)
        return text(entry, index.column());
    if (role == Qt::ForegroundRole && entry.trouble != LineTrouble::None)
        return troubleColor();
    if (role == Qt::TextAlignmentRole && (index.column() == Took || index.column() == Resends))
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant LineMonitorModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= kColumns)
        return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    return role == Qt::DisplayRole
               ? QVariant(QLatin1String(kHeaders[static_cast<std::size_t>(section)]))
               : QVariant();
}

const LineEntry& LineMonitorModel::entryAt(int row) const
{
    return m_story.entries()[m_rows[static_cast<std::size_t>(row)] - m_story.forgotten()];
}

QString LineMonitorModel::text(const LineEntry& entry, int column) const
{
    switch (column) {
    case Time:
        return timeText(entry);
    case Out:
        return bytesText(entry, &LineExchange::out);
    case In:
        return bytesText(entry, &LineExchange::in);
    case Meaning:
        return meaning(entry);
    case Took:
        return QStringLiteral("%1 ms").arg(
            std::chrono::duration<double, std::milli>(durationOf(entry)).count(), 0, 'f', 1);
    case Resends:
        return entry.resends == 0 ? QString() : QString::number(entry.resends);
    default:
        return troubleText(entry);
    }
}

/// Everything below stands on the exchanges, which a trace that runs on while the monitor pauses
/// may hold no more.
QString LineMonitorModel::timeText(const LineEntry& entry) const
{
    if (entry.first < m_trace.begin())
        return {};
    const auto sent = m_trace.at(entry.first).sent;
    if (!m_zero)
        return QString::number(std::chrono::duration<double>(sent).count(), 'f', 6);
    const auto since = std::chrono::duration_cast<std::chrono::milliseconds>(sent);
    return m_zero->addMSecs(since.count()).toString(QStringLiteral("HH:mm:ss.zzz"));
}

QString LineMonitorModel::bytesText(const LineEntry& entry, std::int16_t LineExchange::*byte) const
{
    QStringList bytes;
    for (std::uint64_t i = 0; i < entry.count && entry.first >= m_trace.begin(); ++i)
        bytes += byteText(m_trace.at(entry.first + i).*byte);
    return bytes.join(u' ');
}

Duration LineMonitorModel::durationOf(const LineEntry& entry) const
{
    if (entry.first < m_trace.begin())
        return {};
    const LineExchange& last = m_trace.at(entry.first + entry.count - 1);
    return last.sent + last.took - m_trace.at(entry.first).sent;
}

} // namespace tambrix
