#include "commands/choice.h"

#include "commands/failure.h"
#include "data/parameters.h"

#include <QRegularExpression>

namespace tambrix {

namespace {

const QString kGroup = QStringLiteral("group");
const QString kLabelRange = QStringLiteral("labels");

void readLabels(const QString& text, Choice& choice)
{
    static const QRegularExpression form(QStringLiteral("\\A([0-9]{1,2})(?:-([0-9]{1,2}))?\\z"));
    const auto match = form.match(text);
    choice.firstLabel = match.captured(1).toInt();
    choice.lastLabel = match.captured(2).isEmpty() ? choice.firstLabel : match.captured(2).toInt();
    if (!match.hasMatch() || choice.firstLabel > choice.lastLabel)
        throw Failure{
            ExitCode::Usage,
            QStringLiteral("--labels takes a label or a range, 0 to 99 (example: 10-19), not '%1'")
                .arg(text)};
}

} // namespace

bool Choice::contains(int slot) const
{
    if (slot < kSetupSlot)
        return shift;
    if (slot < kCurrentLabelSlot)
        return setup;
    if (slot == kCurrentLabelSlot)
        return everything();
    return labels && slot >= labelBase(firstLabel) && slot < labelBase(lastLabel + 1);
}

QList<QCommandLineOption> choiceOptions()
{
    return {{kGroup, QStringLiteral("Only this part: setup, shift, labels or all."),
             QStringLiteral("GROUP")},
            {kLabelRange, QStringLiteral("Of the labels only A to B, 0 to 99."),
             QStringLiteral("A-B")}};
}

Choice readChoice(const QCommandLineParser& parser, const QString& group)
{
    const QString name = parser.isSet(kGroup) ? parser.value(kGroup) : group;
    const bool all = name == QLatin1String("all");
    const bool usual = name == QLatin1String("setup+labels");
    Choice choice;
    choice.setup = all || usual || name == QLatin1String("setup");
    choice.shift = all || name == QLatin1String("shift");
    choice.labels = all || usual || name == QLatin1String("labels");
    if (!choice.setup && !choice.shift && !choice.labels)
        throw Failure{ExitCode::Usage,
                      QStringLiteral("--group is setup, shift, labels or all, not '%1'").arg(name)};
    if (parser.isSet(kLabelRange))
        readLabels(parser.value(kLabelRange), choice);
    return choice;
}

} // namespace tambrix
