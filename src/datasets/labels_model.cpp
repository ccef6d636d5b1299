#include "datasets/labels_model.h"

#include "data/color_density.h"
#include "data/duration_rules.h"
#include "data/entry_group.h"
#include "data/link_text.h"
#include "data/typed_number.h"

#include <QFont>

#include <algorithm>

namespace tambrix {

LabelsModel::LabelsModel(ProgramState& state, QObject* parent)
    : QAbstractTableModel(parent), m_state(state)
{
    refresh();
}

void LabelsModel::show(Shown shown)
{
    m_shown = shown;
    refresh();
}

void LabelsModel::refresh()
{
    m_problems = labelProblems(m_state.gWorkingData);
    m_wrong.reset();
    for (const LabelProblem& problem : m_problems)
        m_wrong.set(static_cast<std::size_t>(problem.entry));
    emit dataChanged(index(0, 0), index(kLabels - 1, Columns - 1));
}

QString LabelsModel::whyReadOnly() const
{
    if (m_state.gLink.OnlineMode)
        return QStringLiteral("On line the table is read-only: it shows the data set in this "
                              "program, which the press may not agree with.");
    if (!m_state.gOfflineEditing)
        return QStringLiteral("The table is read-only: Edit > Enable Offline Editing is off.");
    return {};
}

std::optional<int> LabelsModel::writtenColumn(int column) const
{
    if (column == Name)
        return kNameColumn;
    if (column < FirstDuctor || m_shown == Shown::Density)
        return std::nullopt;
    return column - FirstDuctor + (m_shown == Shown::Cycle ? kDuctors : 0);
}

std::vector<int> LabelsModel::writtenColumnsFrom(int column) const
{
    std::vector<int> columns;
    if (column == Label)
        columns.push_back(kNumberColumn);
    for (int i = column; i < Columns; ++i) {
        if (const auto written = writtenColumn(i))
            columns.push_back(*written);
    }
    const bool whole = m_shown == Shown::On && column <= FirstDuctor; // all 16 of a label
    for (int i = kDuctors; whole && i < kEntriesPerLabel; ++i)
        columns.push_back(i);
    return columns;
}

int LabelsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kLabels;
}

int LabelsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Columns;
}

QVariant LabelsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return section == Name ? QVariant(Qt::AlignLeft | Qt::AlignVCenter)
                               : QVariant(Qt::AlignCenter);
    if (role != Qt::DisplayRole)
        return {};
    if (section == Label)
        return QStringLiteral("Label");
    return section == Name ? QStringLiteral("Name")
                           : QStringLiteral("#%1").arg(section - FirstDuctor + 1);
}

Qt::ItemFlags LabelsModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (writtenColumn(index.column()) && whyReadOnly().isEmpty())
        flags |= Qt::ItemIsEditable;
    return flags;
}

QVariant LabelsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const int label = index.row();
    const int ductor = index.column() - FirstDuctor;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return text(label, index.column());
    case Qt::TextAlignmentRole:
        return index.column() == Name ? QVariant(Qt::AlignLeft | Qt::AlignVCenter)
                                      : QVariant(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::ToolTipRole:
        return ductor < 0 ? QString() : problemOf(label, ductor);
    case Qt::AccessibleTextRole:
        return spoken(label, index.column());
    case ShareRole:
        return ductor < 0 ? QVariant() : share(label, ductor);
    case ProblemRole:
        return ductor >= 0 && hasProblem(label, ductor);
    case CurrentRole:
        return isCurrent(label);
    default:
        return {};
    }
}

bool LabelsModel::isCurrent(int label) const
{
    return m_state.gWorkingData.Value[kCurrentLabelSlot] == label;
}

std::int32_t LabelsModel::valueOf(int label, int ductor, bool cycle) const
{
    return m_state.gWorkingData.Value[static_cast<std::size_t>(labelSlot(label, ductor, cycle))];
}

int LabelsModel::limit(const Parameter& parameter) const
{
    return m_state.gWorkingData.Value[static_cast<std::size_t>(parameter.slot)];
}

