#include "shell/label_range_dialog.h"

#include "controls/forms.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace tambrix {

namespace {

constexpr std::array kBounds = {"from:", "to:"};
constexpr int kBoundWidth = 60; // a label number has two digits

QPushButton* addButton(QLayout& layout, const char* name, const QString& caption)
{
    auto* button = new QPushButton(caption);
    button->setObjectName(QLatin1String(name));
    layout.addWidget(button);
    return button;
}

} // namespace

LabelRangeDialog::LabelRangeDialog(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmLabelRange"));
    setWindowTitle(QStringLiteral("Label Range"));
    auto* buttons = new QVBoxLayout;
    auto* cancel = addButton(*buttons, "cmdCancel", QStringLiteral("&Cancel"));
    auto* okButton = addButton(*buttons, "cmdOk", QStringLiteral("&Ok"));
    buttons->addStretch();
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(okButton, &QPushButton::clicked, this, &LabelRangeDialog::ok);

    auto* content = new QHBoxLayout(this);
    buildOptions();
    content->addLayout(buttons);
    okButton->setDefault(true);
    okButton->setFocus();
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    CenterForm(*this);
}

void LabelRangeDialog::buildOptions()
{
    auto* options = new QGroupBox(QStringLiteral("Options"));
    options->setObjectName(QStringLiteral("fraOptions"));
    auto* grid = new QGridLayout(options);
    m_optLabels = {new QRadioButton(QStringLiteral("All Labels (0-99)")),
                   new QRadioButton(QStringLiteral("Labels"))};
    for (std::size_t i = 0; i < m_optLabels.size(); ++i) {
        m_optLabels[i]->setObjectName(QStringLiteral("optLabels(%1)").arg(i));
        grid->addWidget(m_optLabels[i], static_cast<int>(i), 0);
    }
    m_optLabels[0]->setChecked(true);
    for (std::size_t i = 0; i < m_txtLabels.size(); ++i) {
        auto* caption = new QLabel(QLatin1String(kBounds[i]));
        caption->setObjectName(QStringLiteral("lblLabels(%1)").arg(i));
        m_txtLabels[i] = new QLineEdit;
        m_txtLabels[i]->setObjectName(QStringLiteral("txtLabels(%1)").arg(i));
        m_txtLabels[i]->setFixedWidth(kBoundWidth);
        m_txtLabels[i]->installEventFilter(this);
        caption->setBuddy(m_txtLabels[i]);
        grid->addWidget(caption, 1, 1 + 2 * static_cast<int>(i));
        grid->addWidget(m_txtLabels[i], 1, 2 + 2 * static_cast<int>(i));
    }
    connect(m_optLabels[1], &QRadioButton::clicked, m_txtLabels[0],
            qOverload<>(&QWidget::setFocus));
    const auto chosen = [this](bool on) {
        if (on && m_optLabels[1]->hasFocus()) // by an arrow key; a bound keeps its focus
            m_txtLabels[0]->setFocus();
    };
    connect(m_optLabels[1], &QRadioButton::toggled, this, chosen, Qt::QueuedConnection);
    layout()->addWidget(options);
}

void LabelRangeDialog::ok()
{
    m_range = m_optLabels[1]->isChecked()
                  ? labelsBetween(m_txtLabels[0]->text(), m_txtLabels[1]->text())
                  : kAllLabels;
    accept();
}

/// The two bounds: a user who goes there means a range of labels, and Enter goes on to the next
/// control instead of closing the dialog.
bool LabelRangeDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn)
        m_optLabels[1]->setChecked(true);
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (enter)
        focusNextChild();
    return enter;
}

} // namespace tambrix
