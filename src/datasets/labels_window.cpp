#include "datasets/labels_window.h"

#include "controls/tones.h"
#include "datasets/label_pane.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QTimerEvent>

#include <algorithm>

namespace tambrix {

namespace {

constexpr int kLookEvery = 300; // ms: the mode and the menus change without a word to others

} // namespace

LabelsWindow::LabelsWindow(ProgramState& state, LabelsHooks hooks, QWidget* parent)
    : QDialog(parent),
      m_state(state),
      m_hooks(std::move(hooks)),
      m_model(state),
      m_commands(state, m_model, *this)
{
    build();
    for (auto change : {&ProgramState::dataReplaced, &ProgramState::dataEdited})
        connect(&m_state, change, this, &LabelsWindow::showState);
    connect(&m_state, &ProgramState::onlineModeApplied, this, &LabelsWindow::showState);
    connect(&m_model, &LabelsModel::refused, this, &LabelsWindow::tellRefused);
    m_view->setCurrentIndex(m_model.index(currentLabel(), LabelsModel::Name));
    showState();
    m_look.start(kLookEvery, this);
}

void LabelsWindow::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_look.timerId())
        return QDialog::timerEvent(event);
    const bool typing = m_view->indexWidget(m_view->currentIndex()) != nullptr;
    if (isVisible() && !typing && m_seen != fingerprint())
        showState();
}

/// Of all that the window shows: the screens change the working data without a step on line.
std::size_t LabelsWindow::fingerprint() const
{
    const auto& values = m_state.gWorkingData.Value;
    const std::size_t flags =
        (m_state.gOfflineEditing ? 1U : 0U) | (m_state.gLink.OnlineMode ? 2U : 0U);
    return qHashRange(values.begin(), values.end(), flags);
}

void LabelsWindow::showState()
{
    m_seen = fingerprint();
    m_model.refresh();
    const bool editable = m_model.whyReadOnly().isEmpty();
    for (QWidget* control : m_editing)
        control->setEnabled(editable);
    showSteps();
    showRows();
    showProblems();
    m_pane->showLabel(currentLabel());
}

/// What can be undone here, and what it was.
void LabelsWindow::showSteps()
{
    const QUndoStack& stack = m_state.undoStack;
    const bool editable = m_model.whyReadOnly().isEmpty();
    m_cmdUndo->setEnabled(editable && stack.canUndo());
    m_cmdRedo->setEnabled(editable && stack.canRedo());
    m_cmdUndo->setToolTip(stack.undoText());
    m_cmdRedo->setToolTip(stack.redoText());
}

/// The rows that are looked for, without the unused ones where they are to be hidden.
void LabelsWindow::showRows()
{
    const LabelSet unused = unusedLabels(m_state.gWorkingData);
    LabelSet shown = findLabels(m_txtFind->text(), m_state.gWorkingData, m_state.labelNames);
    if (m_chkHideUnused->isChecked())
        shown &= ~unused;
    for (int label = 0; label < kLabels; ++label) {
        const bool hidden = !shown.test(static_cast<std::size_t>(label));
        if (m_view->isRowHidden(label) != hidden)
            m_view->setRowHidden(label, hidden);
    }
    m_chkHideUnused->setText(QStringLiteral("&Hide %1 unused").arg(unused.count()));
    m_lblNote->setText(note());
}

void LabelsWindow::showProblems()
{
    const auto count = static_cast<int>(m_model.problems().size());
    m_cmdProblems->setText(count == 0   ? QStringLiteral("No &problems")
                           : count == 1 ? QStringLiteral("1 &problem")
                                        : QStringLiteral("%1 &problems").arg(count));
    m_cmdProblems->setEnabled(count > 0);
    QPalette colors;
    if (count > 0)
        colors.setColor(QPalette::ButtonText, tonesOf(palette()).alarm);
    m_cmdProblems->setPalette(colors);
    m_lstProblems->setVisible(count > 0 && m_cmdProblems->isChecked());
    QStringList texts;
    for (const LabelProblem& problem : m_model.problems())
        texts += problem.text;
    QStringList listed;
    for (int i = 0; i < m_lstProblems->count(); ++i)
        listed += m_lstProblems->item(i)->text();
    if (listed == texts)
        return;
    m_lstProblems->clear();
    m_lstProblems->addItems(texts);
    for (int i = 0; i < texts.size(); ++i)
        m_lstProblems->item(i)->setToolTip(texts[i]);
}

