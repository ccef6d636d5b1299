#pragma once

#include <QString>

#include <cstdint>

namespace tambrix {

/// What speaks against taking over a value.
struct Concern
{
    enum class Kind {
        None,
        // Unusual: a screen would not accept it, but it may be restored.
        OutsideRange,   ///< of a set-up parameter: limit to limit2
        AboveMaximumOn, ///< limit: Maximum ON Duration
        AboveMaximumCycle,
        OnTooLong,  ///< for CYCLE, which is `limit`
        CycleShort, ///< for ON, which is `limit`
        // Refused: it cannot be taken over.
        NotOnBoard, ///< the register holds limit to limit2
        OnlyLeft,
        OnlyRight,
        Twice,   ///< several entries with this address
        Strange, ///< no register of the data set
        LabelNumber
    };

    Kind kind = Kind::None;
    std::int32_t limit = 0;
    std::int32_t limit2 = 0;

    bool unusual() const { return kind > Kind::None && kind < Kind::NotOnBoard; }
    bool refused() const { return kind >= Kind::NotOnBoard; }
    bool operator==(const Concern&) const = default;
};

/// The concern in words: "above Maximum ON Duration 200". Empty for none.
QString concernText(const Concern& concern);

/// The same as a sentence: "Color Gain: 160 is outside 50 to 150".
QString concernSentence(const QString& name, std::int32_t value, const Concern& concern);

} // namespace tambrix
