#pragma once

#include "data/csv_text.h"
#include "data/parameters.h"

#include <QByteArray>

#include <array>
#include <optional>

namespace tambrix {

/// What people call the labels ("Cola 330 red"). Names are this PC's own: neither the controller
/// nor the set-up file knows any.
class LabelNames
{
public:
    static constexpr int kLongest = 40; ///< characters

    /// The name of label `label` (0 to 99); empty for one without.
    const QString& of(int label) const { return m_names[static_cast<std::size_t>(label)]; }

    /// A name is one line of at most `kLongest` characters: tabs and line breaks become a blank,
    /// what is longer is cut.
    void set(int label, const QString& name);

    bool isEmpty() const { return *this == LabelNames(); }
    bool operator==(const LabelNames&) const = default;

private:
    std::array<QString, kLabels> m_names;
};

/// The names as CSV: a line "TAMBRIX label names" and format number, a line of captions, then a
/// line for every label that has a name. UTF-8.
QByteArray labelNamesCsv(const LabelNames& names);

/// The names of such a text. Refused with line and column: what is no list of names, a number that
/// no label has, a label that is there twice.
std::variant<LabelNames, TextFault> readLabelNamesCsv(const QByteArray& text);

/// The names file that belongs to a set-up file: "press3.sdt" has "press3.labels.csv" beside it.
QString labelNamesFile(const QString& setupFile);

/// What a set-up file's names file holds. No file is no fault: older set-up files have none.
struct LoadedNames
{
    LabelNames names;
    QString fault; ///< why there are no names although there is a file
};

LoadedNames loadLabelNames(const QString& setupFile);

/// Puts the names beside a set-up file; where there are none, there is no names file either. A
/// file in its place that holds something else is renamed, not lost. Returns the reason when it
/// failed.
std::optional<QString> saveLabelNames(const QString& setupFile, const LabelNames& names);

} // namespace tambrix
