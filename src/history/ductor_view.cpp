#include "history/ductor_view.h"

#include "controls/forms.h"
#include "controls/named_controls.h"
#include "controls/text_size.h"
#include "controls/value_label.h"
#include "history/history_tables.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace tambrix {

namespace {

constexpr QSize kSize(940, 600);
constexpr int kGap = 24; // px
const QString kUnknown = QStringLiteral("?");

template <typename Number> QString orUnknown(const std::optional<Number>& number)
{
    return number ? QString::number(*number) : kUnknown;
}

QString rateText(const std::optional<double>& rate)
{
    return rate ? QString::number(*rate, 'f', 1) : kUnknown;
}

} // namespace

DuctorView::DuctorView(std::function<DuctorReport(int)> read, int ductor, QWidget* parent)
    : QDialog(parent), m_read(std::move(read)), m_ductor(new QComboBox), m_findings(new QLabel)
{
    setObjectName(QStringLiteral("frmDuctorHistory"));
    setWindowTitle(QStringLiteral("Why This Ink?"));
    auto* layout = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    auto* caption = new QLabel(QStringLiteral("&Ductor:"));
    caption->setBuddy(m_ductor);
    m_ductor->setObjectName(QStringLiteral("cboWhyDuctor"));
    m_ductor->setAccessibleName(QStringLiteral("Ductor"));
    for (int d = 1; d <= kDuctors; ++d)
        m_ductor->addItem(QString::number(d));
    top->addWidget(caption);
    top->addWidget(m_ductor);
    top->addStretch();
    layout->addLayout(top);
    layout->addWidget(makeValues());
    m_findings->setObjectName(QStringLiteral("lblFindings"));
    m_findings->setWordWrap(true);
    m_findings->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    layout->addWidget(m_findings);
    layout->addWidget(new QLabel(QStringLiteral("Changes of the last day:")));
    m_changes = makeHistoryView("tblWhyChanges", QStringLiteral("Changes of the last day"));
    layout->addWidget(m_changes, 1);
    QPushButton* close = makeButton(QStringLiteral("cmdClose"), QStringLiteral("Close"));
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    layout->addWidget(close, 0, Qt::AlignRight);
    m_ductor->setCurrentIndex(ductor);
    connect(m_ductor, qOverload<int>(&QComboBox::currentIndexChanged), this, &DuctorView::refresh);
    refresh();
    resizeInto(*this, kSize.expandedTo(sizeHint()));
    CenterForm(*this);
}

/// `cells`: the columns and rows that it takes.
void DuctorView::addValue(QGridLayout& grid, QRect cells, const char* name, const QString& tells)
{
    auto* value = new ValueLabel(QLatin1String(name), tells, kUnknown);
    value->setAlignment(Qt::AlignRight);
    setTextSize(*value, TextSize::Value, true);
    grid.addWidget(value, cells.y(), cells.x(), cells.height(), cells.width());
    m_values += value;
}

/// A caption in `cell` (column, row), and two values beside it that stand below two heads.
void DuctorView::addPair(QGridLayout& grid, QPoint cell, const char* name, const QString& caption,
                         const std::array<const char*, 2>& heads)
{
    grid.addWidget(new QLabel(caption), cell.y(), cell.x());
    for (int i = 0; i < 2; ++i) {
        const QString head = QLatin1String(heads[static_cast<std::size_t>(i)]);
        addValue(grid, {cell.x() + 1 + i, cell.y(), 1, 1}, qPrintable(QLatin1String(name) + head),
                 caption + QStringLiteral(", ") + head);
    }
}

/// The same with one value over the whole width.
void DuctorView::addLine(QGridLayout& grid, QPoint cell, const char* name, const QString& caption)
{
    grid.addWidget(new QLabel(caption), cell.y(), cell.x());
    addValue(grid, {cell.x() + 1, cell.y(), 2, 1}, name, caption);
}

QWidget* DuctorView::makeValues()
{
    constexpr std::array kDurations = {"running", "stored"};
    constexpr std::array kCycles = {"counted", "expected"};
    constexpr int kRight = 4; // column, after a gap
    QGroupBox* frame = makeFrame(QStringLiteral("fraWhy"), QStringLiteral("Values"));
    frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* grid = new QGridLayout(frame);
    for (int i = 0; i < 2; ++i) {
        const auto at = static_cast<std::size_t>(i);
        grid->addWidget(makeDimLabel(QLatin1String(kDurations[at])), 0, 1 + i, Qt::AlignRight);
        grid->addWidget(makeDimLabel(QLatin1String(kCycles[at])), 0, kRight + 1 + i,
                        Qt::AlignRight);
        grid->setColumnStretch(1 + i, 1);
        grid->setColumnStretch(kRight + 1 + i, 2);
    }
    grid->setColumnMinimumWidth(kRight - 1, kGap);
    addPair(*grid, {0, 1}, "lblWhyOn", QStringLiteral("ON Duration (0.1 cans)"), kDurations);
    addPair(*grid, {0, 2}, "lblWhyCycle", QStringLiteral("CYCLE Duration (0.1 cans)"), kDurations);
    addPair(*grid, {0, 3}, "lblWhyDensity", QStringLiteral("Color Density"), kDurations);
    addPair(*grid, {kRight, 1}, "lblWhyCycles", QStringLiteral("Cycles a minute, last hour"),
            kCycles);
    addLine(*grid, {kRight, 2}, "lblWhyLabel", QStringLiteral("Label"));
    addLine(*grid, {kRight, 3}, "lblWhyFaults", QStringLiteral("Feedback faults, last day"));
    return frame;
}

void DuctorView::refresh()
{
    showReport(m_read(m_ductor->currentIndex()));
}

void DuctorView::showReport(const DuctorReport& report)
{
    const QString faults = report.alarms == 0 ? QStringLiteral("none")
                                              : QStringLiteral("%1, in all %2")
                                                    .arg(report.alarms)
                                                    .arg(durationText(report.alarmTime));
    const QStringList texts = {orUnknown(report.runningOn),
                               orUnknown(report.storedOn),
                               orUnknown(report.runningCycle),
                               orUnknown(report.storedCycle),
                               report.density(true),
                               report.density(false),
                               rateText(report.counted),
                               rateText(report.expected),
                               report.label.value_or(kUnknown),
                               faults};
    for (int i = 0; i < texts.size(); ++i)
        m_values[i]->setValue(texts[i]);
    m_findings->setText(findings(report).join(u'\n'));
    showTable(*m_changes, changeTable(report.changes, report.time));
}

} // namespace tambrix
