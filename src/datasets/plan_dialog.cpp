#include "datasets/plan_dialog.h"

#include "controls/calm_style.h"
#include "controls/named_controls.h"
#include "controls/value_label.h"
#include "data/typed_number.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tambrix {

namespace {

constexpr QSize kSize(560, 420);
constexpr double kMostPercent = 1000;
const QString kNoLabels = QStringLiteral("Which labels? For example 7, 9-12.");

QLineEdit* addField(QFormLayout& form, const char* name, const QString& caption,
                    const QString& preset)
{
    auto* field = new QLineEdit(preset);
    field->setObjectName(QLatin1String(name));
    field->setAccessibleName(spokenText(caption));
    form.addRow(caption, field);
    return field;
}

QString asList(const std::vector<int>& numbers)
{
    QStringList texts;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        std::size_t last = i;
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1)
            ++last;
        texts += last == i ? QString::number(numbers[i])
                           : QStringLiteral("%1-%2").arg(numbers[i]).arg(numbers[last]);
        i = last;
    }
    return texts.join(QStringLiteral(", "));
}

/// Ductors as a person lists them; nothing when they are none.
std::optional<DuctorSet> ductorsFromText(const QString& text)
{
    const auto numbers = labelsFromText(text);
    DuctorSet ductors;
    for (const int number : numbers.value_or(std::vector<int>())) {
        if (number < 1 || number > kDuctors)
            return std::nullopt;
        ductors.set(static_cast<std::size_t>(number - 1));
    }
    return numbers ? std::optional(ductors) : std::nullopt;
}

QString listOf(const DuctorSet& ductors)
{
    std::vector<int> numbers;
    for (int d = 0; d < kDuctors; ++d) {
        if (ductors.test(static_cast<std::size_t>(d)))
            numbers.push_back(d + 1);
    }
    return asList(numbers);
}

QString changeText(const DataChange& change)
{
    const std::size_t count = change.values.size() + change.names.size();
    return count == 0   ? QStringLiteral("Nothing will change.")
           : count == 1 ? QStringLiteral("1 value will change.")
                        : QStringLiteral("%1 values will change.").arg(count);
}

} // namespace

PlanDialog::PlanDialog(const QString& title, const QString& whatIsWrong, QWidget* parent)
    : QDialog(parent),
      m_whatIsWrong(whatIsWrong),
      m_top(new QVBoxLayout),
      m_lblPlan(makeLabel(QStringLiteral("lblPlan"), {})),
      m_lstObjections(new QListWidget),
      m_cmdOk(makeButton(QStringLiteral("cmdOk"), QStringLiteral("OK"))),
      m_cmdCancel(makeButton(QStringLiteral("cmdCancel"), QStringLiteral("Cancel")))
{
    setObjectName(QStringLiteral("frmPlan"));
    setWindowTitle(title);
    m_lblPlan->setWordWrap(true);
    m_lstObjections->setObjectName(QStringLiteral("lstObjections"));
    m_lstObjections->setAccessibleName(QStringLiteral("What the rules forbid or cut"));
    m_lstObjections->setUniformItemSizes(true);
    setPrimary(*m_cmdOk, true);
    m_cmdOk->setDefault(true);
    connect(m_cmdOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cmdOk);
    buttons->addWidget(m_cmdCancel);
    auto* content = new QVBoxLayout(this);
    content->addLayout(m_top);
    content->addWidget(m_lblPlan);
    content->addWidget(m_lstObjections, 1);
    content->addLayout(buttons);
    resize(kSize);
}

void PlanDialog::setForm(QFormLayout* form, std::vector<QWidget*> fields)
{
    m_top->addLayout(form);
    fields.front()->setFocus();
    fields.insert(fields.end(), {m_lstObjections, m_cmdOk, m_cmdCancel});
    setTabSequence(fields);
}

void PlanDialog::setPlan(EditPlan plan)
{
    m_plan = std::move(plan);
    QString text = changeText(m_plan.change);
    if (!m_plan.objections.isEmpty())
        text += u' ' + m_whatIsWrong.arg(m_plan.objections.size());
    m_lblPlan->setText(text);
    m_lstObjections->clear();
    m_lstObjections->addItems(m_plan.objections);
    m_cmdOk->setEnabled(!m_plan.change.isEmpty());
}

void PlanDialog::showNothing(const QString& reason)
{
    setPlan({});
    m_lblPlan->setText(reason);
}

ScaleDialog::ScaleDialog(const SetupDataRecord& record, const std::vector<int>& labels,
                         const DuctorSet& ductors, QWidget* parent)
    : PlanDialog(QStringLiteral("Scale ON Durations"), QStringLiteral("The limits cut %1:"),
                 parent),
      m_record(record)
{
    auto* form = new QFormLayout;
    m_txtPercent =
        addField(*form, "txtPercent", QStringLiteral("&Percent of now:"), QStringLiteral("100"));
    m_txtLabels = addField(*form, "txtLabels", QStringLiteral("&Labels:"), asList(labels));
    m_txtDuctors = addField(*form, "txtDuctors", QStringLiteral("&Ductors:"), listOf(ductors));
    setForm(form, {m_txtPercent, m_txtLabels, m_txtDuctors});
    for (QLineEdit* field : {m_txtPercent, m_txtLabels, m_txtDuctors})
        connect(field, &QLineEdit::textChanged, this, &ScaleDialog::reckon);
    m_txtPercent->selectAll();
    reckon();
}

void ScaleDialog::reckon()
{
    const auto percent = numericText(m_txtPercent->text());
    const auto labels = labelsFromText(m_txtLabels->text());
    const auto ductors = ductorsFromText(m_txtDuctors->text());
    if (!percent || *percent < 0 || *percent > kMostPercent)
        return showNothing(QStringLiteral("How many percent? 0 to 1000."));
    if (!labels)
        return showNothing(kNoLabels);
    if (!ductors)
        return showNothing(QStringLiteral("Which ductors? For example 1, 3-5."));
    setPlan(planScale(m_record, *labels, *ductors, *percent));
}

CopyLabelDialog::CopyLabelDialog(const SetupDataRecord& record, int from, QWidget* parent)
    : PlanDialog(QStringLiteral("Copy Label %1 to").arg(from),
                 QStringLiteral("%1 are not allowed and stay as they are:"), parent),
      m_record(record),
      m_from(from)
{
    auto* form = new QFormLayout;
    m_txtLabels = addField(*form, "txtLabels", QStringLiteral("&To labels:"), {});
    setForm(form, {m_txtLabels});
    connect(m_txtLabels, &QLineEdit::textChanged, this, &CopyLabelDialog::reckon);
    reckon();
}

void CopyLabelDialog::reckon()
{
    const auto labels = labelsFromText(m_txtLabels->text());
    if (labels)
        setPlan(planCopy(m_record, m_from, *labels));
    else
        showNothing(kNoLabels);
}

} // namespace tambrix
