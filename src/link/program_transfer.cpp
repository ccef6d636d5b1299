#include "link/program_transfer.h"

#include "link/board_registers.h"
#include "link/lenient_number.h"
#include "link/text.h"

#include <algorithm>
#include <string_view>

namespace tambrix {

using namespace std::chrono_literals;
using namespace board_registers;

namespace {

constexpr std::uint8_t kLoadCommand = 0x03;
constexpr Duration kAcknowledgeWait = 1s;
constexpr Duration kRequestPause = 100ms; ///< the board stops its program
constexpr Duration kRestartPause = 2s;    ///< the board starts the new one
constexpr Duration kPauseStep = 20ms;

constexpr int kRequestValue = 86;

constexpr const char* kTitle = "Program Download";
constexpr const char* kDumpTitle = "Program Dump";
constexpr const char* kConfigTitle = "Program Config Download";
constexpr const char* kHalted = "Program Download Halted!";

int choice(int setting, int forOne, int forTwo, int otherwise)
{
    if (setting == 1)
        return forOne;
    return setting == 2 ? forTwo : otherwise;
}

std::string faultText(const HexFault& fault)
{
    const std::string place = fault.line > 0 ? "Line " + std::to_string(fault.line) + ": " : "";
    return std::string(kHalted) + "\r\n\r\n" + place + fault.reason;
}

} // namespace

ProgramTransfer::ProgramTransfer(LinkFlags& flags, ByteExchange& exchange,
                                 RegisterAccess& registers, Clock& clock, Operator& person)
    : m_flags(flags),
      m_exchange(exchange),
      m_registers(registers),
      m_clock(clock),
      m_operator(person)
{
}

void ProgramTransfer::DumpProgram(const ProgramFiles& files, const PendingEvents& pendingEvents)
{
    m_complete = false;
    if (!m_flags.OnlineMode) {
        say(BoxIcon::Information, kTitle,
            "Program is Currently OFFLINE\r\n\r\nSwitch to ONLINE MODE to Continue.");
        return;
    }
    m_pendingEvents = pendingEvents;
    const Outcome outcome = transfer(files);
    m_complete = outcome == Outcome::Complete;
    if (m_complete)
        say(BoxIcon::Information, kTitle, "Program Download Complete!");
    else if (outcome == Outcome::NotComplete)
        say(BoxIcon::Warning, kTitle, "Program Download Not Complete!");
    m_progress = {};
    m_pendingEvents = {};
}

void ProgramTransfer::UploadProgram()
{
    m_progress.InUploadMode = true;
    say(BoxIcon::Warning, "Program Upload", "HEX file not created.");
    m_progress = {};
}

ProgramTransfer::Outcome ProgramTransfer::transfer(const ProgramFiles& files)
{
    if (!files.ValidProgram())
        return halted(kTitle, std::string(kHalted) + "\r\n\r\nThere is no valid program file.");
    m_progress.ReadingIdent = true;
    const auto inBoard = identityInBoard();
    m_progress.ReadingIdent = false;
    if (!inBoard)
        return Outcome::NotComplete;
    if (!confirmed(files.identity(), *inBoard))
        return halted(kTitle, kHalted);
    const HexImage image = readHexImage(files.imagePath());
    if (image.fault)
        return halted(kDumpTitle, faultText(*image.fault));
    return load(files, image);
}

std::optional<ProgramIdentity> ProgramTransfer::identityInBoard()
{
    ProgramIdentity identity;
    identity.name.clear();
    for (int address = kProgramName; address <= kProgramRevision; ++address) {
        servePendingEvents();
        auto value = m_registers.ReadRegister(byteRegister(address));
        if (!value && !m_flags.CommError) // the line was disturbed, but the board is there
            value = m_registers.ReadRegister(byteRegister(address));
        if (!value)
            return std::nullopt;
        if (address < kProgramChecksum)
            identity.name += static_cast<char>(*value);
        else
            (address == kProgramChecksum ? identity.checksum : identity.revision) =
                std::to_string(*value);
    }
    return identity;
}

bool ProgramTransfer::confirmed(const ProgramIdentity& onDisk, const ProgramIdentity& inBoard)
{
    const auto line = [](const char* what, const std::string& disk, const std::string& board) {
        return what + ("\t" + printable(disk)) + "\t" + printable(board) + "\r\n";
    };
    const std::string text = line("", "On Disk", "In Board") + "\r\n" +
                             line("  Program Ident: ", onDisk.name, inBoard.name) +
                             line("  Program Revision: ", onDisk.revision, inBoard.revision) +
                             line("  Program Checksum: ", onDisk.checksum, inBoard.checksum) +
                             "\r\nDo You Wish to Continue?";
    const std::string title = std::string(kTitle) + " - [" + printable(onDisk.name) + "]";
    return m_operator.showMessage({BoxIcon::Question, BoxButtons::YesNo, title, text}) ==
           BoxAnswer::Yes;
}

ProgramTransfer::Outcome ProgramTransfer::load(const ProgramFiles& files, const HexImage& image)
{
    m_progress.InProgramMode = true;
    if (!requestProgramMode())
        return Outcome::NotComplete;
    if (files.hasConfiguration() && !writeConfiguration(files.configuration())) {
        say(BoxIcon::Warning, kConfigTitle, "Could Not Set Program Configuration in PLC!");
        return Outcome::NotComplete;
    }
    if (!m_exchange.EnterLinkMode(LinkMode::ProgramLoad, kLoadCommand))
        return Outcome::NotComplete;
    const Outcome sent = sendRecords(image);
    if (sent != Outcome::Complete)
        return sent;
    leaveProgramMode();
    pause(kRestartPause);
    if (m_flags.CommError)
        return Outcome::NotComplete;
    if (writeIdentity(files))
        return Outcome::Complete;
    say(BoxIcon::Warning, kTitle, "Could Not Send Program Ident and Revision to PLC!");
    return Outcome::NotComplete;
}

bool ProgramTransfer::requestProgramMode()
{
    if (!writeByte(kProgramModeRequest, kRequestValue) || !writeByte(kCurrentFault, 0))
        return false;
    pause(kRequestPause);
    m_exchange.callAttention(Waiting::Discard);
    return !m_flags.CommError;
}

bool ProgramTransfer::writeConfiguration(const ProgramConfiguration& configuration)
{
    return writeByte(kConfigurationC, choice(configuration.c, 5, 10, 20)) &&
           writeByte(kConfigurationB, configuration.b) &&
           writeByte(kConfigurationA, choice(configuration.a, 3, 5, 12));
}

ProgramTransfer::Outcome ProgramTransfer::sendRecords(const HexImage& image)
{
    m_progress.records = static_cast<int>(image.records.size());
    m_progress.recordsSent = 0;
    for (const HexRecord& record : image.records) {
        m_progress.CurrentProgramAdd = hexText(record.address, 4) + "H";
        servePendingEvents();
        const bool stored = acknowledged(record);
        if (m_flags.CommError)
            return Outcome::NotComplete;
        if (!stored) {
            m_exchange.abandonFrame();
            return halted(kTitle, "Checksum Error, Program Download Halted!");
        }
        ++m_progress.recordsSent;
    }
    return Outcome::Complete;
}

bool ProgramTransfer::acknowledged(const HexRecord& record)
{
    std::uint16_t sum = 0;
    const auto send = [&](int value, ByteUse use, Waiting waiting) {
        const auto byte = static_cast<std::uint8_t>(value);
        m_exchange.ExchangeByte(byte, {use, LinkMode::ProgramLoad, record.address}, Await::Nothing,
                                waiting);
        sum = static_cast<std::uint16_t>(sum + byte);
    };
    send(static_cast<int>(record.data.size()), ByteUse::RecordLength, Waiting::Discard);
    send(record.address >> 8, ByteUse::AddressHigh, Waiting::Keep);
    send(record.address & 0xFF, ByteUse::AddressLow, Waiting::Keep);
    for (const std::uint8_t byte : record.data)
        send(byte, ByteUse::Data, Waiting::Keep);
    const auto expected = static_cast<std::uint8_t>(sum & 0xFF);
    const ByteMeaning answer{ByteUse::RecordSum, LinkMode::ProgramLoad, record.address, expected};
    return m_exchange.awaitByte(answer, kAcknowledgeWait, m_pendingEvents) == expected;
}

void ProgramTransfer::leaveProgramMode()
{
    const int reply = m_exchange.callAttention(Waiting::Discard);
    if (reply != kAcknowledge && !m_flags.CommError)
        say(BoxIcon::Warning, kTitle, "PLC did not Exit Program Mode!");
}

bool ProgramTransfer::writeIdentity(const ProgramFiles& files)
{
    if (!files.identityKnown())
        return false;
    m_progress.WritingIdent = true;
    std::string name = files.identity().name;
    name.resize(kProgramNameLength, ' ');
    bool written = true;
    for (std::size_t i = 0; written && i < kProgramNameLength; ++i)
        written =
            writeByte(kProgramName + static_cast<int>(i), static_cast<unsigned char>(name[i]));
    return written && writeByte(kProgramChecksum, leadingDecimal(files.identity().checksum)) &&
           writeByte(kProgramRevision, leadingDecimal(files.identity().revision));
}

bool ProgramTransfer::writeByte(int address, int value)
{
    servePendingEvents();
    return m_registers.writeWithRetry(byteRegister(address), std::to_string(value));
}

/// Waits with the window alive.
void ProgramTransfer::pause(Duration span)
{
    const Duration end = m_clock.now() + span;
    for (Duration left = span; left > Duration::zero(); left = end - m_clock.now()) {
        servePendingEvents();
        m_clock.pause(std::min(left, kPauseStep));
    }
}

void ProgramTransfer::servePendingEvents()
{
    if (m_pendingEvents)
        m_pendingEvents();
}

ProgramTransfer::Outcome ProgramTransfer::halted(const char* title, const std::string& text)
{
    say(BoxIcon::Warning, title, text);
    return Outcome::Halted;
}

void ProgramTransfer::say(BoxIcon icon, const char* title, const std::string& text)
{
    m_operator.showMessage({icon, BoxButtons::Ok, title, text});
}

} // namespace tambrix
