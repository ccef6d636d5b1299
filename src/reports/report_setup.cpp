#include "reports/report_setup.h"

#include "controls/forms.h"
#include "data/label_range.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tambrix {

ReportSetup::ReportSetup(ProgramState& state, const ReportActions& actions, QWidget* parent)
    : QDialog(parent), m_state(state)
{
    setObjectName(QStringLiteral("frmReportSetup"));
    setWindowTitle(QStringLiteral("Report Setup"));
    auto* settings = new QVBoxLayout;
    settings->addWidget(makeParts());
    settings->addWidget(makeRange());
    settings->addStretch();
    auto* whole = new QHBoxLayout(this);
    whole->addLayout(settings, 1);
    whole->addWidget(makeButtons(actions));
    showWhatIsPossible();
    CenterForm(*this);
}

QWidget* ReportSetup::makeButtons(const ReportActions& actions)
{
    auto* buttons = new QDialogButtonBox(Qt::Vertical);
    const auto add = [&](const QString& caption, const char* name,
                         QDialogButtonBox::ButtonRole role) {
        auto* button = buttons->addButton(caption, role);
        button->setObjectName(QLatin1String(name));
        return button;
    };
    const auto addAction = [&](const QString& caption, const char* name,
                               const std::function<void()>& action) {
        QPushButton* button = add(caption, name, QDialogButtonBox::ActionRole);
        connect(button, &QPushButton::clicked, this, [this, action] {
            if (keepSettings())
                action();
        });
        m_needParts.push_back(button);
    };
    m_needParts.push_back(add(QStringLiteral("&OK"), "cmdReportOk", QDialogButtonBox::AcceptRole));
    add(QStringLiteral("&Cancel"), "cmdReportCancel", QDialogButtonBox::RejectRole);
    addAction(QStringLiteral("Pre&view..."), "cmdReportPreview", actions.preview);
    addAction(QStringLiteral("Save as P&DF..."), "cmdReportPdf", actions.savePdf);
    addAction(QStringLiteral("&Print..."), "cmdReportPrint", actions.print);
    m_needParts.front()->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &ReportSetup::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ReportSetup::reject);
    return buttons;
}

QGroupBox* ReportSetup::makeParts()
{
    auto* parts = new QGroupBox(QStringLiteral("Print"));
    parts->setObjectName(QStringLiteral("fraReportParts"));
    auto* layout = new QVBoxLayout(parts);
    const auto add = [&](const QString& caption, const char* name, bool checked) {
        auto* box = new QCheckBox(caption);
        box->setObjectName(QLatin1String(name));
        box->setChecked(checked);
        connect(box, &QCheckBox::toggled, this, &ReportSetup::showWhatIsPossible);
        layout->addWidget(box);
        return box;
    };
    const ReportSettings& report = m_state.report;
    m_setupData = add(QStringLiteral("&Set-up Parameters"), "chkReport(0)", report.printSetupData);
    m_shiftData = add(QStringLiteral("S&hift Data Counts"), "chkReport(1)", report.printShiftData);
    m_labelData = add(QStringLiteral("Label Set-&up Data"), "chkReport(2)", report.printLabelData);
    return parts;
}

QGroupBox* ReportSetup::makeRange()
{
    m_range = new QGroupBox(QStringLiteral("Options"));
    m_range->setObjectName(QStringLiteral("fraReportLabels"));
    m_allLabels = new QRadioButton(QStringLiteral("&All Labels (0-99)"));
    m_allLabels->setObjectName(QStringLiteral("optReportLabels(0)"));
    m_someLabels = new QRadioButton(QStringLiteral("&Labels"));
    m_someLabels->setObjectName(QStringLiteral("optReportLabels(1)"));
    m_first = makeBound("txtReportLabels(0)", m_state.report.firstLabel);
    m_last = makeBound("txtReportLabels(1)", m_state.report.lastLabel);
    (m_state.report.allLabels ? m_allLabels : m_someLabels)->setChecked(true);
    connect(m_someLabels, &QRadioButton::clicked, m_first, qOverload<>(&QWidget::setFocus));

    auto* bounds = new QHBoxLayout;
    bounds->addWidget(m_someLabels);
    const auto addBound = [&](const QString& caption, QLineEdit* field) {
        auto* label = new QLabel(caption);
        label->setBuddy(field);
        bounds->addWidget(label);
        bounds->addWidget(field);
    };
    addBound(QStringLiteral("&from:"), m_first);
    addBound(QStringLiteral("&to:"), m_last);
    bounds->addStretch();
    auto* layout = new QVBoxLayout(m_range);
    layout->addWidget(m_allLabels);
    layout->addLayout(bounds);
    return m_range;
}

QLineEdit* ReportSetup::makeBound(const char* name, int value)
{
    auto* field = new QLineEdit(QString::number(value));
    field->setObjectName(QLatin1String(name));
    field->setMaximumWidth(fontMetrics().horizontalAdvance(QLatin1String("00000000")));
    field->installEventFilter(this);
    return field;
}

/// A bound that gets the focus means a range; Enter in it goes on to the next control.
bool ReportSetup::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        m_someLabels->setChecked(true);
        SelectAllText(*qobject_cast<QLineEdit*>(watched));
    }
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter)
            return focusNextChild();
    }
    return QDialog::eventFilter(watched, event);
}

void ReportSetup::showWhatIsPossible()
{
    m_range->setEnabled(m_labelData->isChecked());
    const bool something =
        m_setupData->isChecked() || m_shiftData->isChecked() || m_labelData->isChecked();
    for (QPushButton* button : m_needParts)
        button->setEnabled(something);
}

bool ReportSetup::keepSettings()
{
    ReportSettings kept{m_labelData->isChecked(), m_shiftData->isChecked(),
                        m_setupData->isChecked(), m_allLabels->isChecked()};
    if (!kept.allLabels) {
        const LabelRange range = labelsBetween(m_first->text(), m_last->text());
        if (range.cancelled) {
            m_state.prompts.showMessage({BoxIcon::Information, BoxButtons::Ok, "Report Setup",
                                         "Only a Number Between 0 and 99 can be Entered"});
            m_first->setFocus();
            return false;
        }
        kept.firstLabel = range.first;
        kept.lastLabel = range.last;
        m_first->setText(QString::number(range.first)); // show what the rules made of it
        m_last->setText(QString::number(range.last));
    }
    m_state.report = kept;
    return true;
}

void ReportSetup::accept()
{
    if (keepSettings())
        QDialog::accept();
}

} // namespace tambrix