QString LabelsModel::text(int label, int column) const
{
    if (column == Label)
        return QString::number(label);
    if (column == Name)
        return m_state.labelNames.of(label);
    const int ductor = column - FirstDuctor;
    if (m_shown != Shown::Density)
        return QString::number(valueOf(label, ductor, m_shown == Shown::Cycle));
    const QString density = colorDensity(valueOf(label, ductor, false),
                                         valueOf(label, ductor, true), limit(reg::kMaximumOn));
    return density.endsWith(u'%') ? density.chopped(1) : density;
}

/// A screen reader does not see heads, bars and marks.
QString LabelsModel::spoken(int label, int column) const
{
    QString row = QStringLiteral("Label %1").arg(label);
    if (column == Label)
        return isCurrent(label) ? row + QStringLiteral(", the current label") : row;
    if (column == Name)
        return row + QStringLiteral(", name: ") + text(label, column);
    const char* const what = m_shown == Shown::Density ? "density, percent"
                             : m_shown == Shown::On    ? "ON"
                                                       : "CYCLE";
    const int ductor = column - FirstDuctor;
    row += QStringLiteral(", ductor %1 %2: %3")
               .arg(ductor + 1)
               .arg(QLatin1String(what), text(label, column));
    const QString problem = problemOf(label, ductor);
    return problem.isEmpty() ? row : row + QStringLiteral(". Problem: ") + problem;
}

double LabelsModel::share(int label, int ductor) const
{
    const std::int32_t on = valueOf(label, ductor, false);
    const std::int32_t cycle = valueOf(label, ductor, true);
    if (m_shown == Shown::Density)
        return colorDensityPercent(on, cycle, limit(reg::kMaximumOn)) / 100;
    const bool isOn = m_shown == Shown::On;
    const int most = std::max(1, limit(isOn ? reg::kMaximumOn : reg::kMaximumCycle));
    return static_cast<double>(isOn ? on : cycle) / most;
}

bool LabelsModel::hasProblem(int label, int ductor) const
{
    const auto wrong = [&](bool cycle) {
        return m_wrong.test(static_cast<std::size_t>(labelSlot(label, ductor, cycle)));
    };
    return (m_shown != Shown::Cycle && wrong(false)) || (m_shown != Shown::On && wrong(true));
}

QString LabelsModel::problemOf(int label, int ductor) const
{
    if (!hasProblem(label, ductor))
        return {};
    const bool cycle = m_shown == Shown::Cycle ||
                       !m_wrong.test(static_cast<std::size_t>(labelSlot(label, ductor, false)));
    const int entry = labelSlot(label, ductor, cycle);
    const auto found = std::ranges::find(m_problems, entry, &LabelProblem::entry);
    return found == m_problems.end() ? QString() : found->text;
}

EntryRange LabelsModel::rangeOf(int label, int column) const
{
    const DurationLimits limits = limitsIn(m_state.gWorkingData);
    const int ductor = column - FirstDuctor;
    return m_shown == Shown::On ? onRange(valueOf(label, ductor, true), limits)
                                : cycleRange(valueOf(label, ductor, false), limits);
}

bool LabelsModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || (flags(index) & Qt::ItemIsEditable) == 0)
        return false;
    if (index.column() != Name)
        return setValue(index, value.toString());
    LabelNames after = m_state.labelNames;
    after.set(index.row(), value.toString());
    DataChange change;
    if (after != m_state.labelNames)
        change.names.push_back({index.row(), after.of(index.row())});
    m_state.edit(QStringLiteral("Name of Label %1").arg(index.row()), std::move(change));
    return true;
}

/// The color control screen's rules and words.
bool LabelsModel::setValue(const QModelIndex& index, const QString& typed)
{
    const int entry = labelBase(index.row()) + *writtenColumn(index.column());
    const EntryRange range = rangeOf(index.row(), index.column());
    const auto number = numericText(typed);
    if (!number || *number < range.minimum || *number > range.maximum) {
        emit refused(index, QStringLiteral("Only a Number Between %1 and %2 can be Entered")
                                .arg(range.minimum)
                                .arg(range.maximum));
        return false;
    }
    const std::int32_t value = roundedHalfToEven(*number);
    DataChange change;
    if (m_state.gWorkingData.Value[static_cast<std::size_t>(entry)] != value)
        change.values.push_back({entry, value});
    m_state.edit(fromLink(nameOf(entryAt(entry))), std::move(change));
    return true;
}

} // namespace tambrix
