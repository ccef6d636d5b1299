// How the labels' window is laid out, and which keys it knows.

#include "controls/calm_style.h"
#include "controls/forms.h"
#include "controls/named_controls.h"
#include "controls/text_size.h"
#include "datasets/label_pane.h"
#include "datasets/labels_delegate.h"
#include "datasets/labels_window.h"

#include <QAction>
#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTableView>

namespace tambrix {

namespace {

constexpr QSize kSize(1200, 680);
constexpr int kNameShare = 26; // letters that the name's column has room for
constexpr int kSideShare = 40; // letters across the pane beside the table

} // namespace

void LabelsWindow::build()
{
    setObjectName(QStringLiteral("frmLabels"));
    setWindowTitle(QStringLiteral("All Labels"));
    auto* title = makeLabel(QStringLiteral("lblTitle"), windowTitle());
    setTextSize(*title, TextSize::Title, true);
    m_lblNote = makeLabel(QStringLiteral("lblNote"), {});
    m_lblNote->setWordWrap(true);
    auto* top = buildTop();
    buildTable();
    auto* middle = new QHBoxLayout;
    middle->addWidget(m_view, 1);
    middle->addWidget(buildSide());

    auto* content = new QVBoxLayout(this);
    content->addWidget(title);
    content->addLayout(top);
    content->addLayout(middle, 1);
    content->addWidget(m_lblNote);
    content->addLayout(buildButtons());
    addActions();
    resizeInto(*this, kSize);
    m_view->setFocus();
}

QHBoxLayout* LabelsWindow::buildTop()
{
    auto* row = new QHBoxLayout;
    buildShownSwitch(*row);
    m_txtFind = new QLineEdit;
    m_txtFind->setObjectName(QStringLiteral("txtFind"));
    m_txtFind->setPlaceholderText(QStringLiteral("number, name, ON > 120, unused"));
    m_txtFind->setClearButtonEnabled(true);
    auto* caption = makeLabel(QStringLiteral("lblFind"), QStringLiteral("&Find:"));
    caption->setBuddy(m_txtFind);
    m_txtFind->setAccessibleName(QStringLiteral("Find"));
    connect(m_txtFind, &QLineEdit::textChanged, this, &LabelsWindow::showRows);
    m_chkHideUnused = new QCheckBox;
    m_chkHideUnused->setObjectName(QStringLiteral("chkHideUnused"));
    connect(m_chkHideUnused, &QCheckBox::toggled, this, &LabelsWindow::showRows);
    row->addSpacing(row->spacing());
    row->addWidget(caption);
    row->addWidget(m_txtFind, 1);
    row->addWidget(m_chkHideUnused);
    m_cmdProblems = addButton(*row, "cmdProblems", {}, [this] {
        showProblems();
        m_lstProblems->setFocus();
    });
    m_cmdProblems->setCheckable(true);
    return row;
}

void LabelsWindow::buildShownSwitch(QHBoxLayout& row)
{
    using Shown = LabelsModel::Shown;
    auto* group = new QButtonGroup(this);
    const std::array<std::pair<const char*, Shown>, 3> parts = {
        {{"&Density", Shown::Density}, {"O&N", Shown::On}, {"C&YCLE", Shown::Cycle}}};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const Shown shown = parts[i].second;
        m_shown[i] = addButton(row, "cmdShown", QLatin1String(parts[i].first),
                               [this, shown] { choose(shown); });
        m_shown[i]->setObjectName(arrayName("cmdShown", static_cast<int>(i)));
        m_shown[i]->setCheckable(true);
        group->addButton(m_shown[i]);
        connect(m_shown[i], &QPushButton::toggled, m_shown[i],
                [button = m_shown[i]](bool on) { setPrimary(*button, on); });
    }
    m_shown[0]->setChecked(true);
}

void LabelsWindow::buildTable()
{
    m_view = new QTableView;
    m_view->setObjectName(QStringLiteral("tblLabels"));
    m_view->setAccessibleName(QStringLiteral("Labels"));
    m_view->setModel(&m_model);
    auto* delegate = new LabelsDelegate(m_view);
    m_view->setItemDelegate(delegate);
    m_view->setShowGrid(false);
    m_view->setTabKeyNavigation(false); // Tab leaves the table
    m_view->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                            QAbstractItemView::AnyKeyPressed);
    m_view->verticalHeader()->hide();
    sizeTable(*delegate);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { m_pane->showLabel(currentLabel()); });
    connect(delegate, &QAbstractItemDelegate::closeEditor, this,
            [this](QWidget*, QAbstractItemDelegate::EndEditHint hint) {
                if (hint == QAbstractItemDelegate::SubmitModelCache)
                    goDown();
            });
}

