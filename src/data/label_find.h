#pragma once

#include "data/label_names.h"
#include "data/setup_data.h"

#include <bitset>
#include <vector>

namespace tambrix {

using LabelSet = std::bitset<kLabels>;

/// Whether no ductor of the label (0 to 99) gives any ink: all its ON durations are 0.
bool isUnused(const SetupDataRecord& record, int label);
LabelSet unusedLabels(const SetupDataRecord& record);

/// The labels that a person means with what was typed: a label's number, a part of its name,
/// "unused", or a comparison of values ("ON > 120", see SearchExpression). Nothing typed means all.
LabelSet findLabels(const QString& typed, const SetupDataRecord& record, const LabelNames& names);

/// A label's value that a press could not run with as it stands.
struct LabelProblem
{
    int entry = 0; ///< of the data set
    QString text;  ///< "Label 6 ON Duration, Ductor 3: 180 is above Maximum ON Duration 150; ..."
};

/// All of them, in the order of the entries: durations that no screen would take, with what they
/// become when the label is loaded.
std::vector<LabelProblem> labelProblems(const SetupDataRecord& record);

} // namespace tambrix
