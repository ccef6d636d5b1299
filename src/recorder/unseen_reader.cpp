#include "recorder/unseen_reader.h"

#include "link/rs_comm.h"
#include "recorder/recorded_registers.h"

#include <QTimerEvent>

#include <algorithm>

namespace tambrix {

namespace {

constexpr int kBetweenReads = 20; // ms: the screen in front goes first

} // namespace

UnseenReader::UnseenReader(RSComm& link, HistoryRecorder& recorder, std::function<bool()> mayRead)
    : m_link(link), m_recorder(recorder), m_mayRead(std::move(mayRead))
{
}

void UnseenReader::setInterval(std::optional<int> seconds)
{
    m_rounds.stop();
    m_turns.stop();
    m_interval = seconds;
    if (!seconds) {
        m_recorder.setSilence(HistoryRecorder::kUsualSilence);
        return;
    }
    m_interval = std::clamp(*seconds, kShortest, kLongest);
    const UtcMs span = *m_interval * kSecond;
    m_recorder.setSilence(2 * span + HistoryRecorder::kUsualSilence);
    m_rounds.start(static_cast<int>(span), this);
    beginRound();
}

void UnseenReader::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_rounds.timerId())
        beginRound();
    else if (event->timerId() == m_turns.timerId())
        readNext();
}

void UnseenReader::beginRound()
{
    m_left = fullRecord(m_recorder.currentLabel());
    std::ranges::reverse(m_left);
    m_turns.start(kBetweenReads, this);
}

/// What a screen has read in this round is not read once more.
void UnseenReader::readNext()
{
    if (!m_mayRead()) {
        m_turns.stop(); // until the next round
        return;
    }
    while (!m_left.empty() && !m_recorder.isUnread(m_left.back(), *m_interval * kSecond / 2))
        m_left.pop_back();
    if (m_left.empty()) {
        m_turns.stop();
        return;
    }
    const std::string next = m_left.back();
    m_left.pop_back();
    m_link.RSRead(next);
}

} // namespace tambrix
