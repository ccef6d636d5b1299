// What HistoryWindow is made of.

#include "controls/forms.h"
#include "controls/named_controls.h"
#include "history/history_plots.h"
#include "history/history_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSpinBox>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace tambrix {

namespace {

constexpr QSize kSize(1200, 690);
constexpr int kReloadAfter = 40;  // ms
constexpr double kUsualLine = 17; // px: what the sizes are for
constexpr int kTablesHeight = 150;
constexpr int kTableLines = 8;
constexpr int kFilterWidth = 180;

QLabel* makeCaption(const char* text, QWidget& field)
{
    auto* caption = new QLabel(QLatin1String(text));
    caption->setBuddy(&field);
    return caption;
}

} // namespace

HistoryWindow::HistoryWindow(const Source& source, QWidget* parent)
    : QDialog(parent),
      m_source(source),
      m_plots(new HistoryPlots),
      m_ductor(new QComboBox),
      m_summary(makeDimLabel({})),
      m_filter(new QLineEdit),
      m_alarms(makeHistoryView("tblAlarms", QStringLiteral("Alarms"))),
      m_changes(makeHistoryView("tblChanges", QStringLiteral("Changes"))),
      m_unseen(new QCheckBox(QStringLiteral("Also &Record What Is Not Shown, every"))),
      m_seconds(new QSpinBox)
{
    setObjectName(QStringLiteral("frmHistory"));
    setWindowTitle(QStringLiteral("History"));
    setWindowFlag(Qt::WindowMinMaxButtonsHint);
    resizeInto(*this, kSize * std::max(1.0, fontMetrics().height() / kUsualLine));
    m_summary->setObjectName(QStringLiteral("lblHistorySummary"));
    m_summary->setWordWrap(true);
    m_summary->setMinimumHeight(2 * m_summary->fontMetrics().lineSpacing()); // on a small screen
    m_reload.setSingleShot(true);
    m_reload.setInterval(kReloadAfter);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(makeSpans());
    layout->addWidget(m_plots, 1);
    layout->addWidget(m_summary);
    layout->addWidget(makeTables());
    layout->addLayout(makeButtons());
    connectPlots();
    CenterForm(*this);
    choose(Span::Hour);
    m_follow->setChecked(true);
    m_plots->setFocus();
}

QHBoxLayout* HistoryWindow::makeSpans()
{
    auto* row = new QHBoxLayout;
    constexpr std::array kNames = {"cmdLastHour", "cmdShift", "cmdDay", "cmdAll"};
    constexpr std::array kCaptions = {"Last &hour", "&Shift", "&Day", "&All"};
    for (std::size_t i = 0; i < m_spans.size(); ++i) {
        m_spans[i] =
            addButton(*row, kNames[i], kCaptions[i], [this, i] { choose(static_cast<Span>(i)); });
        m_spans[i]->setCheckable(true);
    }
    m_follow = addButton(*row, "cmdFollow", "&Follow", [this] { follow(); });
    m_follow->setCheckable(true);
    row->addStretch();
    m_filter->setObjectName(QStringLiteral("txtHistoryFilter"));
    m_filter->setAccessibleName(QStringLiteral("Show only rows that hold this text"));
    m_filter->setPlaceholderText(QStringLiteral("in both tables"));
    m_filter->setClearButtonEnabled(true);
    m_filter->setMaximumWidth(kFilterWidth);
    row->addWidget(makeCaption("Fi&lter:", *m_filter));
    row->addWidget(m_filter);
    m_ductor->setObjectName(QStringLiteral("cboDuctor"));
    m_ductor->setAccessibleName(QStringLiteral("Ductor whose cycles are plotted"));
    for (int d = 1; d <= kDuctors; ++d)
        m_ductor->addItem(QString::number(d));
    row->addWidget(makeCaption("Cycles of d&uctor:", *m_ductor));
    row->addWidget(m_ductor);
    addButton(*row, "cmdWhyDuctor", "&Why This Ink?", [this] { showDuctor(); });
    return row;
}

