#pragma once

#include "data/confirmed_read.h"

#include <QString>

#include <array>
#include <optional>

namespace tambrix {

/// What the controller works with for the label that is running: its own copy, which a changed
/// label in the store does not reach before the label is loaded again.
struct RunningValues
{
    int label = 0;                                      ///< 0 to 99
    std::array<std::int32_t, kEntriesPerLabel> value{}; ///< B720 to B727, W730 to W744
};

/// Reads all 1,614 entries of the controller, then the running values: an entry a step, in the
/// order of an upload.
class ControllerReading
{
public:
    /// Where `expected` (a whole data set) holds something else in a few places only, these are
    /// read again until two readings agree. Shift counts go on counting and are never in doubt.
    ControllerReading(RSComm& link, const SetupDataRecord* expected = nullptr);

    void step();
    bool ended() const { return m_stage == Stage::Done || failed(); }
    /// An entry could not be read, or the link is broken.
    bool failed() const;

    int progress() const;
    int total() const;

    /// Which register gave no answer, as a sentence; empty unless it failed.
    QString failure() const;

    /// What was read. Its addresses are the program's own; complete once ended without failure.
    const SetupDataRecord& data() const { return m_read.data(); }
    /// Nothing when the label was changed while it was read, or W686 names none.
    std::optional<RunningValues> running() const { return m_running; }

private:
    enum class Stage { Entries, Running, Done };

    void takeRunning();

    RSComm& m_link;
    ConfirmedRead m_read;
    std::optional<ConfirmedRead> m_runningRead;
    std::optional<RunningValues> m_running;
    Stage m_stage = Stage::Entries;
};

} // namespace tambrix
