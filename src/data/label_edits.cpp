#include "data/label_edits.h"

#include "data/comparison.h"
#include "data/duration_rules.h"
#include "data/entry_group.h"
#include "data/link_text.h"
#include "data/typed_number.h"

#include <QRegularExpression>

#include <algorithm>
#include <set>

namespace tambrix {

namespace {

constexpr qsizetype kLongestText = 1 << 20;

std::size_t place(int entry)
{
    return static_cast<std::size_t>(entry);
}

QString nameOfEntry(int entry)
{
    return fromLink(nameOf(entryAt(entry)));
}

/// What the limits leave of a scaled ON duration; tells where they cut.
std::int32_t cut(std::int32_t scaled, int entry, std::int32_t now, std::int32_t most,
                 QStringList& objections)
{
    if (scaled >= 0 && scaled <= most)
        return scaled;
    const std::int32_t left = most < 0 ? now : std::clamp(scaled, 0, most);
    objections += QStringLiteral("%1: %2 would become %3, %4")
                      .arg(nameOfEntry(entry))
                      .arg(now)
                      .arg(scaled)
                      .arg(most < 0 ? QStringLiteral("stays: its CYCLE leaves no ON time")
                                    : QStringLiteral("cut to %1").arg(left));
    return left;
}

} // namespace

EditPlan planValues(const SetupDataRecord& now, const std::vector<EntryValue>& wanted)
{
    static const SetupDataRecord standard = defaultSetupData({});
    SetupDataRecord before = standard, after = standard; // addresses of a strange file do not count
    before.Value = after.Value = now.Value;
    std::set<int> entries;
    for (const EntryValue& edit : wanted) {
        after.Value[place(edit.entry)] = edit.value;
        entries.insert(edit.entry);
    }
    Comparison comparison(after, before);
    comparison.tickOrdinary();
    EditPlan plan;
    for (const int i : entries) {
        const ComparedEntry& entry = comparison.entries()[place(i)];
        if (entry.ticked)
            plan.change.values.push_back({i, *entry.left});
        else if (entry.differs())
            plan.objections += concernSentence(nameOfEntry(i), *entry.left, entry.concern);
    }
    return plan;
}

EditPlan planCells(const SetupDataRecord& now, const LabelNames& names,
                   const std::vector<WantedCell>& cells)
{
    QStringList noNumbers;
    std::vector<EntryValue> values;
    LabelNames after = names;
    for (const WantedCell& cell : cells) {
        if (cell.column == kNameColumn) {
            after.set(cell.label, cell.text);
            continue;
        }
        if (cell.column == kNumberColumn)
            continue;
        const int entry = labelBase(cell.label) + cell.column;
        if (const auto number = plainNumber(cell.text.trimmed()))
            values.push_back({entry, *number});
        else
            noNumbers += QStringLiteral("%1: \"%2\" is no plain whole number")
                             .arg(nameOfEntry(entry), cell.text.left(LabelNames::kLongest));
    }
    EditPlan plan = planValues(now, values);
    plan.objections = noNumbers + plan.objections;
    for (int label = 0; label < kLabels; ++label) {
        if (after.of(label) != names.of(label))
            plan.change.names.push_back({label, after.of(label)});
    }
    return plan;
}

std::variant<std::vector<WantedCell>, TextFault>
pastedCells(const QString& text, const std::vector<int>& labels, const std::vector<int>& columns)
{
    if (text.size() > kLongestText)
        return TextFault{1, 1, QStringLiteral("far too long for a table of labels")};
    auto parsed = readTabbed(text, labels.size());
    if (const auto* fault = std::get_if<TextFault>(&parsed))
        return *fault;
    const auto& rows = std::get<std::vector<CsvRow>>(parsed);
    std::vector<WantedCell> cells;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (rows[row].size() > columns.size())
            return rows[row][columns.size()].fault(
                QStringLiteral("more columns than there are from here"));
        for (std::size_t i = 0; i < rows[row].size(); ++i)
            cells.push_back({labels[row], columns[i], unguarded(rows[row][i].text)});
    }
    return cells;
}

EditPlan planCopy(const SetupDataRecord& now, int from, const std::vector<int>& to)
{
    std::vector<EntryValue> wanted;
    for (const int label : to) {
        for (int i = 0; i < kEntriesPerLabel; ++i)
            wanted.push_back({labelBase(label) + i, now.Value[place(labelBase(from) + i)]});
    }
    return planValues(now, wanted);
}

EditPlan planScale(const SetupDataRecord& now, const std::vector<int>& labels,
                   const DuctorSet& ductors, double percent)
{
    const DurationLimits limits = limitsIn(now);
    EditPlan plan;
    for (const int label : labels) {
        for (int ductor = 0; ductor < kDuctors; ++ductor) {
            if (!ductors.test(place(ductor)))
                continue;
            const int entry = labelSlot(label, ductor, false);
            const std::int32_t on = now.Value[place(entry)];
            const std::int32_t most =
                onRange(now.Value[place(labelSlot(label, ductor, true))], limits).maximum;
            const std::int32_t scaled =
                cut(roundedHalfToEven(on * percent / 100), entry, on, most, plan.objections);
            if (scaled != on)
                plan.change.values.push_back({entry, scaled});
        }
    }
    return plan;
}

std::optional<std::vector<int>> labelsFromText(const QString& text)
{
    static const QRegularExpression part(
        QStringLiteral("\\A\\s*([0-9]{1,2})(?:\\s*-\\s*([0-9]{1,2}))?\\s*\\z"));
    std::set<int> labels;
    for (const QString& piece : text.split(u',')) {
        const auto match = part.match(piece);
        if (!match.hasMatch())
            return std::nullopt;
        const int first = match.captured(1).toInt();
        const int last = match.captured(2).isEmpty() ? first : match.captured(2).toInt();
        if (last < first)
            return std::nullopt;
        for (int label = first; label <= last; ++label)
            labels.insert(label);
    }
    return std::vector<int>(labels.begin(), labels.end());
}

} // namespace tambrix
