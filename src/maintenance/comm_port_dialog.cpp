#include "maintenance/comm_port_dialog.h"

#include "controls/forms.h"
#include "controls/named_controls.h"
#include "controls/numeric_entry_field.h"
#include "data/whole_file.h"
#include "link/settings_file.h"

#include <QFileInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tambrix {

namespace {

constexpr int kRenewInterval = 1000; // ms; an adapter that is plugged in shows at once
constexpr std::array kSpeeds = {"9600", "19200"};
constexpr std::array kToolFolders = {"FNX51", "FNX96", "PLS51"};

QString portText(const MachinePort& port)
{
    const QString number =
        port.number ? QStringLiteral("%1: ").arg(*port.number) : QStringLiteral("-: ");
    return number + port.name + (port.description.isEmpty() ? QString() : ", " + port.description);
}

} // namespace

CommPortDialog::CommPortDialog(ProgramState& state, QWidget* parent, PortList ports)
    : QDialog(parent),
      m_state(state),
      m_listPorts(std::move(ports)),
      m_wasOnline(state.gLink.OnlineMode),
      m_save(makeButton(QStringLiteral("cmdSave"), QStringLiteral("&Save"))),
      m_cancel(makeButton(QStringLiteral("cmdCancel"), QStringLiteral("&Cancel")))
{
    setObjectName(QStringLiteral("frmCommPort"));
    setWindowTitle(QStringLiteral("Comm Port Settings"));
    connect(m_save, &QPushButton::clicked, this, &CommPortDialog::save);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    m_cancel->setFocusPolicy(Qt::TabFocus); // giving up needs no valid number
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_save);
    buttons->addWidget(m_cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makePortFrame());
    layout->addWidget(makeSpeedFrame());
    layout->addLayout(buttons);
    load();
    renewPorts();
    startTimer(kRenewInterval);
}

QGroupBox* CommPortDialog::makePortFrame()
{
    QGroupBox* frame = makeFrame(QStringLiteral("fraCommPort"), QStringLiteral("Comm Port"));
    EntryRules rules;
    rules.title = QStringLiteral("Comm Port");
    rules.minimum = kLowestPort;
    rules.maximum = kHighestPort;
    rules.escapeKey = [this] {
        if (m_port->text() ==
            QString::number(m_port->undoValue())) // nothing to undo: Escape gives the dialog up
            reject();
    };
    m_port = new NumericEntryField(m_state.prompts, *m_save, std::move(rules));
    m_port->setNames(QStringLiteral("txtCommPort"), QStringLiteral("updCommPort"));
    m_portList = new QListWidget;
    m_portList->setObjectName(QStringLiteral("lstMachinePorts"));
    m_portList->setAccessibleName(QStringLiteral("Ports on this computer"));
    connect(m_portList, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { choosePort(m_portList->row(item)); });
    connect(m_portList, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { choosePort(m_portList->row(item)); });
    // kept: a control of this name has always been there; it never chose anything and is hidden.
    auto* fixedPort = new QRadioButton(QStringLiteral("Com 4"), frame);
    fixedPort->setObjectName(QStringLiteral("optCommPort"));
    fixedPort->hide();
    auto* number = new QHBoxLayout;
    number->addWidget(m_port->makeCaption(QStringLiteral("lblCommPort"), QStringLiteral("&Port:")));
    number->addWidget(m_port);
    number->addStretch();
    auto* layout = new QVBoxLayout(frame);
    layout->addLayout(number);
    layout->addWidget(new QLabel(QStringLiteral("On this computer now:")));
    layout->addWidget(m_portList);
    return frame;
}

QGroupBox* CommPortDialog::makeSpeedFrame()
{
    QGroupBox* frame = makeFrame(QStringLiteral("fraPortSpeed"), QStringLiteral("Port Speed"));
    auto* layout = new QHBoxLayout(frame);
    for (const int index : {1, 0}) {
        const auto slot = static_cast<std::size_t>(index);
        m_speeds[slot] = new QRadioButton(QLatin1String(kSpeeds[slot]));
        m_speeds[slot]->setObjectName(arrayName("optPortSpeed", index));
        layout->addWidget(m_speeds[slot]);
    }
    layout->addStretch();
    return frame;
}

