#include "data/search_expression.h"

#include "data/register_text.h"

#include <QRegularExpression>

#include <algorithm>
#include <map>

namespace tambrix {

std::variant<SearchExpression, Refusal> SearchExpression::parse(const QString& text)
{
    static const QRegularExpression joint(QStringLiteral("\\s+and\\s+"),
                                          QRegularExpression::CaseInsensitiveOption);
    SearchExpression expression;
    for (const QString& part : text.split(joint)) {
        auto parsed = parseTerm(part.trimmed());
        if (const auto* refusal = std::get_if<Refusal>(&parsed))
            return *refusal;
        const Term& term = std::get<Term>(parsed);
        (term.address.empty() ? expression.m_labels : expression.m_registers).push_back(term);
    }
    return expression;
}

std::variant<SearchExpression::Term, Refusal> SearchExpression::parseTerm(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("\\A(?:label\\s+([0-9]{1,2})\\s+)?(?:(ON|CYCLE)([1-8])?|([A-Z0-9.]+))"
                       "\\s*(=|!=|<=|>=|<|>)\\s*([0-9]{1,9})\\z"),
        QRegularExpression::CaseInsensitiveOption);
    static const std::map<QString, Relation> relations = {
        {QStringLiteral("="), Relation::Equal},   {QStringLiteral("!="), Relation::NotEqual},
        {QStringLiteral("<"), Relation::Less},    {QStringLiteral("<="), Relation::LessOrEqual},
        {QStringLiteral(">"), Relation::Greater}, {QStringLiteral(">="), Relation::GreaterOrEqual}};
    const auto match = form.match(text);
    const bool registerOfLabel = !match.captured(1).isEmpty() && !match.captured(4).isEmpty();
    if (!match.hasMatch() || registerOfLabel)
        return Refusal{QStringLiteral("'%1' is no comparison (examples: W690>500, label 12 ON3=25)")
                           .arg(text)};
    Term term;
    if (!match.captured(4).isEmpty()) {
        auto address = registerFromText(match.captured(4));
        if (const auto* refusal = std::get_if<Refusal>(&address))
            return *refusal;
        term.address = std::get<std::string>(std::move(address));
    }
    if (!match.captured(1).isEmpty())
        term.label = match.captured(1).toInt();
    if (!match.captured(3).isEmpty())
        term.ductor = match.captured(3).toInt() - 1;
    term.cycle = match.captured(2).compare(QLatin1String("CYCLE"), Qt::CaseInsensitive) == 0;
    term.relation = relations.at(match.captured(5));
    term.number = match.captured(6).toLongLong();
    return term;
}

bool SearchExpression::holds(const Term& term, std::int64_t value)
{
    switch (term.relation) {
    case Relation::Equal:
        return value == term.number;
    case Relation::NotEqual:
        return value != term.number;
    case Relation::Less:
        return value < term.number;
    case Relation::LessOrEqual:
        return value <= term.number;
    case Relation::Greater:
        return value > term.number;
    case Relation::GreaterOrEqual:
        return value >= term.number;
    }
    return false;
}

bool SearchExpression::holdsInRegister(const Term& term, const SetupDataRecord& record)
{
    const auto found = std::ranges::find(record.Address, term.address);
    const auto index = static_cast<std::size_t>(found - record.Address.begin());
    return index < record.Value.size() && holds(term, record.Value[index]);
}

bool SearchExpression::holdsInLabel(const Term& term, const SetupDataRecord& record, int label)
{
    if (term.label >= 0 && term.label != label)
        return false;
    const int first = labelBase(label) + (term.cycle ? kDuctors : 0);
    for (int ductor = 0; ductor < kDuctors; ++ductor) {
        const auto index = static_cast<std::size_t>(first + ductor);
        if ((term.ductor < 0 || term.ductor == ductor) && index < record.Value.size() &&
            holds(term, record.Value[index]))
            return true;
    }
    return false;
}

std::optional<std::vector<int>> SearchExpression::match(const SetupDataRecord& record) const
{
    const auto inRegisters = [&](const Term& term) { return holdsInRegister(term, record); };
    if (!std::ranges::all_of(m_registers, inRegisters))
        return std::nullopt;
    std::vector<int> labels;
    for (int label = 0; !m_labels.empty() && label < kLabels; ++label) {
        if (std::ranges::all_of(
                m_labels, [&](const Term& term) { return holdsInLabel(term, record, label); }))
            labels.push_back(label);
    }
    if (!m_labels.empty() && labels.empty())
        return std::nullopt;
    return labels;
}

} // namespace tambrix
