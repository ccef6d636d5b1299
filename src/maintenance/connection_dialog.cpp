#include "maintenance/connection_dialog.h"

#include "controls/forms.h"
#include "controls/named_controls.h"
#include "link/settings_file.h"

#include <QComboBox>
#include <QDir>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>

namespace tambrix {

namespace {

constexpr int kWidth = 520;
constexpr int kIndent = 24;
constexpr int kUsualTcpPort = 4001;
const QString kTitle = QStringLiteral("Connection");

/// Fields below the option that they belong to.
QFormLayout* addFields(QVBoxLayout& layout)
{
    auto* fields = new QFormLayout;
    fields->setContentsMargins(kIndent, 0, 0, 0);
    layout.addLayout(fields);
    return fields;
}

QLabel* makeNote(const char* name, const QString& text)
{
    QLabel* note = makeLabel(QLatin1String(name), text);
    note->setWordWrap(true);
    return note;
}

} // namespace

ConnectionDialog::ConnectionDialog(ProgramState& state, ConnectionChoice choice, QWidget* parent,
                                   const PortList& ports)
    : QDialog(parent), m_state(state), m_choice(std::move(choice))
{
    setObjectName(QStringLiteral("frmConnection"));
    setWindowTitle(kTitle);
    setMinimumWidth(kWidth);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeChoices());
    if (!m_choice.overriddenBy.isEmpty())
        layout->addWidget(makeNote(
            "lblOverridden", QStringLiteral("The program was started with %1, which goes before "
                                            "this choice. It counts from the next start without.")
                                 .arg(m_choice.overriddenBy)));
    layout->addWidget(makeButtons());
    listPorts(ports());
    load();
    const int width = std::max(kWidth, sizeHint().width());
    resize(width, layout->totalHeightForWidth(width)); // the notes wrap
    CenterForm(*this);
}

QRadioButton* ConnectionDialog::makeOption(const char* name, const QString& caption)
{
    auto* option = new QRadioButton(caption);
    option->setObjectName(QLatin1String(name));
    connect(option, &QRadioButton::toggled, this, &ConnectionDialog::enableFields);
    return option;
}

QWidget* ConnectionDialog::makeChoices()
{
    QGroupBox* frame =
        makeFrame(QStringLiteral("fraConnection"), QStringLiteral("The Controller Is Reached"));
    m_byNumber =
        makeOption("optByNumber", QStringLiteral("by the port &number of Edit > Comm Port"));
    m_byDevice = makeOption("optByDevice", QStringLiteral("by a serial &device of this computer"));
    m_byServer = makeOption("optByServer", QStringLiteral("through a serial &server (TCP, raw)"));
    m_device = new QComboBox;
    m_device->setObjectName(QStringLiteral("cmbDevice"));
    m_device->setAccessibleName(QStringLiteral("Serial device"));
    m_device->setEditable(true);
    m_device->lineEdit()->setAccessibleName(m_device->accessibleName());
    m_host = new QLineEdit;
    m_host->setObjectName(QStringLiteral("txtHost"));
    m_host->setAccessibleName(QStringLiteral("Name or address of the serial server"));
    m_tcpPort = new QSpinBox;
    m_tcpPort->setObjectName(QStringLiteral("txtTcpPort"));
    m_tcpPort->setAccessibleName(QStringLiteral("TCP port of the serial server, 1 to 65535"));
    m_tcpPort->setRange(1, 65535);
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(m_byNumber);
    layout->addWidget(m_byDevice);
    addFields(*layout)->addRow(QStringLiteral("D&evice:"), m_device);
    layout->addWidget(m_byServer);
    QFormLayout* server = addFields(*layout);
    server->addRow(QStringLiteral("&Host:"), m_host);
    server->addRow(QStringLiteral("TCP &port:"), m_tcpPort);
    QLabel* note =
        makeNote("lblServerNote",
                 QStringLiteral("Speed and parity are set at the server: the board's 9600 or "
                                "19200, 8 data bits, no parity, 1 stop bit."));
    note->setContentsMargins(kIndent, 0, 0, 0);
    layout->addWidget(note);
    return frame;
}

QWidget* ConnectionDialog::makeButtons()
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    QPushButton* save = makeButton(QStringLiteral("cmdSave"), QStringLiteral("&Save"));
    QPushButton* cancel = makeButton(QStringLiteral("cmdCancel"), QStringLiteral("&Cancel"));
    save->setDefault(true);
    connect(save, &QPushButton::clicked, this, &ConnectionDialog::save);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    layout->addWidget(save);
    layout->addWidget(cancel);
    return row;
}

void ConnectionDialog::listPorts(const std::vector<MachinePort>& ports)
{
    for (const MachinePort& port : ports) {
        const QString device = port.location.isEmpty() ? port.name : port.location;
        m_device->addItem(device);
        m_device->setItemData(m_device->count() - 1, port.description, Qt::ToolTipRole);
    }
}

void ConnectionDialog::load()
{
    const Connection kept = readConnection(m_choice.file);
    m_device->setEditText(kept.device);
    m_host->setText(kept.host);
    m_tcpPort->setValue(kept.tcpPort == 0 ? kUsualTcpPort : kept.tcpPort);
    QRadioButton* const options[] = {m_byNumber, m_byDevice, m_byServer};
    options[static_cast<int>(kept.kind)]->setChecked(true);
    enableFields();
}

void ConnectionDialog::enableFields()
{
    m_device->setEnabled(m_byDevice->isChecked());
    m_host->setEnabled(m_byServer->isChecked());
    m_tcpPort->setEnabled(m_byServer->isChecked());
}

/// What the fields say, or nothing after a word about what is missing.
std::optional<Connection> ConnectionDialog::chosen()
{
    if (m_byNumber->isChecked())
        return Connection{};
    if (m_byDevice->isChecked()) {
        const auto device = connectionFromText(m_device->currentText());
        if (device && device->kind == Connection::Kind::Device)
            return device;
        refuse(*m_device, QStringLiteral("Enter the serial device's name."));
        return std::nullopt;
    }
    Connection server{Connection::Kind::Server,
                      {},
                      m_host->text().trimmed(),
                      static_cast<quint16>(m_tcpPort->value())};
    if (connectionFromText(connectionText(server)) == server)
        return server;
    refuse(*m_host, QStringLiteral("Enter the serial server's name or address."));
    return std::nullopt;
}

void ConnectionDialog::refuse(QWidget& field, const QString& text)
{
    m_state.prompts.showMessage(
        {BoxIcon::Information, BoxButtons::Ok, kTitle.toStdString(), text.toStdString()});
    field.setFocus();
}

void ConnectionDialog::save()
{
    if (m_state.gLink.isBusy())
        return;
    const auto connection = chosen();
    if (!connection)
        return;
    if (const auto reason = writeConnection(m_choice.file, *connection)) {
        m_state.prompts.showMessage(
            {BoxIcon::Critical, BoxButtons::Ok, kTitle.toStdString(),
             QStringLiteral("The connection could not be saved in\n%1\n\n%2")
                 .arg(QDir::toNativeSeparators(m_choice.file), *reason)
                 .toStdString()});
        return;
    }
    const bool wasOnline = m_state.gLink.OnlineMode;
    if (m_choice.overriddenBy.isEmpty()) {
        if (wasOnline)
            changeMode(false);
        m_choice.use(*connection);
        if (wasOnline && !changeMode(true))
            return; // the link has said why; another choice may do
    }
    accept();
}

bool ConnectionDialog::changeMode(bool online)
{
    m_state.setOnline(online);
    return m_state.gLink.OnlineMode == online;
}

} // namespace tambrix
