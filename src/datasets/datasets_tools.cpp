#include "datasets/datasets_tools.h"

#include "data/press_name.h"
#include "datasets/backup_dialog.h"
#include "datasets/compare_window.h"
#include "datasets/daily_backup_dialog.h"
#include "shell/news_line.h"
#include "shell/toolbar.h"
#include "shell/tools_menu.h"

#include <QAction>
#include <QApplication>

namespace tambrix {

DatasetsTools::DatasetsTools(ProgramState& state, MainWindow& window)
    : QObject(&window), m_state(state), m_window(window), m_daily(state)
{
    ToolsMenu& menu = window.tools();
    QAction* comparison = menu.addCommand(
        {QStringLiteral("&Compare and Restore..."), QStringLiteral("mnuToolsCompare"),
         QKeySequence(Qt::CTRL | Qt::Key_R), [this] { compare(); }});
    QAction* labels = menu.addWindow({QStringLiteral("All &Labels..."),
                                      QStringLiteral("mnuToolsLabels"),
                                      QKeySequence(Qt::CTRL | Qt::Key_L),
                                      {}},
                                     [this](QWidget& parent) { return makeLabels(parent); });
    window.toolbar().addGap();
    window.toolbar().addTool(QStringLiteral("compare"), QStringLiteral("Compare"), *comparison);
    window.toolbar().addTool(QStringLiteral("labels"), QStringLiteral("All Labels"), *labels);
    menu.addOption({QStringLiteral("&Back Up Before Every Download"),
                    QStringLiteral("mnuToolsBackUpFirst"),
                    {},
                    {}},
                   [this](bool on) {
                       m_state.beforeDownload = {};
                       if (on)
                           m_state.beforeDownload = [this] {
                               return backUpBeforeDownload(m_state, &m_window);
                           };
                   });
    menu.addCommand(
        {QStringLiteral("&Daily Backup..."), QStringLiteral("mnuToolsDailyBackup"), {}, [this] {
             askDailyBackup();
         }});
    menu.addCommand(
        {QStringLiteral("&Press Name..."), QStringLiteral("mnuToolsPressName"), {}, [this] {
             askPressName();
         }});
    menu.addSeparator();
    addUndo();
    auto* news = new NewsLine(window, QStringLiteral("DailyBackup"));
    connect(&m_daily, &DailyBackup::told, news, &NewsLine::tell);
}

/// Undo and redo of what was changed in the working data, with what it was in their captions.
void DatasetsTools::addUndo()
{
    QUndoStack& stack = m_state.undoStack;
    QAction* undo =
        m_window.tools().addCommand({QStringLiteral("&Undo"), QStringLiteral("mnuToolsUndo"),
                                     QKeySequence(QKeySequence::Undo), [&stack] { stack.undo(); }});
    QAction* redo =
        m_window.tools().addCommand({QStringLiteral("&Redo"), QStringLiteral("mnuToolsRedo"),
                                     QKeySequence(QKeySequence::Redo), [&stack] { stack.redo(); }});
    undo->setEnabled(false);
    redo->setEnabled(false);
    connect(&stack, &QUndoStack::canUndoChanged, undo, &QAction::setEnabled);
    connect(&stack, &QUndoStack::canRedoChanged, redo, &QAction::setEnabled);
    connect(&stack, &QUndoStack::undoTextChanged, undo,
            [undo](const QString& what) { undo->setText(QStringLiteral("&Undo ") + what); });
    connect(&stack, &QUndoStack::redoTextChanged, redo,
            [redo](const QString& what) { redo->setText(QStringLiteral("&Redo ") + what); });
}

void DatasetsTools::compare()
{
    CompareWindow(m_state, &m_window).exec();
}

QWidget* DatasetsTools::makeLabels(QWidget& parent)
{
    auto* labels = new LabelsWindow(
        m_state, {[this](const auto& chosen) { send(chosen); }, m_previewLabels, m_savePdf},
        &parent);
    labels->setAttribute(Qt::WA_DeleteOnClose);
    return labels;
}

/// Compare and Restore with these labels ticked: there they are proved, backed up and written.
void DatasetsTools::send(const std::vector<int>& labels)
{
    std::vector<std::string> addresses;
    for (const int label : labels) {
        const auto first = m_state.gWorkingData.Address.begin() + labelBase(label);
        addresses.insert(addresses.end(), first, first + kEntriesPerLabel);
    }
    CompareWindow window(m_state, QApplication::activeWindow());
    window.session().compareOnly(std::move(addresses));
    window.exec();
}

void DatasetsTools::setLabelReports(LabelsHooks::Act preview, LabelsHooks::Act savePdf)
{
    m_previewLabels = std::move(preview);
    m_savePdf = std::move(savePdf);
}

void DatasetsTools::askPressName()
{
    const auto name = m_state.prompts.askText(
        QStringLiteral("Press Name"), QStringLiteral("Name of this press, for its backups:"),
        pressName(m_state.dataRoot));
    if (!name)
        return;
    if (const auto failure = setPressName(m_state.dataRoot, *name))
        m_state.prompts.showMessage(
            {BoxIcon::Warning, BoxButtons::Ok, "Press Name",
             "The name could not be kept.\r\n\r\n" + failure->toStdString()});
}

void DatasetsTools::askDailyBackup()
{
    DailyBackupDialog dialog(m_daily.time(), &m_window);
    if (dialog.exec() == QDialog::Accepted)
        m_daily.setTime(dialog.time());
}

} // namespace tambrix
