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

constexpr QSize kSize(760, 620);
constexpr std::array kRows = {"ON Duration (0.1 cans)", "CYCLE Duration (0.1 cans)",
                              "Color Density"};

template <typename Number> QString orUnknown(const std::optional<Number>& number)
{
    return number ? QString::number(*number) : QStringLiteral("?");
}

QString rateText(const std::optional<double>& rate)
{
    return rate ? QString::number(*rate, 'f', 1) : QStringLiteral("?");
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
    resize(kSize.expandedTo(sizeHint()));
    CenterForm(*this);
}

void DuctorView::addValue(QGridLayout& grid, int row, int column, const char* name,
                          const QString& tells)
{
    auto* value = new ValueLabel(QLatin1String(name), tells, QStringLiteral("?"));
    value->setAlignment(Qt::AlignRight);
    setTextSize(*value, TextSize::Value, true);
    grid.addWidget(value, row, column);
    m_values += value;
}

QWidget* DuctorView::makeValues()
{
    QGroupBox* frame = makeFrame(QStringLiteral("fraWhy"), QStringLiteral("Values"));
    frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* grid = new QGridLayout(frame);
    grid->addWidget(makeDimLabel(QStringLiteral("running")), 0, 1, Qt::AlignRight);
    grid->addWidget(makeDimLabel(QStringLiteral("stored")), 0, 2, Qt::AlignRight);
    constexpr std::array kNames = {"lblWhyOn", "lblWhyCycle", "lblWhyDensity"};
    for (int row = 0; row < static_cast<int>(kRows.size()); ++row) {
        const QString caption = QLatin1String(kRows[static_cast<std::size_t>(row)]);
        const char* name = kNames[static_cast<std::size_t>(row)];
        grid->addWidget(new QLabel(caption), row + 1, 0);
        addValue(*grid, row + 1, 1, name, caption + QStringLiteral(", running"));
        addValue(*grid, row + 1, 2, (QByteArray(name) + "Stored").constData(),
                 caption + QStringLiteral(", stored"));
    }
    grid->addWidget(makeDimLabel(QStringLiteral("counted")), 4, 1, Qt::AlignRight);
    grid->addWidget(makeDimLabel(QStringLiteral("expected")), 4, 2, Qt::AlignRight);
    grid->addWidget(new QLabel(QStringLiteral("Cycles a minute, last hour")), 5, 0);
    addValue(*grid, 5, 1, "lblWhyCounted", QStringLiteral("Cycles a minute counted"));
    addValue(*grid, 5, 2, "lblWhyExpected", QStringLiteral("Cycles a minute expected"));
    grid->addWidget(new QLabel(QStringLiteral("Label; feedback faults of the last day")), 6, 0);
    addValue(*grid, 6, 1, "lblWhyLabel", QStringLiteral("Label Number"));
    addValue(*grid, 6, 2, "lblWhyFaults", QStringLiteral("Feedback faults of the last day"));
    grid->setColumnStretch(0, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);
    return frame;
}

void DuctorView::refresh()
{
    showReport(m_read(m_ductor->currentIndex()));
}

void DuctorView::showReport(const DuctorReport& report)
{
    const QStringList texts = {orUnknown(report.runningOn),    orUnknown(report.storedOn),
                               orUnknown(report.runningCycle), orUnknown(report.storedCycle),
                               report.density(true),           report.density(false),
                               rateText(report.counted),       rateText(report.expected),
                               orUnknown(report.label),        QString::number(report.alarms)};
    for (int i = 0; i < texts.size(); ++i)
        m_values[i]->setValue(texts[i]);
    m_findings->setText(findings(report).join(u'\n'));
    showTable(*m_changes, changeTable(report.changes, report.time));
}

} // namespace tambrix
