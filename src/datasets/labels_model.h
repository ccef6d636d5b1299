#pragma once

#include "data/entry_range.h"
#include "data/label_edits.h"
#include "data/label_find.h"
#include "shell/program_state.h"

#include <QAbstractTableModel>

#include <bitset>
#include <optional>

namespace tambrix {

/// The 100 labels of the working data as a table: a row a label, a column a ductor. It looks into
/// the working data itself and keeps none of it.
class LabelsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// What the ductors' columns show.
    enum class Shown { Density, On, Cycle };
    enum Column { Label, Name, FirstDuctor, Columns = FirstDuctor + kDuctors };
    enum Role {
        ShareRole = Qt::UserRole, ///< how much of its bar a value fills, 0 to 1
        ProblemRole,              ///< no press could run with the value
        CurrentRole               ///< the label that the color control screen shows
    };

    explicit LabelsModel(ProgramState& state, QObject* parent = nullptr);

    void show(Shown shown);
    Shown shown() const { return m_shown; }

    /// The working data, the names or the mode have changed.
    void refresh();

    /// Why nothing can be changed now, as a sentence for the user; empty when it can.
    QString whyReadOnly() const;

    /// What may not stand as it does, in the order of the entries.
    const std::vector<LabelProblem>& problems() const { return m_problems; }

    /// The column as `WantedCell` has it; nothing for one that cannot be written as it is shown.
    std::optional<int> writtenColumn(int column) const;
    /// The same, of this column and all that follow when labels are written: behind the last ON
    /// stands the first CYCLE, where all sixteen values of a label are written.
    std::vector<int> writtenColumnsFrom(int column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// One typed value, as a step that can be undone.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

signals:
    /// What was typed into a cell breaks the rules; nothing was changed.
    void refused(const QModelIndex& index, const QString& reason);

private:
    bool isCurrent(int label) const;
    std::int32_t valueOf(int label, int ductor, bool cycle) const;
    int limit(const Parameter& parameter) const;
    QString text(int label, int column) const;
    QString spoken(int label, int column) const;
    double share(int label, int ductor) const;
    QString problemOf(int label, int ductor) const;
    bool hasProblem(int label, int ductor) const;
    EntryRange rangeOf(int label, int column) const;
    bool setValue(const QModelIndex& index, const QString& typed);

    ProgramState& m_state;
    Shown m_shown = Shown::Density;
    std::vector<LabelProblem> m_problems;
    std::bitset<gDataUpperBound + 1> m_wrong; ///< entries that have a problem
};

} // namespace tambrix
