#pragma once

#include "link/link_observer.h"
#include "recorder/change_log.h"
#include "recorder/history_store.h"
#include "recorder/recent_speed.h"
#include "recorder/recording_clock.h"
#include "recorder/speed_bins.h"

#include <QBasicTimer>
#include <QObject>

#include <functional>
#include <string>
#include <unordered_map>

namespace tambrix {

class RSComm;

/// Records what the link reads and writes while the program is on line. Sends nothing itself.
/// What is taken note of goes to the disk once a second, between two turns of the event loop.
class HistoryRecorder : public QObject, private LinkObserver
{
    Q_OBJECT

public:
    /// What is read less often than this is not known in between, unless more is allowed.
    static constexpr UtcMs kUsualSilence = 5 * kSecond;
    /// The passcode is written to no file.
    static constexpr const char* kMasked = "*****";

    struct Times
    {
        const Clock& steady;
        std::function<UtcMs()> wall = {}; ///< empty: the system's time of day
    };

    /// Records what `link` does in `file` (see `HistoryStore`) as long as this object lives.
    HistoryRecorder(RSComm& link, const QString& file, Times times);
    ~HistoryRecorder() override;

    /// Names the window that writes now, in words; empty: nobody knows.
    void setWriter(std::function<QString()> writer) { m_writer = std::move(writer); }

    /// Values stay known for this long after they have been read.
    void setSilence(UtcMs longest) { m_silence = longest; }

    /// Whether a register that is recorded has not been read for `span`.
    bool isUnread(const std::string& address, UtcMs span) const;

    /// The label in work, where it is known.
    std::optional<int> currentLabel() const;

    const RecentSpeed& recentSpeed() const { return m_recent; }

    /// Stores what there is now. Called every second.
    void flush();

    /// The store: its path, and the check for damage. What is recorded before stays.
    HistoryStore& store() { return m_store; }

    /// The time of day, as records are dated.
    UtcMs now();

signals:
    /// There is more to show.
    void stored();
    /// What the user should know: once for each trouble, and when it is over.
    void told(const QString& text);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void registerRead(std::string_view addr, std::string_view value, bool succeeded) override;
    void registerWritten(std::string_view addr, std::string_view value, bool succeeded) override;
    void linkOpened(bool answered) override;
    void linkClosed() override;

    UtcMs answered();
    void noteValue(UtcMs time, std::string_view addr, std::int64_t value);
    void noteSpeed(UtcMs time, int speed);
    void loseUnread(UtcMs now);
    void collect();
    void endPeriod();
    void forgetValues();

    struct LastRead
    {
        std::string value;
        UtcMs time = 0;
    };

    RSComm& m_link;
    RecordingClock m_clock;
    bool m_jumped = false; ///< the PC's clock was set since the board's last answer
    HistoryStore m_store;
    std::function<QString()> m_writer;
    UtcMs m_silence = kUsualSilence;
    bool m_online;
    std::optional<UtcMs> m_begin; ///< of the time on line that is recorded
    HistoryBatch m_batch;         ///< not stored yet, up to the last answer of the board
    std::array<SpeedBins, kSpeedBins.size()> m_speed;
    UtcMs m_speedRead = 0;
    ChangeLog m_values;
    CountsLog m_counts;
    RecentSpeed m_recent;
    std::unordered_map<std::string, LastRead> m_lastRead;
    QBasicTimer m_timer;
    int m_flushes = 0;
};

} // namespace tambrix
