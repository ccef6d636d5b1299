#pragma once

#include "data/refusal.h"
#include "data/setup_data.h"

#include <QString>

#include <optional>
#include <variant>
#include <vector>

namespace tambrix {

/// What to look for in a data set. Terms joined by "and"; each is a comparison:
///
///     W690>500               a register
///     ON3=25                 a label's ON duration (CYCLE3 likewise) of ductor 3
///     ON>120                 of any ductor
///     label 12 ON3=25        of this label only
///
/// Comparisons are = != < <= > >=. Letters may be small.
class SearchExpression
{
public:
    /// Refused: what is no expression.
    static std::variant<SearchExpression, Refusal> parse(const QString& text);

    /// What a data set has of it: nothing when it does not match; else the labels for which all
    /// label terms hold, none when there are no label terms.
    std::optional<std::vector<int>> match(const SetupDataRecord& record) const;

private:
    enum class Relation { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual };

    struct Term
    {
        std::string address; ///< a register; empty: a label's duration
        int label = -1;      ///< -1: any
        int ductor = -1;     ///< -1: any
        bool cycle = false;
        Relation relation = Relation::Equal;
        std::int64_t number = 0;
    };

    static std::variant<Term, Refusal> parseTerm(const QString& text);
    static bool holds(const Term& term, std::int64_t value);
    static bool holdsInRegister(const Term& term, const SetupDataRecord& record);
    static bool holdsInLabel(const Term& term, const SetupDataRecord& record, int label);

    std::vector<Term> m_registers;
    std::vector<Term> m_labels;
};

} // namespace tambrix
