#pragma once

#include "data/concern.h"
#include "data/controller_reading.h"
#include "data/entry_group.h"
#include "data/restore.h"

#include <optional>
#include <string>
#include <vector>

namespace tambrix {

/// One register on both sides of a comparison.
struct ComparedEntry
{
    std::string address;
    std::optional<std::int32_t> left; ///< none: this side has no such entry
    std::optional<std::int32_t> right;
    std::optional<std::int32_t> running; ///< what the controller works with now
    Concern concern;
    bool ticked = false;
    std::optional<RestoreRow> outcome; ///< once it was to be written

    bool differs() const { return left != right; }
    /// There is something to take over from the left, and nothing forbids it.
    bool canTick() const { return differs() && !concern.refused(); }
};

/// How many entries of both sides differ; the verdict.
struct Differences
{
    int setup = 0;       ///< of the five set-up parameters
    int labels = 0;      ///< labels with any difference
    int labelValues = 0; ///< values in them
    int strange = 0;     ///< entries of one side only, twice, or of no known register

    int values() const { return setup + labelValues + strange; }
};

/// Two data sets held side by side, matched by address: left is the source, right the target.
/// Entries 0 to 1613 are those of the program's own data set, behind them come those that belong
/// to none of its registers.
class Comparison
{
public:
    Comparison(const SetupDataRecord& left, const SetupDataRecord& right,
               const std::optional<RunningValues>& running = std::nullopt);

    const std::vector<ComparedEntry>& entries() const { return m_entries; }
    const Differences& differences() const { return m_differences; }

    /// Part of the verdict: set-up, labels and strange entries. Shift counts and the label number
    /// always differ on a running press.
    static bool countsForVerdict(int index);

    /// Whether the entry is to be shown at all where only differences are.
    bool notable(int index) const;

    /// Ticks every ordinary difference of set-up and labels; nothing unusual, no counts.
    void tickOrdinary();
    /// Ticks exactly the entries with these addresses, unusual ones included.
    void tickOnly(const std::vector<std::string>& addresses);
    /// Ticks or unticks those of the entries that can be; judges all entries anew.
    void tick(const std::vector<int>& indexes, bool on);

    /// The ticked values in the order of a download.
    std::vector<RestoreRow> tickedRows() const;
    /// Shows what became of rows that were to be written.
    void setOutcome(const std::vector<RestoreRow>& rows);

private:
    ComparedEntry& at(int index) { return m_entries[static_cast<std::size_t>(index)]; }
    const ComparedEntry& at(int index) const { return m_entries[static_cast<std::size_t>(index)]; }
    void take(const SetupDataRecord& record, std::optional<std::int32_t> ComparedEntry::*side);
    void takeStrange(const std::string& address, std::int32_t value,
                     std::optional<std::int32_t> ComparedEntry::*side);
    void setRunning(const RunningValues& running);
    void findFaults();
    void countDifferences();
    void judge();
    Concern judged(int index) const;
    Concern judgedSetup(int index) const;
    Concern judgedLabel(int index) const;
    std::int32_t after(int index) const;
    bool untickUnusual();

    std::vector<ComparedEntry> m_entries;
    Differences m_differences;
};

} // namespace tambrix
