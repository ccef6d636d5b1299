#include "link/rs_comm.h"

#include "link/board_names.h"
#include "link/board_registers.h"
#include "link/fault_text.h"
#include "link/mark_hex.h"
#include "link/point_names.h"
#include "link/settings_file.h"
#include "link/text.h"

#include <utility>

namespace tambrix {

namespace {

constexpr const char* kSettingsFile = "RSPort.cfg";

} // namespace

/// Marks the link as busy for the length of one public operation.
class RSComm::Call
{
public:
    explicit Call(RSComm& link) : m_link(link), m_entered(!std::exchange(link.m_busy, true)) {}
    ~Call()
    {
        if (!m_entered)
            return;
        m_link.m_exchange.rest();
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

/// Shows the link's boxes, and tells the observers of them.
class RSComm::ObservedOperator : public Operator
{
public:
    ObservedOperator(Operator& person, LinkObservers& observers)
        : m_person(person), m_observers(observers)
    {
    }

    BoxAnswer showMessage(const OperatorBox& box) override
    {
        m_observers.tell(&LinkObserver::boxShown, box);
        return m_person.showMessage(box);
    }

private:
    Operator& m_person;
    LinkObservers& m_observers;
};

RSComm::RSComm(std::filesystem::path programFolder, Clock& clock, Operator& person,
               const std::filesystem::path& settingsFolder)
    : m_programFolder(std::move(programFolder)),
      m_settingsFile(settingsFolder.empty() ? supportFile(kSettingsFile)
                                            : settingsFolder / kSettingsFile),
      m_operator(std::make_unique<ObservedOperator>(person, m_observers)),
      m_exchange(*this, clock, *m_operator, m_observers),
      m_registers(m_exchange, *m_operator, m_observers),
      m_program(*m_operator),
      m_transfer(*this, m_exchange, m_registers, clock, *m_operator),
      m_limitSwitch(*this, m_exchange, clock, *m_operator)
{
}

RSComm::~RSComm() = default;

void RSComm::OpenRSComm(SerialPort& CommObj)
{
    const Call call(*this);
    if (!call)
        return;
    const auto fault = openPort(CommObj);
    m_portError = fault.has_value();
    if (!fault)
        return;
    m_exchange.closePort();
    CommError = true;
    OnlineMode = false;
    m_operator->showMessage({BoxIcon::Critical, BoxButtons::Ok, "Comm Port Error",
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
    m_observers.tell(&LinkObserver::linkOpened, OnlineMode);
    return std::nullopt;
}

std::optional<PortFault> RSComm::ConfigurePort(SerialPort& port)
{
    std::error_code error;
    const CommSettings settings = readOrCreateCommSettings(CommSettingsFile(), error);
    if (error) {
        return PortFault{error.value(), utf8Path(CommSettingsFile()), error.message()};
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
    m_writeSucceeded = call && m_registers.writeWithRetry(addr, DataValue);
}

std::filesystem::path RSComm::supportFile(const char* name) const
{
    return m_programFolder / "Support" / name;
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
    return OnlineMode && !CommError
               ? static_cast<std::int16_t>(readNumber(byteRegister(board_registers::kFirmwareRev)))
               : std::int16_t{-1};
}

std::int16_t RSComm::FaultCode()
{
    // kept: a read that failed is no fault; callers look at readSucceeded() and CommError.
    return static_cast<std::int16_t>(readNumber(byteRegister(board_registers::kCurrentFault)));
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

void RSComm::DownloadFile(const std::filesystem::path& programFile)
{
    const Call call(*this);
    if (call)
        m_program.DownloadFile(programFile);
}

void RSComm::UploadFile(const std::filesystem::path& programFile)
{
    const Call call(*this);
    if (call)
        m_program.UploadFile(programFile);
}

std::string RSComm::MarkHex2HEX(std::string_view text) const
{
    return tambrix::MarkHex2HEX(text);
}

std::string RSComm::HEX2MarkHEX(std::string_view text) const
{
    return tambrix::HEX2MarkHEX(text);
}

void RSComm::DumpProgram(const PendingEvents& pendingEvents)
{
    const Call call(*this);
    if (call)
        m_transfer.DumpProgram(m_program, pendingEvents);
}

void RSComm::UploadProgram()
{
    const Call call(*this);
    if (call)
        m_transfer.UploadProgram();
}

/// Carries out one limit-switch operation; a neutral value comes from a call that comes in while
/// the link is busy, or while it is broken.
template <typename Operation> auto RSComm::onSwitch(Operation operation)
{
    using Result = decltype(operation(m_limitSwitch));
    const Call call(*this);
    return call && !CommError ? operation(m_limitSwitch) : Result{};
}

std::string RSComm::parameterText(LimitSwitch::Parameter parameter)
{
    constexpr int kReadFailed = -9999;
    const auto value = onSwitch([=](LimitSwitch& pls) { return pls.read(parameter); });
    return std::to_string(value.value_or(kReadFailed));
}

std::string RSComm::PLSScaleFactor()
{
    return parameterText(LimitSwitch::Parameter::ScaleFactor);
}

std::string RSComm::PLSOffset()
{
    return parameterText(LimitSwitch::Parameter::Offset);
}

std::string RSComm::PLSPos()
{
    return parameterText(LimitSwitch::Parameter::Pos);
}

std::string RSComm::PLSRpm()
{
    return parameterText(LimitSwitch::Parameter::Rpm);
}

bool RSComm::SingleSetpoint(std::int16_t Chan, std::int16_t OnSetpoint, std::int16_t OffSetpoint,
                            bool ClearChan)
{
    return onSwitch([=](LimitSwitch& pls) {
        return pls.SingleSetpoint(Chan, OnSetpoint, OffSetpoint, ClearChan);
    });
}

bool RSComm::PulseTrain(std::int16_t Chan, std::int16_t ON_Division, std::int16_t OFF_Division,
                        std::int16_t START_Division)
{
    return onSwitch([=](LimitSwitch& pls) {
        return pls.PulseTrain(Chan, ON_Division, OFF_Division, START_Division);
    });
}

bool RSComm::ClearPLSChan(std::int16_t Chan)
{
    return onSwitch([=](LimitSwitch& pls) { return pls.ClearPLSChan(Chan); });
}

bool RSComm::RecallChannel(std::int16_t Chan)
{
    const Call call(*this);
    return call && m_limitSwitch.RecallChannel(Chan);
}

bool RSComm::SetPLSOffset(std::int16_t Position)
{
    return onSwitch([=](LimitSwitch& pls) { return pls.SetPLSOffset(Position); });
}

bool RSComm::PLSConfigDownload(const PLSConfig& CfgParam, std::int16_t ScaleFactor)
{
    return onSwitch([&](LimitSwitch& pls) { return pls.PLSConfigDownload(CfgParam, ScaleFactor); });
}

PLSConfig RSComm::PLSConfigUpload()
{
    const Call call(*this);
    return call ? m_limitSwitch.PLSConfigUpload() : PLSConfig{};
}

} // namespace tambrix
