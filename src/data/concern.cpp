#include "data/concern.h"

namespace tambrix {

QString concernText(const Concern& concern)
{
    using Kind = Concern::Kind;
    switch (concern.kind) {
    case Kind::None:
        return {};
    case Kind::OutsideRange:
        return QStringLiteral("outside %1 to %2").arg(concern.limit).arg(concern.limit2);
    case Kind::AboveMaximumOn:
        return QStringLiteral("above Maximum ON Duration %1").arg(concern.limit);
    case Kind::AboveMaximumCycle:
        return QStringLiteral("above Maximum Cycle Duration %1").arg(concern.limit);
    case Kind::OnTooLong:
        return QStringLiteral("too long for CYCLE %1").arg(concern.limit);
    case Kind::CycleShort:
        return QStringLiteral("too short for ON %1").arg(concern.limit);
    case Kind::NotOnBoard:
        return QStringLiteral("the register holds %1 to %2").arg(concern.limit).arg(concern.limit2);
    case Kind::OnlyLeft:
        return QStringLiteral("missing on the right");
    case Kind::OnlyRight:
        return QStringLiteral("missing on the left");
    case Kind::Twice:
        return QStringLiteral("several entries have this address");
    case Kind::Strange:
        return QStringLiteral("no register of the data set");
    case Kind::LabelNumber:
        return QStringLiteral("never written: the old label would go on running");
    }
    return {};
}

QString concernSentence(const QString& name, std::int32_t value, const Concern& concern)
{
    const bool ofRegister = concern.kind == Concern::Kind::NotOnBoard;
    return QStringLiteral("%1: %2%3 %4")
        .arg(name)
        .arg(value)
        .arg(ofRegister ? QStringLiteral(", but") : QStringLiteral(" is"), concernText(concern));
}

} // namespace tambrix
