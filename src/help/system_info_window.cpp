#include "help/system_info_window.h"

#include "controls/forms.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tambrix {

namespace {

constexpr QSize kSize(660, 480);

QTableWidget* makeTable(const std::vector<SystemFact>& facts)
{
    auto* table = new QTableWidget(static_cast<int>(facts.size()), 2);
    table->setObjectName(QStringLiteral("tblSysInfo"));
    table->setAccessibleName(QStringLiteral("System information"));
    table->horizontalHeader()->hide();
    table->verticalHeader()->hide();
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setTabKeyNavigation(false);
    for (int row = 0; row < table->rowCount(); ++row) {
        const SystemFact& fact = facts[static_cast<std::size_t>(row)];
        table->setItem(row, 0, new QTableWidgetItem(fact.name));
        table->setItem(row, 1, new QTableWidgetItem(fact.value));
        table->item(row, 1)->setToolTip(fact.value);
    }
    table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    table->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    table->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    return table;
}

QString asText(const std::vector<SystemFact>& facts)
{
    QString text;
    for (const SystemFact& fact : facts)
        text += fact.name + QStringLiteral(": ") + fact.value + u'\n';
    return text;
}

} // namespace

SystemInfoWindow::SystemInfoWindow(const std::vector<SystemFact>& facts, QWidget* parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("frmSysInfo"));
    setWindowTitle(QStringLiteral("System Info"));
    resize(kSize);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setObjectName(QStringLiteral("cmdSysInfoClose"));
    auto* copy = buttons->addButton(QStringLiteral("C&opy"), QDialogButtonBox::ActionRole);
    copy->setObjectName(QStringLiteral("cmdSysInfoCopy"));
    connect(copy, &QPushButton::clicked, this,
            [text = asText(facts)] { QGuiApplication::clipboard()->setText(text); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeTable(facts), 1);
    layout->addWidget(buttons);
    CenterForm(*this);
}

} // namespace tambrix
