#include "data/comparison.h"

#include "data/duration_rules.h"
#include "link/register_address.h"
#include "link/register_value.h"

#include <algorithm>
#include <cctype>
#include <unordered_map>

namespace tambrix {

namespace {

using Kind = Concern::Kind;

constexpr int kEntries = gDataUpperBound + 1;

/// Letters of either case name the same register.
std::string spelled(std::string address)
{
    for (char& c : address)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return address;
}

const std::vector<std::string>& ownAddresses()
{
    static const std::vector<std::string> addresses = defaultSetupData({}).Address;
    return addresses;
}

/// The entry that this register is, or -1.
int slotOf(const std::string& address)
{
    static const std::unordered_map<std::string, int> places = [] {
        std::unordered_map<std::string, int> map;
        for (int slot = 0; slot < kEntries; ++slot)
            map[ownAddresses()[static_cast<std::size_t>(slot)]] = slot;
        return map;
    }();
    const auto found = places.find(spelled(address));
    return found == places.end() ? -1 : found->second;
}

Concern outside(Kind kind, std::int32_t minimum, std::int32_t maximum, std::int32_t value)
{
    return value < minimum || value > maximum ? Concern{kind, minimum, maximum} : Concern{};
}

} // namespace

Comparison::Comparison(const SetupDataRecord& left, const SetupDataRecord& right,
                       const std::optional<RunningValues>& running)
    : m_entries(kEntries)
{
    for (int i = 0; i < kEntries; ++i)
        at(i).address = ownAddresses()[static_cast<std::size_t>(i)];
    take(left, &ComparedEntry::left);
    take(right, &ComparedEntry::right);
    if (running)
        setRunning(*running);
    findFaults();
    countDifferences();
    judge();
}

void Comparison::take(const SetupDataRecord& record,
                      std::optional<std::int32_t> ComparedEntry::*side)
{
    const std::size_t count = std::min(record.Address.size(), record.Value.size());
    for (std::size_t i = 0; i < count; ++i) {
        const std::string& address = record.Address[i];
        if (address.empty())
            continue; // the file that it comes from is shorter
        const bool inPlace = i < ownAddresses().size() && address == ownAddresses()[i];
        const int slot = inPlace ? static_cast<int>(i) : slotOf(address);
        if (slot < 0) {
            takeStrange(spelled(address), record.Value[i], side);
            continue;
        }
        ComparedEntry& entry = at(slot);
        if (entry.*side)
            entry.concern.kind = Kind::Twice;
        entry.*side = record.Value[i];
    }
}

void Comparison::takeStrange(const std::string& address, std::int32_t value,
                             std::optional<std::int32_t> ComparedEntry::*side)
{
    const auto known = std::find_if(
        m_entries.begin() + kEntries, m_entries.end(),
        [&](const ComparedEntry& entry) { return entry.address == address && !(entry.*side); });
    if (known != m_entries.end()) {
        (*known).*side = value;
        return;
    }
    ComparedEntry entry;
    entry.address = address;
    entry.concern.kind = Kind::Strange;
    entry.*side = value;
    m_entries.push_back(entry);
}

void Comparison::setRunning(const RunningValues& running)
{
    for (int k = 0; k < kEntriesPerLabel; ++k)
        at(labelBase(running.label) + k).running = running.value[static_cast<std::size_t>(k)];
}

void Comparison::findFaults()
{
    for (int i = 0; i < kEntries; ++i) {
        ComparedEntry& entry = at(i);
        if (entry.concern.kind != Kind::None)
            continue;
        if (entry.left.has_value() != entry.right.has_value())
            entry.concern.kind = entry.left ? Kind::OnlyLeft : Kind::OnlyRight;
        else if (i == kCurrentLabelSlot)
            entry.concern.kind = Kind::LabelNumber;
    }
}

bool Comparison::countsForVerdict(int index)
{
    return index >= kSetupSlot && index != kCurrentLabelSlot;
}

bool Comparison::notable(int index) const
{
    const ComparedEntry& entry = at(index);
    return entry.differs() || entry.concern.kind == Kind::Twice ||
           entry.concern.kind == Kind::Strange;
}

void Comparison::countDifferences()
{
    int lastLabel = -1;
    for (int i = kSetupSlot; i < static_cast<int>(m_entries.size()); ++i) {
        if (!notable(i) || !countsForVerdict(i))
            continue;
        if (i >= kEntries) {
            ++m_differences.strange;
            continue;
        }
        if (groupOf(i) == EntryGroup::Setup) {
            ++m_differences.setup;
            continue;
        }
        ++m_differences.labelValues;
        const int label = entryAt(i).label;
        m_differences.labels += label != lastLabel;
        lastLabel = label;
    }
}

/// The value that the target will hold after the restore, as far as ticks stand now.
std::int32_t Comparison::after(int index) const
{
    const ComparedEntry& entry = at(index);
    return (entry.ticked ? entry.left : entry.right).value_or(0);
}

void Comparison::judge()
{
    for (int i = 0; i < kEntries; ++i) {
        ComparedEntry& entry = at(i);
        if (entry.differs() && entry.concern.kind < Kind::OnlyLeft)
            entry.concern = judged(i);
    }
}

Concern Comparison::judged(int index) const
{
    const ComparedEntry& entry = at(index);
    const auto most = static_cast<std::int32_t>(highestValue(entry.address.front()));
    const Concern board = outside(Kind::NotOnBoard, 0, most, *entry.left);
    if (board != Concern{})
        return board;
    switch (groupOf(index)) {
    case EntryGroup::Setup:
        return judgedSetup(index);
    case EntryGroup::Labels:
        return judgedLabel(index);
    default:
        return {};
    }
}

Concern Comparison::judgedSetup(int index) const
{
    const Parameter& parameter = entryAt(index).parameter;
    return outside(Kind::OutsideRange, parameter.minimum, parameter.maximum, *at(index).left);
}

/// The rules of the colour control screen: ON up to its maximum, CYCLE up to its own, and at least
/// 6 cans between the end of one ON time and the next.
Concern Comparison::judgedLabel(int index) const
{
    const DataEntry entry = entryAt(index);
    const bool cycle = isCycle(entry);
    const std::int32_t value = *at(index).left;
    const std::int32_t partner = after(labelSlot(entry.label, entry.ductor, !cycle));
    return durationConcern(cycle, value, partner,
                           {after(reg::kMaximumOn.slot), after(reg::kMaximumCycle.slot)});
}

void Comparison::tickOrdinary()
{
    for (int i = 0; i < kEntries; ++i)
        at(i).ticked = countsForVerdict(i) && at(i).canTick();
    do
        judge();
    while (untickUnusual());
}

/// A value that stays out of the restore may make others unusual, which stay out then, too.
bool Comparison::untickUnusual()
{
    bool any = false;
    for (ComparedEntry& entry : m_entries) {
        const bool out = entry.ticked && entry.concern.kind != Kind::None;
        entry.ticked = entry.ticked && !out;
        any = any || out;
    }
    return any;
}

void Comparison::tickOnly(const std::vector<std::string>& addresses)
{
    for (ComparedEntry& entry : m_entries)
        entry.ticked = false;
    std::vector<int> indexes;
    for (const std::string& address : addresses) {
        if (const int slot = slotOf(address); slot >= 0)
            indexes.push_back(slot);
    }
    tick(indexes, true);
}

void Comparison::tick(const std::vector<int>& indexes, bool on)
{
    for (const int i : indexes)
        at(i).ticked = on && at(i).canTick();
    judge();
}

std::vector<RestoreRow> Comparison::tickedRows() const
{
    std::vector<RestoreRow> rows;
    for (const ComparedEntry& entry : m_entries) {
        if (entry.ticked)
            rows.push_back({entry.address, *entry.left, WriteState::NotWritten, 0});
    }
    return rows;
}

void Comparison::setOutcome(const std::vector<RestoreRow>& rows)
{
    for (const RestoreRow& row : rows) {
        if (const int slot = slotOf(row.address); slot >= 0)
            at(slot).outcome = row;
    }
}

} // namespace tambrix
