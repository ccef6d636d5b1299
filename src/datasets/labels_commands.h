#pragma once

#include "data/setup_text.h"
#include "datasets/labels_model.h"

#include <QModelIndexList>

class QWidget;

namespace tambrix {

/// What the labels' window does with the cells that are chosen: every change is one step that can
/// be undone, and one that breaks rules is shown first.
class LabelsCommands
{
public:
    LabelsCommands(ProgramState& state, LabelsModel& model, QWidget& window)
        : m_state(state), m_model(model), m_window(window)
    {
    }

    /// The cells as a spreadsheet takes them: rows of the chosen labels, tabs between columns.
    QString copied(const QModelIndexList& cells) const;

    /// Puts a spreadsheet's text at the first of `cells`, on into the labels of `rows`, which are
    /// those shown. One field goes into all of the cells.
    void paste(const QString& text, const QModelIndexList& cells, const std::vector<int>& rows);

    /// Gives the cells the content of the topmost one in their column.
    void fillDown(const QModelIndexList& cells);

    void copyLabel(int label);
    void scale(const std::vector<int>& labels, const DuctorSet& ductors);

    /// Reads a whole data set, CSV or JSON, in place of the working data.
    void importData();
    void exportData();

private:
    bool mayEdit();
    void apply(const QString& what, const EditPlan& plan);
    void say(const QString& title, const QString& text);
    std::optional<NamedSetup> readFile(const QString& path);

    ProgramState& m_state;
    LabelsModel& m_model;
    QWidget& m_window;
};

/// The labels that have one of the cells, in their order.
std::vector<int> labelsOf(const QModelIndexList& cells);

} // namespace tambrix
