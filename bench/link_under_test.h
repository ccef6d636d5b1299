#pragma once

#include "link/rs_comm.h"
#include "platform/qt_serial_port.h"
#include "platform/steady_clock.h"
#include "shell/patient_port.h"
#include "shell/prompts.h"

#include <QTemporaryDir>

#include <functional>
#include <vector>

namespace tambrix::bench {

/// Nobody sits at a benchmark: every box goes to stderr and is cancelled.
class AbsentOperator : public Prompts
{
public:
    BoxAnswer showMessage(const OperatorBox& box) override;
    std::optional<QString> askText(const QString& title, const QString& prompt,
                                   const QString& preset) override;
    std::optional<QString> askOpenFile(const FileQuestion& question) override;
    std::optional<QString> askSaveFile(const FileQuestion& question) override;
};

/// A program folder of its own whose settings file asks for `baud`.
class BenchFolder
{
public:
    explicit BenchFolder(int baud);
    std::filesystem::path path() const { return m_folder.path().toStdString(); }

private:
    QTemporaryDir m_folder;
};

/// A port that notes every byte that the PC sends, and when.
class RecordingPort : public PatientPort
{
public:
    RecordingPort(SerialPort& port, Clock& clock) : PatientPort(port, clock), m_clock(clock) {}

    void writeByte(std::uint8_t byte) override
    {
        bytes.push_back(byte);
        times.push_back(m_clock.now());
        PatientPort::writeByte(byte);
    }

    std::vector<std::uint8_t> bytes;
    std::vector<Duration> times;

private:
    Clock& m_clock;
};

/// What a number of exchanges were and how long each took.
struct Exchanges
{
    std::vector<std::uint8_t> bytes; ///< as sent
    std::vector<double> seconds;     ///< from one byte's sending to the next one's

    double total() const;
};

/// The program's link over the program's serial port, on line. Throws std::runtime_error when the
/// board does not answer.
class LinkUnderTest
{
public:
    LinkUnderTest(const QString& device, int baud);

    /// The exchanges that `work` makes. Throws std::runtime_error when one of them fails.
    Exchanges record(const std::function<void(RSComm&)>& work);

private:
    void requireIntact() const;

    BenchFolder m_folder;
    SteadyClock m_clock;
    QtSerialPort m_serial;
    RecordingPort m_port;
    AbsentOperator m_operator;
    RSComm m_comm;
};

/// The same bytes sent by a plain write, poll and read loop on an open `device`.
Exchanges plainExchanges(int device, const std::vector<std::uint8_t>& bytes);

} // namespace tambrix::bench
