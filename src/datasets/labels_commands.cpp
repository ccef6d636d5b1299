#include "datasets/labels_commands.h"

#include "data/setup_text_file.h"
#include "data/whole_file.h"
#include "datasets/plan_dialog.h"
#include "shell/file_commands.h"

#include <QFileInfo>

#include <algorithm>
#include <set>

namespace tambrix {

namespace {

const QString kFilter =
    QStringLiteral("CSV Files(*.csv)|*.csv|JSON Files(*.json)|*.json|All Files(*.*)|*.*|");
const QString kForbidden = QStringLiteral("%1 are not allowed and stay as they are:");

const QString kReckoned = QStringLiteral(
    "Densities are reckoned from ON and CYCLE. Choose one of these to change values.");

std::vector<int> columnsOf(const QModelIndexList& cells)
{
    std::set<int> columns;
    for (const QModelIndex& cell : cells)
        columns.insert(cell.column());
    return {columns.begin(), columns.end()};
}

} // namespace

std::vector<int> labelsOf(const QModelIndexList& cells)
{
    std::set<int> labels;
    for (const QModelIndex& cell : cells)
        labels.insert(cell.row());
    return {labels.begin(), labels.end()};
}

QString LabelsCommands::copied(const QModelIndexList& cells) const
{
    std::vector<QStringList> table;
    for (const int label : labelsOf(cells)) {
        QStringList row;
        for (const int column : columnsOf(cells))
            row += guarded(m_model.index(label, column).data().toString());
        table.push_back(row);
    }
    return csvText(table, u'\t');
}

bool LabelsCommands::mayEdit()
{
    const QString reason = m_model.whyReadOnly();
    if (!reason.isEmpty())
        say(QStringLiteral("All Labels"), reason);
    return reason.isEmpty();
}

void LabelsCommands::paste(const QString& text, const QModelIndexList& cells,
                           const std::vector<int>& rows)
{
    if (cells.isEmpty() || !mayEdit())
        return;
    const auto columns = m_model.writtenColumnsFrom(columnsOf(cells).front());
    if (columns.empty())
        return say(QStringLiteral("Paste"), kReckoned);
    const auto first = std::ranges::find(rows, labelsOf(cells).front());
    auto parsed = pastedCells(text, {first, rows.end()}, columns);
    if (const auto* fault = std::get_if<TextFault>(&parsed))
        return say(QStringLiteral("Paste"),
                   QStringLiteral("Nothing was pasted.\r\n\r\n") + fault->sentence());
    auto& wanted = std::get<std::vector<WantedCell>>(parsed);
    if (wanted.size() == 1) {
        const QString field = wanted.front().text;
        wanted.clear();
        for (const QModelIndex& cell : cells) {
            if (const auto column = m_model.writtenColumn(cell.column()))
                wanted.push_back({cell.row(), *column, field});
        }
    }
    apply(QStringLiteral("Paste"), planCells(m_state.gWorkingData, m_state.labelNames, wanted));
}

void LabelsCommands::fillDown(const QModelIndexList& cells)
{
    if (cells.isEmpty() || !mayEdit())
        return;
    std::vector<WantedCell> wanted;
    for (const QModelIndex& cell : cells) {
        const auto column = m_model.writtenColumn(cell.column());
        if (!column)
            continue;
        int top = cell.row();
        for (const QModelIndex& other : cells)
            top = other.column() == cell.column() ? std::min(top, other.row()) : top;
        wanted.push_back({cell.row(), *column, cell.siblingAtRow(top).data().toString()});
    }
    apply(QStringLiteral("Fill Down"), planCells(m_state.gWorkingData, m_state.labelNames, wanted));
}

void LabelsCommands::copyLabel(int label)
{
    if (!mayEdit())
        return;
    CopyLabelDialog dialog(m_state.gWorkingData, label, &m_window);
    if (dialog.exec() == QDialog::Accepted)
        m_state.edit(QStringLiteral("Copy Label %1").arg(label), dialog.plan().change);
}

void LabelsCommands::scale(const std::vector<int>& labels, const DuctorSet& ductors)
{
    if (!mayEdit())
        return;
    ScaleDialog dialog(m_state.gWorkingData, labels, ductors, &m_window);
    if (dialog.exec() == QDialog::Accepted)
        m_state.edit(QStringLiteral("Scale"), dialog.plan().change);
}

void LabelsCommands::apply(const QString& what, const EditPlan& plan)
{
    if (!plan.objections.isEmpty()) {
        PlanDialog dialog(what, kForbidden, &m_window);
        dialog.setPlan(plan);
        if (dialog.exec() != QDialog::Accepted)
            return;
    }
    m_state.edit(what, plan.change);
}

void LabelsCommands::say(const QString& title, const QString& text)
{
    m_state.prompts.showMessage(
        {BoxIcon::Warning, BoxButtons::Ok, title.toStdString(), text.toStdString()});
}

std::optional<NamedSetup> LabelsCommands::readFile(const QString& path)
{
    auto read = readSetupText(path);
    if (const auto* refusal = std::get_if<Refusal>(&read)) {
        say(QStringLiteral("Import"), QFileInfo(path).fileName() +
                                          QStringLiteral(" was not imported.\r\n\r\n") +
                                          refusal->reason);
        return std::nullopt;
    }
    auto setup = std::get<NamedSetup>(std::move(read));
    const bool wanted = setup.record.Version == m_state.gProgramVersion ||
                        askForOtherVersion(m_state.prompts, setup.record.Version) == BoxAnswer::Yes;
    return wanted ? std::optional(std::move(setup)) : std::nullopt;
}

void LabelsCommands::importData()
{
    if (!mayEdit())
        return;
    const auto path = m_state.prompts.askOpenFile({QStringLiteral("Import Data Set"),
                                                   kFilter,
                                                   QFileInfo(m_state.gFileNamePath).path(),
                                                   {},
                                                   {}});
    const auto setup = path ? readFile(*path) : std::nullopt;
    if (!setup)
        return;
    DataChange change = changeTo(setup->record, m_state.gWorkingData);
    for (int label = 0; label < kLabels; ++label) {
        if (setup->names.of(label) != m_state.labelNames.of(label))
            change.names.push_back({label, setup->names.of(label)});
    }
    m_state.edit(QStringLiteral("Import"), std::move(change));
}

void LabelsCommands::exportData()
{
    const QFileInfo current(m_state.gFileNamePath);
    const QString name =
        m_state.gUntitled ? QStringLiteral("untitled") : current.completeBaseName();
    const auto path =
        m_state.prompts.askSaveFile({QStringLiteral("Export Data Set"), kFilter, current.path(),
                                     name + QStringLiteral(".csv"), QStringLiteral("csv")});
    if (!path)
        return;
    NamedSetup setup{m_state.gWorkingData, m_state.labelNames};
    setup.record.Version = m_state.gProgramVersion;
    const bool json =
        QFileInfo(*path).suffix().compare(QLatin1String("json"), Qt::CaseInsensitive) == 0;
    const auto reason = writeWholeFile(*path, json ? setupJson(setup) : setupCsv(setup));
    if (reason)
        say(QStringLiteral("Export"),
            QStringLiteral("%1 could not be written.\r\n\r\n%2").arg(*path, *reason));
}

} // namespace tambrix
