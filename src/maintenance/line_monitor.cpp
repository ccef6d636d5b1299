#include "maintenance/line_monitor.h"

#include "controls/forms.h"
#include "controls/named_controls.h"
#include "data/line_figures.h"
#include "data/trace_text.h"
#include "data/whole_file.h"
#include "maintenance/line_monitor_model.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTableView>
#include <QTimerEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <vector>

namespace tambrix {

namespace {

constexpr QSize kSize(1160, 640);
/// Often enough to watch, seldom enough to cost the line nothing.
constexpr int kRefreshInterval = 250; // ms
constexpr std::array kColumnWidths = {100, 190, 190, 190, 80, 70};

QWidget* makeRow()
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    return row;
}

QLineEdit* addField(QWidget& row, const char* name, const QString& caption, const QString& tells)
{
    auto* field = new QLineEdit;
    field->setObjectName(QLatin1String(name));
    field->setAccessibleName(tells);
    field->setClearButtonEnabled(true);
    auto* label = new QLabel(caption);
    label->setBuddy(field);
    row.layout()->addWidget(label);
    row.layout()->addWidget(field);
    return field;
}

QLabel* makeText(const char* name)
{
    QLabel* text = makeLabel(QLatin1String(name), {});
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return text;
}

} // namespace

LineMonitor::LineMonitor(LineRecorder& recorder, const Clock& clock, Prompts& prompts,
                         QString folder, QWidget* parent)
    : QDialog(parent),
      m_recorder(recorder),
      m_clock(clock),
      m_prompts(prompts),
      m_folder(std::move(folder)),
      m_source(makeText("lblLineSource")),
      m_figures(makeText("lblLineFigures")),
      m_advice(makeText("lblLineAdvice"))
{
    setObjectName(QStringLiteral("frmLineMonitor"));
    setWindowTitle(QStringLiteral("Line Monitor"));
    setWindowFlag(Qt::WindowMinMaxButtonsHint);
    resize(kSize);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeFilterRow());
    layout->addWidget(makeTable(), 1);
    for (QLabel* text : {m_source, m_figures, m_advice})
        layout->addWidget(text);
    layout->addWidget(makeButtonRow());
    auto* find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, m_find, qOverload<>(&QWidget::setFocus));
    connect(new QShortcut(QKeySequence::FindNext, this), &QShortcut::activated, this,
            &LineMonitor::findNext);
    connect(new QShortcut(QKeySequence::Copy, m_table), &QShortcut::activated, this,
            &LineMonitor::copyRows);
    m_recorder.watch();
    showLine();
    m_timer.start(kRefreshInterval, this);
    CenterForm(*this);
}

LineMonitor::~LineMonitor()
{
    m_table->setModel(nullptr);
    m_recorder.unwatch();
}

QWidget* LineMonitor::makeFilterRow()
{
    QWidget* row = makeRow();
    m_register = addField(*row, "txtLineRegister", QStringLiteral("&Register:"),
                          QStringLiteral("Show only this register, W112 for example"));
    m_register->setPlaceholderText(QStringLiteral("all"));
    m_errorsOnly = new QCheckBox(QStringLiteral("&Errors only"));
    m_errorsOnly->setObjectName(QStringLiteral("chkLineErrors"));
    row->layout()->addWidget(m_errorsOnly);
    m_find = addField(*row, "txtLineFind", QStringLiteral("&Find:"),
                      QStringLiteral("Find this text in the rows"));
    connect(m_register, &QLineEdit::textChanged, this, &LineMonitor::filter);
    connect(m_errorsOnly, &QCheckBox::toggled, this, &LineMonitor::filter);
    connect(m_find, &QLineEdit::returnPressed, this, &LineMonitor::findNext);
    addButton(*row, "cmdLineFind", "Find &Next", &LineMonitor::findNext);
    return row;
}

QWidget* LineMonitor::makeTable()
{
    m_table = new QTableView;
    m_table->setObjectName(QStringLiteral("tblLine"));
    m_table->setAccessibleName(QStringLiteral("Exchanges with the board"));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->setShowGrid(false);
    m_table->setAlternatingRowColors(true);
    QHeaderView* rows = m_table->verticalHeader();
    rows->hide();
    rows->setSectionResizeMode(QHeaderView::Fixed); // thousands of rows: none is measured
    rows->setDefaultSectionSize(m_table->fontMetrics().height() + 6);
    return m_table;
}

void LineMonitor::addButton(QWidget& row, const char* name, const char* caption,
                            void (LineMonitor::*act)())
{
    QPushButton* button = makeButton(QLatin1String(name), QLatin1String(caption));
    connect(button, &QPushButton::clicked, this, act);
    row.layout()->addWidget(button);
}

QWidget* LineMonitor::makeButtonRow()
{
    QWidget* row = makeRow();
    m_pause = makeButton(QStringLiteral("cmdLinePause"), QStringLiteral("&Pause"));
    m_pause->setCheckable(true);
    connect(m_pause, &QPushButton::toggled, this, &LineMonitor::refresh);
    row->layout()->addWidget(m_pause);
    addButton(*row, "cmdLineCopy", "C&opy", &LineMonitor::copyRows);
    addButton(*row, "cmdLineSave", "&Save As...", &LineMonitor::save);
    addButton(*row, "cmdLineLoad", "&Load...", &LineMonitor::load);
    m_live = makeButton(QStringLiteral("cmdLineLive"), QStringLiteral("&Back to the Line"));
    connect(m_live, &QPushButton::clicked, this, &LineMonitor::showLine);
    row->layout()->addWidget(m_live);
    static_cast<QHBoxLayout*>(row->layout())->addStretch();
    QPushButton* close = makeButton(QStringLiteral("cmdLineClose"), QStringLiteral("Close"));
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    row->layout()->addWidget(close);
    return row;
}

