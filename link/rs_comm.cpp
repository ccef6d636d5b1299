#include "link/rs_comm.h"

#include "link/board_names.h"
#include "link/fault_text.h"
#include "link/point_names.h"
#include "link/settings_file.h"

#include <utility>

namespace tambrix {

/// Marks the link as busy for the length of one public operation.
class RSComm::Call
{
public:
    explicit Call(RSComm& link) : m_link(link), m_entered(!std::exchange(link.m_busy, true)) {}
    ~Call()
    {
        if (m_entered)
            m_link.m_busy = false;
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    /// False for a call that came in while another was under way.
    explicit operator bool() const { return m_entered; }

private:
    RSComm& m_link;
    bool m_entered;
};

RSComm::RSComm(std::filesystem::path programFolder, Clock& clock, Operator& person)
    : m_programFolder(std::move(programFolder)),
      m_operator(person),
      m_exchange(*this, clock, person),
      m_registers(m_exchange, person)
{
}

void RSComm::OpenRSComm(SerialPort& CommObj)
{
    const Call call(*this);
    if (!call)
        return;
    const auto fault = openPort(CommObj);
    m_portError = fault.has_value();
    if (!fault)
        return;
    CommError = true;
    OnlineMode = false;
    m_operator.showMessage({BoxIcon::Critical, BoxButtons::Ok, "Comm Port Error",
                            "Error Number = " + std::to_string(fault->number) +
                                "\r\nError Source = " + fault->source + "\r\n\r\n" +
                                fault->description});
}

std::optional<PortFault> RSComm::openPort(SerialPort& port)
{
    m_exchange.usePort(port);
    if (auto fault = ConfigurePort(port))
        return fault;
    if (auto fault = port.open())
        return fault;
    m_exchange.portOpened();
    m_exchange.callAttention(Waiting::Keep);
    OnlineMode = !CommError;
    return std::nullopt;
}

std::optional<PortFault> RSComm::ConfigurePort(SerialPort& port)
{
    std::error_code error;
    const CommSettings settings = readOrCreateCommSettings(CommSettingsFile(), error);
    if (error) {
        const auto name = CommSettingsFile().u8string();
        return PortFault{error.value(), std::string(name.begin(), name.end()), error.message()};
    }
    m_exchange.closePort();
    return port.configure(settings.port, settings.speed + ",n,8,1");
}

void RSComm::CloseRSComm()
{
    const Call call(*this);
    if (!call)
        return;
    if (m_exchange.isPortOpen() && !CommError)
        m_exchange.callAttention(Waiting::Keep);
    m_exchange.closePort();
    OnlineMode = false;
}

std::int64_t RSComm::readNumber(std::string_view addr)
{
    const Call call(*this);
    const auto number = call ? m_registers.ReadRegister(addr) : std::nullopt;
    m_readSucceeded = number.has_value();
    return number.value_or(0);
}

std::string RSComm::RSRead(std::string_view addr)
{
    return std::to_string(readNumber(addr));
}

void RSComm::RSWrite(std::string_view addr, std::string_view DataValue)
{
    const Call call(*this);
    m_writeSucceeded = call && m_registers.WriteRegister(addr, DataValue);
    if (call && m_registers.writeVerifyFailed())
        m_writeSucceeded = m_registers.WriteRegister(addr, DataValue);
}

std::filesystem::path RSComm::supportFile(const char* name) const
{
    return m_programFolder / "Support" / name;
}

std::filesystem::path RSComm::CommSettingsFile() const
{
    return supportFile("RSPort.cfg");
}

std::string RSComm::TargetboardName(std::int16_t BoardType) const
{
    return tambrix::TargetboardName(BoardType);
}

std::string RSComm::LCFBoardIndex(std::int16_t BoardType) const
{
    return tambrix::LCFBoardIndex(BoardType);
}

std::int16_t RSComm::FirmwareRev()
{
    return OnlineMode && !CommError ? static_cast<std::int16_t>(readNumber("B8159"))
                                    : std::int16_t{-1};
}

std::int16_t RSComm::FaultCode()
{
    return static_cast<std::int16_t>(readNumber("B8176"));
}

std::string RSComm::FaultDescription(std::int16_t FltCode) const
{
    return faultDescription(FltCode, supportFile("FaultErrCodes.txt"));
}

std::string RSComm::EquateAdd(std::string_view addr, std::int16_t TargetBoardIndex) const
{
    return tambrix::EquateAdd(addr, TargetBoardIndex);
}

bool RSComm::ValidAdd(std::string_view addr, std::int16_t TargetBoardIndex) const
{
    return tambrix::ValidAdd(addr, TargetBoardIndex);
}

std::int16_t RSComm::Dec2Octal(std::int16_t DecNum) const
{
    return tambrix::Dec2Octal(DecNum);
}

std::int16_t RSComm::Octal2Dec(std::int16_t OctNum) const
{
    return tambrix::Octal2Dec(OctNum);
}

} // namespace tambrix
