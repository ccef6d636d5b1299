#include "history/history_text.h"

#include <QDateTime>
#include <QHash>

#include <cstdlib>

namespace tambrix {

namespace {

constexpr UtcMs kTogether = 2 * kSecond; // writes that are no further apart belong together
constexpr std::size_t kTransfer = 20;    // that many are no work by hand

struct Known
{
    QString name;
    int ductor = -1;
    int label = -1;
    bool running = false;
};

void addRow(QHash<QString, Known>& all, const Register& row, const Known& like)
{
    const int labels = row.labelStep == 0 ? 1 : kLabels;
    const int ductors = row.ductorStep == 0 ? 1 : kDuctors;
    for (int label = 0; label < labels; ++label) {
        for (int ductor = 0; ductor < ductors; ++ductor) {
            Known known = like;
            known.ductor = row.ductorStep == 0 ? -1 : ductor;
            known.label = row.labelStep == 0 ? -1 : label;
            all.insert(QString::fromStdString(addressOf(row, ductor, label)), known);
        }
    }
}

const QHash<QString, Known>& knownRegisters()
{
    static const QHash<QString, Known> registers = [] {
        QHash<QString, Known> all;
        addRow(all, reg::kWorkingOn, {QStringLiteral("ON"), -1, -1, true});
        addRow(all, reg::kWorkingCycle, {QStringLiteral("CYCLE"), -1, -1, true});
        addRow(all, reg::kOnDuration, {QStringLiteral("ON"), -1, -1, false});
        addRow(all, reg::kCycleDuration, {QStringLiteral("CYCLE"), -1, -1, false});
        for (const Register& single :
             {Register(reg::kMaximumCycle), Register(reg::kMaximumOn), Register(reg::kResponseTime),
              Register(reg::kColorGain), Register(reg::kFeedbackEnable),
              Register(reg::kLabelNumber), reg::kManualDuctors, reg::kStation, reg::kPasscode,
              reg::kAlarmReset})
            addRow(all, single, {QString::fromLatin1(single.name), -1, -1, false});
        all.insert(QStringLiteral("B43"), {QStringLiteral("Shift counts reset"), -1, -1, false});
        return all;
    }();
    return registers;
}

Known knownOf(const WriteRow& row)
{
    const auto found = knownRegisters().constFind(row.address.toUpper());
    return found == knownRegisters().cend() ? Known{row.address, -1, -1, false} : *found;
}

/// The other half of one change: the same duration written to the label's own register.
bool isStoredTwin(const WriteRow& running, const WriteRow& other)
{
    const Known one = knownOf(running);
    const Known two = knownOf(other);
    return one.running && !two.running && two.label >= 0 && one.name == two.name &&
           one.ductor == two.ductor && running.after == other.after &&
           running.confirmed == other.confirmed && running.screen == other.screen &&
           std::abs(running.time - other.time) <= kTogether;
}

/// A change as its user saw it: Color Control reads the running register all the time, the stored
/// one only when it loads the label, so the running one knows what stood there before.
WriteRow shownOf(const std::vector<WriteRow>& rows, std::size_t at)
{
    WriteRow row = rows[at];
    if (at > 0 && isStoredTwin(rows[at - 1], row))
        row.before = rows[at - 1].before;
    else if (at + 1 < rows.size() && isStoredTwin(rows[at + 1], row))
        row.before = rows[at + 1].before;
    return row;
}

bool hasTwin(const std::vector<WriteRow>& rows, std::size_t at)
{
    return (at > 0 && isStoredTwin(rows[at], rows[at - 1])) ||
           (at + 1 < rows.size() && isStoredTwin(rows[at], rows[at + 1]));
}

/// One past the last of the writes that follow each other without a pause in one window.
std::size_t endOfRun(const std::vector<WriteRow>& rows, std::size_t from)
{
    std::size_t end = from + 1;
    while (end < rows.size() && rows[end].screen == rows[from].screen &&
           std::abs(rows[end - 1].time - rows[end].time) <= kTogether)
        ++end;
    return end;
}

/// The label that a write is about; -1: none. A label that was selected is the one written.
int labelOf(const WriteRow& row)
{
    const Known known = knownOf(row);
    if (row.address == QLatin1String(reg::kLabelNumber.address))
        return row.after.toInt();
    return known.label < 0 && known.ductor >= 0 ? row.label.value_or(-1) : known.label;
}

QString nameOfLabel(std::int64_t label, const LabelNames& names)
{
    return label >= 0 && label < kLabels ? names.of(static_cast<int>(label)) : QString();
}

ChangeLine lineOf(const WriteRow& row, const LabelNames& names)
{
    QString change = row.before + QStringLiteral(" -> ") + row.after;
    if (!row.confirmed)
        change += QStringLiteral(" (not confirmed)");
    return {row.time, row.screen,          writtenName(row),
            change,   knownOf(row).ductor, nameOfLabel(labelOf(row), names)};
}

} // namespace

QString localTime(UtcMs time, UtcMs today)
{
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(time);
    const bool sameDay = local.date() == QDateTime::fromMSecsSinceEpoch(today).date();
    return local.toString(sameDay ? QStringLiteral("HH:mm:ss")
                                  : QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

TimeSpan localDay(UtcMs time)
{
    const QDate day = QDateTime::fromMSecsSinceEpoch(time).date();
    return {day.startOfDay().toMSecsSinceEpoch(), day.addDays(1).startOfDay().toMSecsSinceEpoch()};
}

QString spanText(TimeSpan span)
{
    const QDateTime from = QDateTime::fromMSecsSinceEpoch(span.begin);
    const QDateTime to = QDateTime::fromMSecsSinceEpoch(span.end);
    const QDate last = QDateTime::fromMSecsSinceEpoch(span.end - 1).date();
    const bool wholeDays = from == from.date().startOfDay() && to == last.addDays(1).startOfDay();
    const QString begin = from.date().toString(Qt::ISODate);
    if (wholeDays && last == from.date())
        return begin;
    return QStringLiteral("%1 to %2")
        .arg(wholeDays ? begin : localTime(span.begin, 0),
             wholeDays ? last.toString(Qt::ISODate) : localTime(span.end, span.begin));
}

QString labelText(std::int64_t label, const LabelNames& names)
{
    return QStringLiteral("%1 %2").arg(label).arg(nameOfLabel(label, names)).trimmed();
}

QString durationText(UtcMs span)
{
    if (span < kMinute)
        return QStringLiteral("%1 s").arg(span / kSecond);
    if (span < kHour)
        return QStringLiteral("%1 min").arg(span / kMinute);
    if (span < kDay)
        return QStringLiteral("%1 h %2 min")
            .arg(span / kHour)
            .arg(span % kHour / kMinute, 2, 10, QLatin1Char('0'));
    return QStringLiteral("%1 d %2 h").arg(span / kDay).arg(span % kDay / kHour);
}

QString writtenName(const WriteRow& row)
{
    const Known known = knownOf(row);
    if (known.ductor < 0)
        return known.name;
    QString text = QStringLiteral("ductor %1 %2").arg(known.ductor + 1).arg(known.name);
    const int label = labelOf(row);
    if (label >= 0)
        text.prepend(QStringLiteral("label %1, ").arg(label));
    return known.running ? text + QStringLiteral(" (running)") : text;
}

std::vector<ChangeLine> changeLines(const std::vector<WriteRow>& rows, const LabelNames& names)
{
    std::vector<ChangeLine> lines;
    for (std::size_t at = 0; at < rows.size();) {
        const std::size_t end = endOfRun(rows, at);
        if (end - at >= kTransfer) {
            const QString what = QStringLiteral("%1 values").arg(end - at);
            lines.push_back({rows[end - 1].time, rows[at].screen, what, {}, -1, {}});
            at = end;
            continue;
        }
        for (; at < end; ++at) {
            if (!hasTwin(rows, at))
                lines.push_back(lineOf(shownOf(rows, at), names));
        }
    }
    return lines;
}

} // namespace tambrix
