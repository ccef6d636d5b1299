#pragma once

#include "recorder/history_recorder.h"

#include <QBasicTimer>

#include <vector>

namespace tambrix {

/// Reads, every so often, what is recorded and no screen shows. One register a turn of the event
/// loop, so that the passes of the screen in front go on in between. Off until it is switched on.
class UnseenReader : public QObject
{
    Q_OBJECT

public:
    static constexpr int kShortest = 5; // s
    static constexpr int kUsual = 10;   // s
    static constexpr int kLongest = 60; // s

    /// `mayRead` is asked before every register: on line, the link free, no other window before it.
    UnseenReader(RSComm& link, HistoryRecorder& recorder, std::function<bool()> mayRead);

    /// Reads every `seconds` (5 to 60), or not at all.
    void setInterval(std::optional<int> seconds);
    std::optional<int> interval() const { return m_interval; }

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void beginRound();
    void readNext();

    RSComm& m_link;
    HistoryRecorder& m_recorder;
    std::function<bool()> m_mayRead;
    std::optional<int> m_interval;
    std::vector<std::string> m_left; ///< of this round, the next one last
    QBasicTimer m_rounds;
    QBasicTimer m_turns;
};

} // namespace tambrix