void LabelsWindow::sizeTable(const QAbstractItemDelegate& delegate)
{
    const int letter = fontMetrics().averageCharWidth();
    QStyleOptionViewItem option;
    option.fontMetrics = m_view->fontMetrics();
    const QSize cell = delegate.sizeHint(option, {});
    QHeaderView& rows = *m_view->verticalHeader();
    rows.setSectionResizeMode(QHeaderView::Fixed);
    rows.setMinimumSectionSize(cell.height());
    rows.setDefaultSectionSize(cell.height());
    QHeaderView& columns = *m_view->horizontalHeader();
    columns.setHighlightSections(false);
    columns.setMinimumSectionSize(cell.width());
    columns.setSectionResizeMode(QHeaderView::Stretch);
    columns.setSectionResizeMode(LabelsModel::Label, QHeaderView::Fixed);
    columns.setSectionResizeMode(LabelsModel::Name, QHeaderView::Interactive);
    columns.resizeSection(LabelsModel::Label, cell.width());
    columns.resizeSection(LabelsModel::Name, kNameShare * letter);
}

QWidget* LabelsWindow::buildSide()
{
    auto* side = new QGroupBox;
    side->setObjectName(QStringLiteral("fraLabel"));
    side->setAccessibleName(QStringLiteral("Shown label"));
    side->setFixedWidth(kSideShare * fontMetrics().averageCharWidth());
    m_pane = new LabelPane(m_state);
    m_lstProblems = new QListWidget;
    m_lstProblems->setObjectName(QStringLiteral("lstProblems"));
    m_lstProblems->setAccessibleName(QStringLiteral("Problems"));
    m_lstProblems->setWordWrap(true);
    m_lstProblems->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const auto open = [this](const QListWidgetItem* item) {
        goTo(m_model.problems()[static_cast<std::size_t>(m_lstProblems->row(item))]);
    };
    connect(m_lstProblems, &QListWidget::itemClicked, this, open);
    connect(m_lstProblems, &QListWidget::itemActivated, this, open);
    auto* inside = new QVBoxLayout(side);
    inside->addWidget(m_pane, 3);
    inside->addWidget(m_lstProblems, 2);
    return side;
}

QHBoxLayout* LabelsWindow::buildButtons()
{
    auto* row = new QHBoxLayout;
    m_cmdUndo =
        addButton(*row, "cmdUndo", QStringLiteral("&Undo"), [this] { m_state.undoStack.undo(); });
    m_cmdRedo =
        addButton(*row, "cmdRedo", QStringLiteral("&Redo"), [this] { m_state.undoStack.redo(); });
    connect(&m_state.undoStack, &QUndoStack::indexChanged, this, &LabelsWindow::showSteps);
    m_editing = {addButton(*row, "cmdScale", QStringLiteral("&Scale..."),
                           [this] { m_commands.scale(labels(), ductors()); }),
                 addButton(*row, "cmdCopyLabel", QStringLiteral("&Copy Label to..."),
                           [this] { m_commands.copyLabel(currentLabel()); }),
                 addButton(*row, "cmdImport", QStringLiteral("&Import..."),
                           [this] { m_commands.importData(); })};
    addButton(*row, "cmdExport", QStringLiteral("&Export..."), [this] { m_commands.exportData(); });
    auto* more = addButton(*row, "cmdMore", QStringLiteral("&More"), {});
    more->setMenu(new QMenu(more));
    row->addStretch(1);
    QPushButton* send = addButton(*row, "cmdSend", QStringLiteral("Send &These Labels..."),
                                  [this] { m_hooks.send(labels()); });
    setPrimary(*send, true);
    addButton(*row, "cmdClose", QStringLiteral("Close"), [this] { close(); });
    return row;
}

/// The commands without a button of their own: in the table's own menu and under More.
void LabelsWindow::addActions()
{
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
    addAction("mnuCopy", QStringLiteral("&Copy"), QKeySequence::Copy, [this] { copy(); });
    addAction("mnuPaste", QStringLiteral("&Paste"), QKeySequence::Paste, [this] { paste(); });
    addAction("mnuFillDown", QStringLiteral("&Fill Down"), QKeySequence(Qt::CTRL | Qt::Key_D),
              [this] { m_commands.fillDown(cells()); });
    addAction("mnuUndo", QStringLiteral("U&ndo"), QKeySequence::Undo,
              [this] { m_cmdUndo->click(); });
    addAction("mnuRedo", QStringLiteral("&Redo"), QKeySequence::Redo,
              [this] { m_cmdRedo->click(); });
    addAction("mnuFind", QStringLiteral("F&ind"), QKeySequence::Find,
              [this] { m_txtFind->setFocus(); });
    addAction("mnuReport", QStringLiteral("Report Pre&view..."), QKeySequence::Print,
              [this] { m_hooks.preview(labels()); });
    addAction("mnuReportPdf", QStringLiteral("Report as P&DF..."), {},
              [this] { m_hooks.savePdf(labels()); });
}

void LabelsWindow::addAction(const char* name, const QString& text, const QKeySequence& keys,
                             std::function<void()> act)
{
    auto* action = new QAction(text, this);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, std::move(act));
    m_view->addAction(action);
    findChild<QPushButton*>(QStringLiteral("cmdMore"))->menu()->addAction(action);
}

QPushButton* LabelsWindow::addButton(QHBoxLayout& row, const char* name, const QString& caption,
                                     std::function<void()> act)
{
    auto* button = makeButton(QLatin1String(name), caption);
    if (act)
        connect(button, &QPushButton::clicked, this, std::move(act));
    row.addWidget(button);
    return button;
}

} // namespace tambrix
