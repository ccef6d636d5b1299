#include "maintenance/line_check_dialog.h"

#include "controls/forms.h"
#include "controls/named_controls.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tambrix {

namespace {

constexpr QSize kSize(520, 280);

QLabel* makeParagraph(const char* name, const QString& text)
{
    QLabel* paragraph = makeLabel(QLatin1String(name), text);
    paragraph->setWordWrap(true);
    paragraph->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return paragraph;
}

} // namespace

LineCheckDialog::LineCheckDialog(std::function<LineFinding()> check, QWidget* parent)
    : QDialog(parent),
      m_check(std::move(check)),
      m_run(makeButton(QStringLiteral("cmdCheckLine"), QStringLiteral("&Check"))),
      m_what(makeParagraph("lblLineFinding", QStringLiteral("Not checked yet."))),
      m_toDo(makeParagraph("lblLineToDo", QStringLiteral("Press Check.")))
{
    setObjectName(QStringLiteral("frmLineCheck"));
    setWindowTitle(QStringLiteral("Check the Line"));
    resize(kSize);
    QFont large = m_what->font();
    large.setPointSizeF(large.pointSizeF() * 1.25);
    large.setBold(true);
    m_what->setFont(large);
    connect(m_run, &QPushButton::clicked, this, &LineCheckDialog::run);
    m_run->setDefault(true);
    QPushButton* close = makeButton(QStringLiteral("cmdClose"), QStringLiteral("Close"));
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_run);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeParagraph(
        "lblLineCheck", QStringLiteral("Tells what is wrong between this computer and the board. "
                                       "Only attention and reads are sent: the board's data stay "
                                       "as they are.")));
    layout->addWidget(m_what);
    layout->addWidget(m_toDo);
    layout->addStretch();
    layout->addLayout(buttons);
    CenterForm(*this);
}

void LineCheckDialog::run()
{
    m_run->setEnabled(false);
    m_what->setText(QStringLiteral("Checking ..."));
    m_toDo->clear();
    repaint();
    const LineFinding finding = m_check();
    m_what->setText(finding.what);
    m_toDo->setText(finding.toDo);
    m_run->setEnabled(true);
    m_run->setFocus();
    QAccessibleEvent told(m_what, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&told);
}

} // namespace tambrix