QString LabelsWindow::note() const
{
    const std::size_t shown = shownRows().size();
    if (shown == 0)
        return QStringLiteral("No label is like this.");
    QString text;
    if (shown < kLabels)
        text = QStringLiteral("%1 of 100 labels shown. ").arg(shown);
    const QString reason = m_model.whyReadOnly();
    if (!reason.isEmpty())
        return text + reason;
    return text + (m_model.shown() == LabelsModel::Shown::Density
                       ? QStringLiteral("Density is reckoned: choose ON or CYCLE to change values.")
                       : QStringLiteral("Type a value, in 0.1 cans, or paste from a spreadsheet."));
}

void LabelsWindow::choose(LabelsModel::Shown shown)
{
    m_shown[static_cast<std::size_t>(shown)]->setChecked(true);
    m_model.show(shown);
    showState(); // the list of problems must be that of the model
    m_lblNote->setText(note());
}

void LabelsWindow::goTo(const LabelProblem& problem)
{
    const DataEntry place = entryAt(problem.entry);
    const bool cycle = place.parameter.slot == reg::kCycleDuration.slot;
    if (m_view->isRowHidden(place.label)) {
        m_txtFind->clear();
        m_chkHideUnused->setChecked(false);
    }
    choose(cycle ? LabelsModel::Shown::Cycle : LabelsModel::Shown::On);
    m_view->setCurrentIndex(m_model.index(place.label, LabelsModel::FirstDuctor + place.ductor));
    m_view->setFocus();
}

/// As spreadsheets do it after Enter.
void LabelsWindow::goDown()
{
    const QModelIndex here = m_view->currentIndex();
    const std::vector<int> rows = shownRows();
    const auto next = std::ranges::upper_bound(rows, here.row());
    if (next != rows.end())
        m_view->setCurrentIndex(here.siblingAtRow(*next));
}

/// The value is as before; the cell waits for another one.
void LabelsWindow::tellRefused(const QModelIndex& index, const QString& reason)
{
    QMetaObject::invokeMethod(
        this,
        [this, place = QPersistentModelIndex(index), reason] {
            m_state.prompts.showMessage(
                {BoxIcon::Information, BoxButtons::Ok, "Color Control", reason.toStdString()});
            m_view->setCurrentIndex(place);
            if (m_model.flags(place).testFlag(Qt::ItemIsEditable) && isVisible())
                m_view->edit(place);
        },
        Qt::QueuedConnection);
}

void LabelsWindow::copy()
{
    QApplication::clipboard()->setText(m_commands.copied(cells()));
}

void LabelsWindow::paste()
{
    m_commands.paste(QApplication::clipboard()->text(), cells(), shownRows());
}

QModelIndexList LabelsWindow::cells() const
{
    QModelIndexList chosen = m_view->selectionModel()->selectedIndexes();
    chosen.removeIf([this](const QModelIndex& cell) { return m_view->isRowHidden(cell.row()); });
    return chosen;
}

std::vector<int> LabelsWindow::labels() const
{
    return labelsOf(cells());
}

std::vector<int> LabelsWindow::shownRows() const
{
    std::vector<int> rows;
    for (int label = 0; label < kLabels; ++label) {
        if (!m_view->isRowHidden(label))
            rows.push_back(label);
    }
    return rows;
}

/// Those of the chosen cells; all where none is a ductor's.
DuctorSet LabelsWindow::ductors() const
{
    DuctorSet chosen;
    for (const QModelIndex& cell : cells()) {
        if (cell.column() >= LabelsModel::FirstDuctor)
            chosen.set(static_cast<std::size_t>(cell.column() - LabelsModel::FirstDuctor));
    }
    return chosen.none() ? DuctorSet().set() : chosen;
}

/// The one that the table's frame is on; before there is one, the label that is in use.
int LabelsWindow::currentLabel() const
{
    if (m_view->currentIndex().isValid())
        return m_view->currentIndex().row();
    return std::clamp<std::int32_t>(m_state.gWorkingData.Value[kCurrentLabelSlot], 0, kLabels - 1);
}

} // namespace tambrix