/// Shows the settings file's port and speed. A file that is missing or empty stays so.
void CommPortDialog::load()
{
    CommSettings settings;
    std::error_code error;
    const auto file = m_state.gLink.CommSettingsFile();
    if (std::filesystem::file_size(file, error) > 0 && !error)
        settings = readOrCreateCommSettings(file, error);
    m_port->setText(QString::number(settings.port));
    m_speeds[settings.speed == kSpeeds[1] ? 1 : 0]->setChecked(true);
}

void CommPortDialog::setUsedInstead(const QString& instead)
{
    if (instead.isEmpty())
        return;
    QLabel* note = makeLabel(
        QStringLiteral("lblNotInUse"),
        QStringLiteral("The port number is not in use: the program uses %1.").arg(instead));
    note->setWordWrap(true);
    static_cast<QVBoxLayout*>(layout())->insertWidget(1, note);
}

void CommPortDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    CenterForm(*this);
}

void CommPortDialog::timerEvent(QTimerEvent* /*event*/)
{
    renewPorts();
}

void CommPortDialog::renewPorts()
{
    auto ports = m_listPorts();
    if (m_portList->count() > 0 && ports == m_ports)
        return;
    m_ports = std::move(ports);
    m_portList->clear();
    for (const MachinePort& port : m_ports) {
        auto* item = new QListWidgetItem(portText(port), m_portList);
        if (!port.number) // has no number to be chosen by
            item->setFlags(Qt::NoItemFlags);
    }
    if (m_ports.empty())
        (new QListWidgetItem(QStringLiteral("No serial port found"), m_portList))
            ->setFlags(Qt::NoItemFlags);
}

void CommPortDialog::choosePort(int row)
{
    const auto index = static_cast<std::size_t>(row);
    if (index >= m_ports.size() || !m_ports[index].number)
        return;
    m_port->endEditing();
    m_port->setText(QString::number(*m_ports[index].number));
}

int CommPortDialog::portNumber() const
{
    return std::clamp(m_port->value(), kLowestPort, kHighestPort);
}

void CommPortDialog::save()
{
    RSComm& link = m_state.gLink;
    if (link.isBusy() || !m_port->finishEditing())
        return;
    m_state.setOnline(false); // closes the port
    if (!writeFiles())
        return;
    if (m_wasOnline)
        m_state.setOnline(true);
    if (!m_wasOnline || link.OnlineMode)
        accept();
}

bool CommPortDialog::writeFiles()
{
    const auto file = m_state.gLink.CommSettingsFile();
    const char* speed = kSpeeds[m_speeds[1]->isChecked() ? 1 : 0];
    std::error_code error;
    writeCommSettings(file, {portNumber(), speed}, error);
    if (error) {
        sayCannotWrite(QFileInfo(file).filePath(), QString::fromLocal8Bit(error.message()));
        return false;
    }
    return std::ranges::all_of(kToolFolders, [this](const char* folder) {
        const QString path = m_state.programFolder.filePath(QLatin1String(folder));
        return !QFileInfo(path).isDir() || writeToolSettings(path);
    });
}

bool CommPortDialog::writeToolSettings(const QString& folder)
{
    const QString file = folder + QStringLiteral("/FENNIX.SFG");
    const auto failed = writeWholeFile(file, QByteArray::number(portNumber() - 1) + "\r\n");
    if (failed)
        sayCannotWrite(file, *failed);
    return !failed;
}

void CommPortDialog::sayCannotWrite(const QString& file, const QString& reason)
{
    const QString text = QStringLiteral("The settings could not be saved in\r\n%1\r\n\r\n%2")
                             .arg(QDir::toNativeSeparators(file), reason);
    m_state.prompts.showMessage(
        {BoxIcon::Critical, BoxButtons::Ok, "Comm Port", text.toStdString()});
}

} // namespace tambrix
