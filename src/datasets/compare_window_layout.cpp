#include "controls/calm_style.h"
#include "controls/named_controls.h"
#include "controls/text_size.h"
#include "datasets/compare_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeView>

namespace tambrix {

namespace {

constexpr QSize kSize(1180, 660);
constexpr int kWhatWidth = 330;
constexpr int kRegisterWidth = 90;
constexpr int kUnitWidth = 90;
constexpr int kValueWidth = 110;
constexpr int kRowHeight = 28;

QComboBox* makeBox(const char* name, const QString& spoken)
{
    auto* box = new QComboBox;
    box->setObjectName(QLatin1String(name));
    box->setAccessibleName(spoken);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(24);
    return box;
}

QLabel* makeCaption(const QString& text, QWidget& buddy)
{
    auto* label = new QLabel(text);
    label->setBuddy(&buddy);
    return label;
}

} // namespace

void CompareWindow::build()
{
    setObjectName(QStringLiteral("frmCompare"));
    setWindowTitle(QStringLiteral("Compare and Restore"));
    auto* title = makeLabel(QStringLiteral("lblTitle"), windowTitle());
    setTextSize(*title, TextSize::Title, true);
    m_lblRunning = makeLabel(QStringLiteral("lblRunning"), {});
    m_lblRunning->setWordWrap(true);
    m_lblRunning->hide();
    m_lblSummary = makeLabel(QStringLiteral("lblSummary"), {});
    m_lblSummary->setWordWrap(true);
    setTextSize(*m_lblSummary, TextSize::Text, true);
    buildTree();

    auto* content = new QVBoxLayout(this);
    content->addWidget(title);
    content->addLayout(buildSources());
    content->addWidget(m_view, 1);
    content->addWidget(m_lblRunning);
    content->addWidget(m_lblSummary);
    content->addLayout(buildProgress());
    content->addLayout(buildButtons());
    resize(kSize);
}

QHBoxLayout* CompareWindow::buildSources()
{
    m_cboLeft = makeBox("cboLeft", QStringLiteral("Left"));
    m_cboRight = makeBox("cboRight", QStringLiteral("Right"));
    connect(m_cboLeft, &QComboBox::activated, this,
            [this] { chooseSource(*m_cboLeft, m_session.left); });
    connect(m_cboRight, &QComboBox::activated, this,
            [this] { chooseSource(*m_cboRight, m_session.right); });
    m_txtFilter = new QLineEdit;
    m_txtFilter->setObjectName(QStringLiteral("txtFilter"));
    m_txtFilter->setAccessibleName(QStringLiteral("Filter"));
    m_txtFilter->setClearButtonEnabled(true);
    connect(m_txtFilter, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_tree.setFilter(text);
        m_view->expandAll();
        showState();
    });
    m_chkShowEqual = new QCheckBox(QStringLiteral("Show &equal values"));
    m_chkShowEqual->setObjectName(QStringLiteral("chkShowEqual"));
    connect(m_chkShowEqual, &QCheckBox::toggled, this, [this](bool show) {
        m_tree.setShowEqual(show);
        m_view->expandAll();
    });

    auto* row = new QHBoxLayout;
    row->addWidget(makeCaption(QStringLiteral("&Left:"), *m_cboLeft));
    row->addWidget(m_cboLeft, 2);
    row->addWidget(makeCaption(QStringLiteral("&Right:"), *m_cboRight));
    row->addWidget(m_cboRight, 2);
    m_cmdCompare =
        addButton(*row, "cmdCompare", QStringLiteral("C&ompare"), [this] { m_session.compare(); });
    row->addWidget(makeCaption(QStringLiteral("&Filter:"), *m_txtFilter));
    row->addWidget(m_txtFilter, 1);
    row->addWidget(m_chkShowEqual);
    return row;
}

void CompareWindow::buildTree()
{
    m_view = new QTreeView;
    m_view->setObjectName(QStringLiteral("treCompare"));
    m_view->setAccessibleName(QStringLiteral("Differences"));
    m_view->setModel(&m_tree);
    m_view->setUniformRowHeights(true);
    m_view->setAlternatingRowColors(true);
    m_view->setAllColumnsShowFocus(true);
    m_view->setStyleSheet(QStringLiteral("QTreeView::item { height: %1px; }").arg(kRowHeight));
    QHeaderView& head = *m_view->header();
    head.resizeSection(CompareTree::What, kWhatWidth);
    head.resizeSection(CompareTree::Register, kRegisterWidth);
    head.resizeSection(CompareTree::Unit, kUnitWidth);
    for (const int column : {CompareTree::Left, CompareTree::Right, CompareTree::Running})
        head.resizeSection(column, kValueWidth);
    head.setStretchLastSection(true);
}

QHBoxLayout* CompareWindow::buildProgress()
{
    m_progress = new QProgressBar;
    m_progress->setObjectName(QStringLiteral("prgCompare"));
    m_progress->setAccessibleName(QStringLiteral("Progress"));
    m_progress->setTextVisible(false); // the line above says more
    m_progress->setEnabled(false);
    m_progress->setValue(0);
    auto* row = new QHBoxLayout;
    row->addWidget(m_progress, 1);
    m_cmdCancel =
        addButton(*row, "cmdCancel", QStringLiteral("Ca&ncel"), [this] { m_session.cancel(); });
    return row;
}

QHBoxLayout* CompareWindow::buildButtons()
{
    auto* row = new QHBoxLayout;
    m_cmdCopy = addButton(*row, "cmdCopy", QStringLiteral("&Copy"), [this] { copy(); });
    m_cmdSaveCsv =
        addButton(*row, "cmdSaveCsv", QStringLiteral("&Save as CSV..."), [this] { saveCsv(); });
    m_cmdPrint = addButton(*row, "cmdPrint", QStringLiteral("&Print..."), [this] { print(); });
    row->addStretch(1);
    m_cmdUndoLast = addButton(*row, "cmdUndoLast", QStringLiteral("&Undo Last Restore"), [this] {
        m_session.undoLastRestore();
        fillSources();
    });
    m_cmdRetry =
        addButton(*row, "cmdRetry", QStringLiteral("Retr&y"), [this] { m_session.retry(); });
    m_cmdTake = addButton(*row, "cmdTake", QStringLiteral("&Take into Working Data"),
                          [this] { m_session.takeIntoWorkingData(); });
    m_cmdWrite = addButton(*row, "cmdWrite", QStringLiteral("&Write to Controller"),
                           [this] { m_session.write(); });
    setPrimary(*m_cmdWrite, true);
    m_cmdClose = addButton(*row, "cmdClose", QStringLiteral("Close"), [this] { reject(); });
    return row;
}

QPushButton* CompareWindow::addButton(QHBoxLayout& row, const char* name, const QString& caption,
                                      std::function<void()> action)
{
    auto* button = makeButton(QLatin1String(name), caption);
    connect(button, &QPushButton::clicked, this, std::move(action));
    row.addWidget(button);
    return button;
}

} // namespace tambrix
