#pragma once

#include "platform/connection.h"
#include "platform/machine_ports.h"
#include "shell/program_state.h"

#include <QDialog>

#include <functional>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QSpinBox;

namespace tambrix {

/// Where the choice is kept, and what becomes of it.
struct ConnectionChoice
{
    QString file;
    QString overriddenBy; ///< what the program was started with and uses instead; empty: nothing
    std::function<void(const Connection&)> use; ///< from the next opening on
};

/// Chooses how the controller is reached: by Comm Port's number, by a serial device's name, or
/// through a serial server in the network.
class ConnectionDialog : public QDialog
{
    Q_OBJECT

public:
    using PortList = std::function<std::vector<MachinePort>()>;

    ConnectionDialog(ProgramState& state, ConnectionChoice choice, QWidget* parent = nullptr,
                     const PortList& ports = machinePorts);

private:
    QWidget* makeChoices();
    QWidget* makeButtons();
    QRadioButton* makeOption(const char* name, const QString& caption);
    void listPorts(const std::vector<MachinePort>& ports);
    void load();
    void enableFields();
    std::optional<Connection> chosen();
    void refuse(QWidget& field, const QString& text);
    void save();
    bool changeMode(bool online);

    ProgramState& m_state;
    ConnectionChoice m_choice;
    QRadioButton* m_byNumber = nullptr;
    QRadioButton* m_byDevice = nullptr;
    QRadioButton* m_byServer = nullptr;
    QComboBox* m_device = nullptr;
    QLineEdit* m_host = nullptr;
    QSpinBox* m_tcpPort = nullptr;
};

} // namespace tambrix