QWidget* HistoryWindow::makeTable(QTableView& view, const QString& title)
{
    QGroupBox* frame = makeFrame(QStringLiteral("fra") + title, title);
    auto* inside = new QVBoxLayout(frame);
    inside->addWidget(&view);
    return frame;
}

QWidget* HistoryWindow::makeTables()
{
    auto* tables = new QWidget;
    auto* row = new QHBoxLayout(tables);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(makeTable(*m_alarms, QStringLiteral("Alarms")), 4);
    row->addWidget(makeTable(*m_changes, QStringLiteral("Changes")), 6);
    tables->setFixedHeight(std::max(kTablesHeight, kTableLines * fontMetrics().height()));
    return tables;
}

void HistoryWindow::addRecording(QHBoxLayout& row)
{
    m_unseen->setObjectName(QStringLiteral("chkRecordUnseen"));
    m_unseen->setToolTip(QStringLiteral("Reads counts, mode, label and durations even while no "
                                        "screen shows them. Screens refresh a little slower."));
    m_seconds->setObjectName(QStringLiteral("txtRecordSeconds"));
    m_seconds->setAccessibleName(QStringLiteral("Seconds between two readings"));
    m_seconds->setRange(UnseenReader::kShortest, UnseenReader::kLongest);
    m_seconds->setSuffix(QStringLiteral(" s"));
    m_seconds->setValue(m_source.unseenInterval.value_or(UnseenReader::kUsual));
    m_seconds->setEnabled(m_source.unseenInterval.has_value());
    m_unseen->setChecked(m_source.unseenInterval.has_value());
    row.addWidget(m_unseen);
    row.addWidget(m_seconds);
}

QPushButton* HistoryWindow::addButton(QHBoxLayout& row, const char* name, const char* caption,
                                      std::function<void()> act)
{
    QPushButton* button = makeButton(QLatin1String(name), QLatin1String(caption));
    connect(button, &QPushButton::clicked, this, std::move(act));
    row.addWidget(button);
    return button;
}

QHBoxLayout* HistoryWindow::makeButtons()
{
    auto* row = new QHBoxLayout;
    addButton(*row, "cmdExportCsv", "&Export CSV...", [this] { exportCsv(); });
    addButton(*row, "cmdPrint", "&Print...", [this] { print(); });
    addButton(*row, "cmdSavePdf", "Sa&ve PDF...", [this] { savePdf(); });
    addButton(*row, "cmdCopyPicture", "&Copy Picture", [this] { copyPicture(); });
    row->addStretch();
    addRecording(*row);
    row->addStretch();
    addButton(*row, "cmdClose", "Close", [this] { close(); });
    return row;
}

void HistoryWindow::connectPlots()
{
    connect(&m_reload, &QTimer::timeout, this, &HistoryWindow::reload);
    connect(m_plots, &HistoryPlots::spanWanted, this, &HistoryWindow::showSpan);
    connect(m_plots, &HistoryPlots::pointed, m_summary, &QLabel::setText);
    connect(m_ductor, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &HistoryWindow::reload);
    connect(&m_source.recorder, &HistoryRecorder::stored, this, &HistoryWindow::follow);
    connect(&m_source.recorder, &HistoryRecorder::told, m_summary, &QLabel::setText);
    connect(m_filter, &QLineEdit::textChanged, this, [this](const QString& text) {
        filterTable(*m_alarms, text);
        filterTable(*m_changes, text);
    });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, m_filter,
            qOverload<>(&QWidget::setFocus));
    for (QTableView* view : {m_alarms, m_changes})
        connect(view, &QTableView::clicked, this, [this, view] { pointAtRow(*view); });
    for (QTableView* view : {m_alarms, m_changes})
        connect(view, &QTableView::activated, this, [this, view] { pointAtRow(*view); });
    connect(m_unseen, &QCheckBox::toggled, this, &HistoryWindow::recordUnseen);
    connect(m_seconds, qOverload<int>(&QSpinBox::valueChanged), this, [this] {
        if (m_unseen->isChecked())
            recordUnseen();
    });
}

} // namespace tambrix
