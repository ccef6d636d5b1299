#include "help/about_box.h"

#include "controls/forms.h"
#include "data/version.h"
#include "help/system_info_window.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QVBoxLayout>

namespace tambrix {

namespace {

constexpr int kIconSize = 64;
constexpr int kTextWidth = 420;
constexpr double kNameScale = 1.8;
constexpr int kParagraphGap = 8;

const QString kDescription = QStringLiteral(
    "Set-up utility of the pneumatic ink-ductor color-control system. Edits the controller's "
    "set-up parameters and the color data of 100 labels, shows shift counts, inputs, outputs "
    "and alarms, and keeps complete data sets in set-up files.");
const QString kSupport = QStringLiteral(
    "Technical support: turn to your plant's maintenance department, or to the supplier of the "
    "color-control system. Have ready the version above, the exact text of any message, and "
    "the text that System Info shows.");

QLabel* addText(QVBoxLayout& layout, const char* name, const QString& text)
{
    auto* label = new QLabel(text);
    label->setObjectName(QLatin1String(name));
    label->setWordWrap(true);
    label->setFixedWidth(kTextWidth);
    layout.addWidget(label);
    return label;
}

} // namespace

AboutBox::AboutBox(const ProgramState& state, QWidget* parent) : QDialog(parent), m_state(state)
{
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("About TAMBRIX"));
    auto* icon = new QLabel;
    icon->setPixmap(QApplication::windowIcon().pixmap(kIconSize));
    auto* top = new QHBoxLayout;
    top->addWidget(icon, 0, Qt::AlignTop);
    top->addSpacing(kParagraphGap);
    top->addLayout(makeTexts());

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdAboutOk"));
    auto* info =
        buttons->addButton(QStringLiteral("&System Info..."), QDialogButtonBox::ActionRole);
    info->setObjectName(QStringLiteral("cmdSysInfo"));
    connect(info, &QPushButton::clicked, this, &AboutBox::showSystemInfo);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* whole = new QVBoxLayout(this);
    whole->addLayout(top);
    whole->addSpacing(kParagraphGap);
    whole->addWidget(buttons);
    whole->setSizeConstraint(QLayout::SetFixedSize);
    CenterForm(*this);
}

QLayout* AboutBox::makeTexts()
{
    auto* texts = new QVBoxLayout;
    QLabel* name = addText(*texts, "lblTitle", QStringLiteral("TAMBRIX"));
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * kNameScale);
    large.setBold(true);
    name->setFont(large);
    addText(*texts, "lblVersion", QStringLiteral("Version %1").arg(QLatin1String(kVersionText)));
    texts->addSpacing(kParagraphGap);
    addText(*texts, "lblDescription", kDescription);
    texts->addSpacing(kParagraphGap);
    addText(*texts, "lblSupport", kSupport);
    return texts;
}

void AboutBox::showSystemInfo()
{
    const QString tool = systemInfoTool(registryText);
    if (!tool.isEmpty() && QProcess::startDetached(tool, {}))
        return;
    SystemInfoWindow(systemInformation(m_state), this).exec();
}

} // namespace tambrix
