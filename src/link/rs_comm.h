#pragma once

#include "link/byte_exchange.h"
#include "link/limit_switch.h"
#include "link/link_observers.h"
#include "link/link_state.h"
#include "link/program_files.h"
#include "link/program_transfer.h"
#include "link/register_access.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tambrix {

/// The target link: the one object that owns the serial port and speaks the controller's byte
/// protocol. Failures are reported to the operator here; callers test `CommError` and
/// `OnlineMode` instead of return codes.
///
/// Not re-entrant: a message box inside an exchange runs the event loop, and whoever is woken by
/// it must test `isBusy()` and wait for his next turn. A call that comes in all the same is
/// refused: it reads "0" and sends nothing.
class RSComm : public LinkFlags
{
public:
    /// `programFolder` holds the Support folder with the fault text files. The settings file lies
    /// there as well, or in `settingsFolder` where one is given.
    RSComm(std::filesystem::path programFolder, Clock& clock, Operator& person,
           const std::filesystem::path& settingsFolder = {});
    ~RSComm();

    RSComm(const RSComm&) = delete;
    RSComm& operator=(const RSComm&) = delete;

    /// Configures `CommObj` from the settings file, opens it and calls the board's attention
    /// (0xFF). Sets `OnlineMode` to whether it answered. A port that cannot be configured or
    /// opened is shown in the "Comm Port Error" box.
    void OpenRSComm(SerialPort& CommObj);

    /// Sends 0xFF, so that the board leaves its mode, and closes the port. After a communication
    /// error the port is closed without another try. Clears `OnlineMode`.
    void CloseRSComm();

    /// Reads one register; decimal text, "0" or "1" for a bit, and "0" when the read failed.
    std::string RSRead(std::string_view addr);

    /// Writes one register from decimal text. A byte that does not come back as sent makes the
    /// whole value be written once more; there is no third try and no result.
    void RSWrite(std::string_view addr, std::string_view DataValue);

    /// Whether the last `RSRead` brought the board's answer: tells a failed read from a zero
    /// where `CommError` does not (the line was disturbed, but the board answers again).
    bool readSucceeded() const { return m_readSucceeded; }

    /// Whether the board has sent back every byte of the last `RSWrite` as it should. If not, the
    /// value was refused, or nobody knows what the register holds.
    bool writeSucceeded() const { return m_writeSucceeded; }

    /// Whether a link operation is under way, its message boxes included.
    bool isBusy() const { return m_busy; }

    /// Whether the last `OpenRSComm` ended in the "Comm Port Error" box.
    bool portError() const { return m_portError; }

    /// `observer` is told what passes over the line from now on, until it is removed. It is not
    /// owned.
    void addObserver(LinkObserver& observer) { m_observers.add(observer); }
    void removeObserver(LinkObserver& observer) { m_observers.remove(observer); }

    /// Path of RSPort.cfg.
    std::filesystem::path CommSettingsFile() const { return m_settingsFile; }

    std::string TargetboardName(std::int16_t BoardType) const;
    std::string LCFBoardIndex(std::int16_t BoardType) const;

    /// Firmware revision of the board (B8159), or -1 without any exchange when not on line.
    std::int16_t FirmwareRev();

    /// Current fault code of the board (B8176); 0 is no fault, and also a failed read.
    std::int16_t FaultCode();

    /// "Fault Code (1FH): " and the code's text from Support/FaultErrCodes.txt.
    std::string FaultDescription(std::int16_t FltCode) const;

    std::string EquateAdd(std::string_view addr, std::int16_t TargetBoardIndex) const;
    bool ValidAdd(std::string_view addr, std::int16_t TargetBoardIndex) const;
    std::int16_t Dec2Octal(std::int16_t DecNum) const;
    std::int16_t Octal2Dec(std::int16_t OctNum) const;

    /// Records the file set of a controller program and checks it; see `ProgramFiles`.
    void DownloadFile(const std::filesystem::path& programFile);
    /// Records the file set without checks.
    void UploadFile(const std::filesystem::path& programFile);
    /// Whether the last `DownloadFile` found a set that may be loaded.
    bool ValidProgram() const { return m_program.ValidProgram(); }
    const ProgramFiles& program() const { return m_program; }

    std::string MarkHex2HEX(std::string_view text) const;
    std::string HEX2MarkHEX(std::string_view text) const;

    /// Loads the program of the last `DownloadFile` into the board, after asking the operator.
    /// Reports how it ended. `pendingEvents` is called while it runs, at least every 50 ms as
    /// long as the board answers; the link is busy for all that time.
    void DumpProgram(const PendingEvents& pendingEvents = {});
    /// Whether the last `DumpProgram` has loaded the whole program and its identity.
    bool programLoaded() const { return m_transfer.complete(); }
    bool InProgramMode() const { return m_transfer.progress().InProgramMode; }
    int recordsSent() const { return m_transfer.progress().recordsSent; }
    int records() const { return m_transfer.progress().records; }
    /// Says that no image file was created; see `ProgramTransfer`.
    void UploadProgram();
    bool InUploadMode() const { return m_transfer.progress().InUploadMode; }
    bool ReadingIdent() const { return m_transfer.progress().ReadingIdent; }
    bool WritingIdent() const { return m_transfer.progress().WritingIdent; }
    /// Load address of the record under way, four hexadecimal digits and "H"; " " before any.
    std::string CurrentProgramAdd() const { return m_transfer.progress().CurrentProgramAdd; }

    /// Limit-switch parameters as decimal text; "-9999" when the read failed.
    std::string PLSScaleFactor();
    std::string PLSOffset();
    std::string PLSPos();
    std::string PLSRpm();

    /// Limit-switch operations; each returns whether it was carried out. See `LimitSwitch`.
    bool SingleSetpoint(std::int16_t Chan, std::int16_t OnSetpoint, std::int16_t OffSetpoint,
                        bool ClearChan);
    bool PulseTrain(std::int16_t Chan, std::int16_t ON_Division, std::int16_t OFF_Division,
                    std::int16_t START_Division);
    bool ClearPLSChan(std::int16_t Chan);
    bool RecallChannel(std::int16_t Chan);
    std::int16_t ChannelRecallPos() const { return m_limitSwitch.recall().pos; }
    std::int16_t ChannelRecallState() const { return m_limitSwitch.recall().state; }
    bool SetPLSOffset(std::int16_t Position);
    bool PLSConfigDownload(const PLSConfig& CfgParam, std::int16_t ScaleFactor);
    PLSConfig PLSConfigUpload();

private:
    class Call;
    class ObservedOperator;

    std::optional<PortFault> ConfigurePort(SerialPort& port);
    std::optional<PortFault> openPort(SerialPort& port);
    std::int64_t readNumber(std::string_view addr);
    std::string parameterText(LimitSwitch::Parameter parameter);
    template <typename Operation> auto onSwitch(Operation operation);
    std::filesystem::path supportFile(const char* name) const;

    std::filesystem::path m_programFolder;
    std::filesystem::path m_settingsFile;
    LinkObservers m_observers;
    std::unique_ptr<Operator> m_operator; ///< tells the observers of every box
    ByteExchange m_exchange;
    RegisterAccess m_registers;
    ProgramFiles m_program;
    ProgramTransfer m_transfer;
    LimitSwitch m_limitSwitch;
    bool m_portError = false;
    bool m_readSucceeded = false;
    bool m_writeSucceeded = false;
    bool m_busy = false;
};

} // namespace tambrix
