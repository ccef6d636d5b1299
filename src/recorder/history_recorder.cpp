#include "recorder/history_recorder.h"

#include "data/parameters.h"
#include "link/lenient_number.h"
#include "link/register_value.h"
#include "link/rs_comm.h"
#include "recorder/recorded_registers.h"

#include <QTimerEvent>

#include <utility>

namespace tambrix {

namespace {

constexpr int kFlushInterval = 1000; // ms
constexpr int kPruneEvery = 60;      // flushes

SpeedBins speedBins(std::size_t bin)
{
    return {kSpeedBins.at(bin), bin == 0};
}

RegisterAddress parsed(std::string_view addr)
{
    RegisterAddress fields;
    ParseAddress(addr, fields);
    return fields;
}

QString text(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace

HistoryRecorder::HistoryRecorder(RSComm& link, const QString& file, Times times)
    : m_link(link),
      m_clock(times.steady, std::move(times.wall)),
      m_store(file, [this](const QString& news) { emit told(news); }),
      m_online(link.OnlineMode && !link.CommError),
      m_speed{speedBins(0), speedBins(1), speedBins(2)}
{
    m_link.addObserver(*this);
    m_timer.start(kFlushInterval, this);
}

HistoryRecorder::~HistoryRecorder()
{
    m_link.removeObserver(*this);
    endPeriod();
}

void HistoryRecorder::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_timer.timerId())
        flush();
}

void HistoryRecorder::linkOpened(bool answered)
{
    endPeriod();
    m_online = answered;
}

void HistoryRecorder::linkClosed()
{
    endPeriod();
    m_online = false;
}

/// The board has answered: the time, which belongs to a time on line. Where the PC's clock has been
/// set, a new one begins.
UtcMs HistoryRecorder::answered()
{
    const UtcMs now = this->now();
    if (std::exchange(m_jumped, false))
        endPeriod();
    if (!m_begin)
        m_begin = now;
    m_batch.end = now;
    return now;
}

void HistoryRecorder::registerRead(std::string_view addr, std::string_view value, bool succeeded)
{
    if (!succeeded || !m_online)
        return;
    const UtcMs now = answered();
    m_lastRead[std::string(addr)] = {std::string(value), now};
    noteValue(now, addr, entryNumber(value).value_or(0));
}

void HistoryRecorder::registerWritten(std::string_view addr, std::string_view value, bool succeeded)
{
    if (!m_online)
        return;
    const UtcMs now = answered();
    const bool secret = isPasscode(parsed(addr));
    const auto before = m_lastRead.find(std::string(addr));
    WriteRow row;
    row.time = now;
    row.address = text(addr);
    row.before = before == m_lastRead.end() ? QStringLiteral("?") : text(before->second.value);
    row.after = text(value).trimmed();
    if (secret)
        row.before = row.after = QLatin1String(kMasked);
    row.screen = m_writer ? m_writer() : QString();
    row.label = currentLabel();
    row.confirmed = succeeded;
    m_batch.writes.push_back(row);
    if (before != m_lastRead.end())
        m_lastRead.erase(before);
    if (!succeeded)
        return;
    m_lastRead[std::string(addr)] = {row.after.toStdString(), now};
    noteValue(now, addr, entryNumber(value).value_or(0));
}

void HistoryRecorder::noteValue(UtcMs time, std::string_view addr, std::int64_t value)
{
    const RegisterAddress address = parsed(addr);
    switch (recordedAs(address)) {
    case RecordedAs::Speed:
        noteSpeed(time, static_cast<int>(value));
        break;
    case RecordedAs::Count:
        m_counts.add(time, ductorOfCount(address), value);
        break;
    case RecordedAs::Value:
        if (addr == kOutputs)
            m_values.add(time, kFeedbackFaultsAddress, value >> 8);
        else
            m_values.add(time, address.RegAddress, value);
        break;
    case RecordedAs::Nothing:
        break;
    }
}

void HistoryRecorder::noteSpeed(UtcMs time, int speed)
{
    m_speedRead = time;
    for (SpeedBins& bins : m_speed)
        bins.add(time, speed);
    m_recent.add(time, speed);
}

std::optional<int> HistoryRecorder::currentLabel() const
{
    const auto label = m_values.value(recordedAddress(reg::kLabelNumber.address));
    return label ? std::optional(static_cast<int>(*label)) : std::nullopt;
}

bool HistoryRecorder::isUnread(const std::string& address, UtcMs span) const
{
    const auto last = m_lastRead.find(address);
    return last == m_lastRead.end() || m_batch.end - last->second.time >= span;
}

void HistoryRecorder::loseUnread(UtcMs now)
{
    const UtcMs limit = now - m_silence;
    m_values.loseUnread(limit);
    m_counts.loseUnread(limit);
    if (m_speedRead >= limit)
        return;
    for (SpeedBins& bins : m_speed)
        bins.lose(m_speedRead);
}

void HistoryRecorder::collect()
{
    m_batch.begin = *m_begin;
    for (std::size_t bin = 0; bin < m_speed.size(); ++bin)
        m_speed[bin].take(m_batch.speed[bin]);
    m_counts.take(m_batch);
    m_values.take(m_batch.values);
}

UtcMs HistoryRecorder::now()
{
    const auto read = m_clock.read();
    m_jumped = m_jumped || read.jumped;
    return read.now;
}

void HistoryRecorder::flush()
{
    if (!m_begin)
        return;
    const UtcMs now = this->now();
    // The board does not answer: as good as off line. A clock that was set begins another time.
    if (m_jumped || now - m_batch.end > m_silence) {
        endPeriod();
        return;
    }
    loseUnread(now);
    collect();
    switch (m_store.append(m_batch)) {
    case HistoryStore::Outcome::Stored:
        m_batch = {m_begin.value_or(0), m_batch.end, {}, {}, {}, {}, {}};
        emit stored();
        break;
    case HistoryStore::Outcome::Later:
        return;
    case HistoryStore::Outcome::Lost:
        m_begin.reset();
        forgetValues();
        return;
    }
    if (++m_flushes % kPruneEvery == 0)
        m_store.prune(now);
}

/// The time on line is over: what comes next is another one.
void HistoryRecorder::endPeriod()
{
    if (!m_begin)
        return;
    m_counts.end();
    collect();
    m_store.append(m_batch);
    m_begin.reset();
    forgetValues();
    emit stored();
}

void HistoryRecorder::forgetValues()
{
    m_batch = {};
    for (SpeedBins& bins : m_speed)
        bins.forget();
    m_values.forget();
    m_counts.forget();
    m_lastRead.clear();
}

} // namespace tambrix
