#pragma once

#include "platform/machine_ports.h"
#include "shell/program_state.h"

#include <QDialog>

#include <array>
#include <functional>
#include <vector>

class QGroupBox;
class QListWidget;
class QPushButton;
class QRadioButton;
class QTimerEvent;

namespace tambrix {

class NumericEntryField;

/// Chooses the serial port and its speed, names the ports that are on the machine, saves the
/// choice, also for the programming tools installed beside the program, and opens the port again.
class CommPortDialog : public QDialog
{
    Q_OBJECT

public:
    using PortList = std::function<std::vector<MachinePort>()>;

    explicit CommPortDialog(ProgramState& state, QWidget* parent = nullptr,
                            PortList ports = machinePorts);

    /// Says that the number is not in use, and what is instead. Empty: it is.
    void setUsedInstead(const QString& instead);

protected:
    void showEvent(QShowEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    QGroupBox* makePortFrame();
    QGroupBox* makeSpeedFrame();
    void load();
    void renewPorts();
    void choosePort(int row);
    void save();
    bool writeFiles();
    bool writeToolSettings(const QString& folder);
    void sayCannotWrite(const QString& file, const QString& reason);
    int portNumber() const;

    ProgramState& m_state;
    PortList m_listPorts;
    std::vector<MachinePort> m_ports;
    bool m_wasOnline;
    QPushButton* m_save;
    QPushButton* m_cancel;
    NumericEntryField* m_port = nullptr;
    QListWidget* m_portList = nullptr;
    std::array<QRadioButton*, 2> m_speeds{}; ///< 9600, 19200
};

} // namespace tambrix