const LineTrace& LineMonitor::trace() const
{
    return m_loaded ? *m_loaded : m_recorder.trace();
}

void LineMonitor::showTrace(const LineTrace& trace, std::optional<QDateTime> zero)
{
    auto model = std::make_unique<LineMonitorModel>(trace, std::move(zero));
    m_table->setModel(model.get());
    m_model = std::move(model);
    m_model->setFilter(m_register->text(), m_errorsOnly->isChecked());
    for (int i = 0; i < static_cast<int>(kColumnWidths.size()); ++i)
        m_table->setColumnWidth(i, kColumnWidths[static_cast<std::size_t>(i)]);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_model->follow();
    m_table->scrollToBottom();
    showFigures();
}

void LineMonitor::showLine()
{
    const auto sinceZero = std::chrono::duration_cast<std::chrono::milliseconds>(m_clock.now());
    m_pause->setEnabled(true);
    m_live->setEnabled(false);
    m_source->setText(QStringLiteral("On the line now. The passcode is never shown."));
    showTrace(m_recorder.trace(), QDateTime::currentDateTime().addMSecs(-sinceZero.count()));
    m_loaded.reset();
    showFigures();
}

void LineMonitor::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_timer.timerId())
        refresh();
}

void LineMonitor::refresh()
{
    if (m_loaded || m_pause->isChecked() || !isVisible())
        return;
    const QScrollBar& bar = *m_table->verticalScrollBar();
    const bool atEnd = bar.value() == bar.maximum();
    m_model->follow();
    if (atEnd)
        m_table->scrollToBottom();
    showFigures();
}

void LineMonitor::showFigures()
{
    const int baud = m_recorder.baud();
    const LineFigures figures = lineFigures(trace(), baud);
    QString text = figuresText(figures);
    if (!m_loaded)
        text += QStringLiteral("  Errors since on line: %1.").arg(m_recorder.errors());
    m_figures->setText(text);
    m_advice->setText(slowAdvice(figures, baud));
    m_advice->setVisible(!m_advice->text().isEmpty());
}

void LineMonitor::filter()
{
    m_model->setFilter(m_register->text(), m_errorsOnly->isChecked());
    m_table->scrollToBottom();
}

void LineMonitor::findNext()
{
    const QModelIndex current = m_table->currentIndex();
    const int row = m_model->find(m_find->text(), current.isValid() ? current.row() : -1);
    if (row < 0) {
        say(QStringLiteral("Find"),
            m_find->text().isEmpty() ? QStringLiteral("Enter what to find.")
                                     : QStringLiteral("No row holds \"%1\".").arg(m_find->text()));
        return;
    }
    m_pause->setChecked(!m_loaded); // what was found stays in sight
    m_table->setCurrentIndex(m_model->index(row, 0));
    m_table->scrollTo(m_model->index(row, 0), QAbstractItemView::PositionAtCenter);
}

/// The selected rows, or all of them where none is.
void LineMonitor::copyRows()
{
    std::vector<int> rows;
    for (const QModelIndex& index : m_table->selectionModel()->selectedRows())
        rows.push_back(index.row());
    std::ranges::sort(rows);
    const int count = rows.empty() ? m_model->rowCount() : static_cast<int>(rows.size());
    QStringList lines;
    for (int i = 0; i < count; ++i)
        lines += m_model->rowText(rows.empty() ? i : rows[static_cast<std::size_t>(i)]);
    QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}

void LineMonitor::save()
{
    const auto file = m_prompts.askSaveFile({QStringLiteral("Save Trace"),
                                             QStringLiteral("Line Traces(*.txt)|*.txt|"), m_folder,
                                             QStringLiteral("line.txt"), QStringLiteral("txt")});
    if (!file)
        return;
    if (const auto reason = writeWholeFile(*file, traceText(trace())))
        say(QStringLiteral("Save Trace"),
            QStringLiteral("The trace could not be saved in\n%1\n\n%2")
                .arg(QDir::toNativeSeparators(*file), *reason));
}

void LineMonitor::load()
{
    const auto name = m_prompts.askOpenFile({QStringLiteral("Load Trace"),
                                             QStringLiteral("Line Traces(*.txt)|*.txt|"),
                                             m_folder,
                                             {},
                                             {}});
    if (!name)
        return;
    LineTrace loaded(LineRecorder::kWatched);
    const QString wrong = loadTrace(*name, loaded);
    if (!wrong.isEmpty()) {
        say(QStringLiteral("Load Trace"),
            QStringLiteral("%1\n\n%2").arg(QDir::toNativeSeparators(*name), wrong));
        return;
    }
    m_table->setModel(nullptr); // before the trace that it may stand on goes
    m_loaded = std::move(loaded);
    m_pause->setChecked(false);
    m_pause->setEnabled(false);
    m_live->setEnabled(true);
    m_source->setText(QStringLiteral("From the file %1.").arg(QDir::toNativeSeparators(*name)));
    showTrace(*m_loaded, std::nullopt);
}

void LineMonitor::say(const QString& title, const QString& text)
{
    m_prompts.showMessage(
        {BoxIcon::Information, BoxButtons::Ok, title.toStdString(), text.toStdString()});
}

} // namespace tambrix
