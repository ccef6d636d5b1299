#include "data/label_find.h"

#include "data/duration_rules.h"
#include "data/entry_group.h"
#include "data/link_text.h"
#include "data/search_expression.h"
#include "data/typed_number.h"

#include <algorithm>

namespace tambrix {

namespace {

std::int32_t valueOf(const SetupDataRecord& record, int entry)
{
    return record.Value[static_cast<std::size_t>(entry)];
}

LabelSet labelsNamed(const QString& part, const LabelNames& names)
{
    LabelSet found;
    for (int label = 0; label < kLabels; ++label)
        found.set(static_cast<std::size_t>(label),
                  names.of(label).contains(part, Qt::CaseInsensitive));
    return found;
}

LabelSet labelsMatching(const SearchExpression& expression, const SetupDataRecord& record)
{
    LabelSet found;
    if (const auto labels = expression.match(record)) {
        for (const int label : *labels)
            found.set(static_cast<std::size_t>(label));
    }
    return found;
}

/// The two durations of one ductor of a label.
struct Ductor
{
    std::int32_t on;
    std::int32_t cycle;
};

Ductor ductorOf(const SetupDataRecord& record, int label, int ductor)
{
    return {valueOf(record, labelSlot(label, ductor, false)),
            valueOf(record, labelSlot(label, ductor, true))};
}

/// The pair's own fault is told once, with its CYCLE. Below 0 no register holds a value.
Concern concernOf(bool cycle, const Ductor& ductor, const DurationLimits& limits)
{
    const std::int32_t value = cycle ? ductor.cycle : ductor.on;
    if (value < 0)
        return {Concern::Kind::NotOnBoard, 0, cycle ? limits.maximumCycle : limits.maximumOn};
    const Concern concern = durationConcern(cycle, value, cycle ? ductor.on : ductor.cycle, limits);
    return concern.kind == Concern::Kind::OnTooLong ? Concern{} : concern;
}

/// What loading the label makes of a duration.
std::int32_t loaded(bool cycle, const Ductor& ductor, const DurationLimits& limits)
{
    const std::int32_t on = soundOn(ductor.on, limits);
    return cycle ? soundCycle(ductor.cycle, on, limits) : on;
}

} // namespace

bool isUnused(const SetupDataRecord& record, int label)
{
    const auto first = record.Value.begin() + labelBase(label);
    return std::all_of(first, first + kDuctors, [](std::int32_t on) { return on == 0; });
}

LabelSet unusedLabels(const SetupDataRecord& record)
{
    LabelSet unused;
    for (int label = 0; label < kLabels; ++label)
        unused.set(static_cast<std::size_t>(label), isUnused(record, label));
    return unused;
}

LabelSet findLabels(const QString& typed, const SetupDataRecord& record, const LabelNames& names)
{
    const QString text = typed.trimmed();
    if (text.isEmpty())
        return LabelSet().set();
    if (text.compare(QLatin1String("unused"), Qt::CaseInsensitive) == 0)
        return unusedLabels(record);
    const auto expression = SearchExpression::parse(text);
    if (const auto* comparison = std::get_if<SearchExpression>(&expression))
        return labelsMatching(*comparison, record);
    LabelSet found = labelsNamed(text, names);
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (isNumber && number >= 0 && number < kLabels)
        found.set(static_cast<std::size_t>(number));
    return found;
}

std::vector<LabelProblem> labelProblems(const SetupDataRecord& record)
{
    const DurationLimits limits = limitsIn(record);
    std::vector<LabelProblem> problems;
    for (int entry = kLabelSlot; entry <= gDataUpperBound; ++entry) {
        const DataEntry place = entryAt(entry);
        const bool cycle = isCycle(place);
        const Ductor ductor = ductorOf(record, place.label, place.ductor);
        const Concern concern = concernOf(cycle, ductor, limits);
        if (concern.kind == Concern::Kind::None)
            continue;
        const std::int32_t value = valueOf(record, entry);
        QString text = concernSentence(fromLink(nameOf(place)), value, concern);
        if (const std::int32_t then = loaded(cycle, ductor, limits); then != value)
            text += QStringLiteral("; %1 when the label is loaded").arg(then);
        problems.push_back({entry, text});
    }
    return problems;
}

} // namespace tambrix
