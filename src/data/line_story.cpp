#include "data/line_story.h"

#include "data/processor_registers.h"
#include "data/setup_data.h"
#include "link/byte_exchange.h"
#include "link/register_value.h"

#include <unordered_map>

namespace tambrix {

namespace {

/// Bytes of a program or of the limit switch that make one entry.
constexpr std::uint32_t kBytesTogether = 16;

std::unordered_map<std::uint16_t, char> makeRegisterLetters()
{
    std::unordered_map<std::uint16_t, char> letters;
    const auto note = [&letters](std::string_view name) {
        RegisterAddress address;
        ParseAddress(name, address);
        letters[static_cast<std::uint16_t>(address.RegAddress)] = address.RegLetter;
    };
    for (const std::string& name : defaultSetupData({}).Address)
        note(name);
    for (const Register& known :
         {reg::kMachineSpeed, reg::kPasscode, reg::kOnResponse, reg::kOffResponse, reg::kOutputs,
          reg::kAnalogInput0, reg::kAnalogInput1, reg::kUnusedWord, reg::kResolverPosition,
          reg::kResolverPeriod, reg::kResolverScale, reg::kResolverOffset})
        note(known.address);
    for (int ductor = 0; ductor < kDuctors; ++ductor)
        note(addressOf(reg::kWorkingCycle, ductor));
    return letters;
}

/// How wide the program's own registers are; whatever it does not know is read byte by byte.
char registerLetterAt(std::uint16_t address)
{
    static const auto kLetters = makeRegisterLetters();
    const auto found = kLetters.find(address);
    return found == kLetters.end() ? 'B' : found->second;
}

QString byteText(int byte)
{
    return QStringLiteral("%1").arg(byte, 2, 16, QLatin1Char('0')).toUpper();
}

QString modeText(std::uint16_t command)
{
    switch (command) {
    case 1:
        return QStringLiteral("read mode");
    case 2:
        return QStringLiteral("write mode");
    case 3:
        return QStringLiteral("program mode");
    default:
        return QStringLiteral("mode ") + byteText(command);
    }
}

QString registerText(const LineEntry& entry)
{
    const QString verb =
        entry.kind == LineEntry::Kind::Write ? QStringLiteral("write ") : QStringLiteral("read ");
    if (entry.registerLetter == 0)
        return verb + QStringLiteral("a register");
    const QString name = verb + registerName(entry);
    if (entry.secret)
        return name + QStringLiteral(" = ****");
    return entry.value < 0 ? name : name + QStringLiteral(" = ") + QString::number(entry.value);
}

} // namespace

QString registerName(const LineEntry& entry)
{
    return entry.registerLetter == 0
               ? QString()
               : QChar::fromLatin1(entry.registerLetter) + QString::number(entry.address);
}

QString meaning(const LineEntry& entry)
{
    switch (entry.kind) {
    case LineEntry::Kind::Attention:
        return QStringLiteral("attention");
    case LineEntry::Kind::Mode:
        return modeText(entry.address);
    case LineEntry::Kind::Read:
    case LineEntry::Kind::Write:
        return registerText(entry);
    case LineEntry::Kind::Record:
        return QStringLiteral("program record");
    case LineEntry::Kind::Other:
        break;
    }
    return entry.trouble == LineTrouble::Unasked ? QStringLiteral("byte from the board")
                                                 : QStringLiteral("bytes");
}

QString troubleText(const LineEntry& entry)
{
    switch (entry.trouble) {
    case LineTrouble::NoAnswer:
        return QStringLiteral("no answer: cable, power of the board, or speed");
    case LineTrouble::WrongAnswer:
        if (entry.found < 0 || entry.wanted < 0)
            return QStringLiteral("a wrong answer: the line is disturbed");
        return QStringLiteral("answered %1 instead of %2: the line is disturbed")
            .arg(byteText(entry.found), byteText(entry.wanted));
    case LineTrouble::Unasked:
        return QStringLiteral("nobody asked for it: late, doubled, or noise");
    case LineTrouble::BrokenOff:
        return QStringLiteral("the register's other bytes did not follow");
    case LineTrouble::None:
        break;
    }
    return {};
}

bool LineStory::follow(const LineTrace& trace)
{
    const std::uint64_t before = m_next;
    const std::uint64_t forgotten = m_forgotten;
    if (m_next == 0 || m_next < trace.begin()) { // at an overrun what stands between is not known
        m_open.reset();
        m_frames = trace.framesBefore();
        m_next = trace.begin();
    }
    for (; m_next != trace.end(); ++m_next)
        take(m_next, trace.at(m_next));
    for (; !m_entries.empty() && m_entries.front().first < trace.begin(); ++m_forgotten)
        m_entries.pop_front();
    return m_next != before || m_forgotten != forgotten;
}

void LineStory::take(std::uint64_t number, const LineExchange& exchange)
{
    const LineRole role = m_frames.take(exchange);
    switch (role) {
    case LineRole::AddressHigh:
        m_frameStart = number;
        [[fallthrough]];
    case LineRole::AddressLow:
    case LineRole::Data:
        takeFrameByte(number, exchange, role);
        return;
    case LineRole::Resend:
        takeResend();
        return;
    default:
        takeOther(number, exchange, role);
    }
}

LineEntry& LineStory::add(std::uint64_t number, LineEntry::Kind kind)
{
    closeRegister();
    LineEntry entry;
    entry.first = number;
    entry.count = 1;
    entry.kind = kind;
    m_entries.push_back(entry);
    return m_entries.back();
}

void LineStory::takeFrameByte(std::uint64_t number, const LineExchange& exchange, LineRole role)
{
    const bool broken = !m_frames.answeredWell();
    const bool ends =
        role == LineRole::Data || (role == LineRole::AddressLow && !m_frames.writing());
    if (!broken && !ends)
        return;
    const bool follows = m_open && m_open->entry.address + m_open->have == m_frames.address() &&
                         (m_open->entry.kind == LineEntry::Kind::Write) == m_frames.writing();
    if (!follows && (role != LineRole::AddressHigh || !m_open)) {
        closeRegister();
        openRegister();
        if (role == LineRole::AddressHigh) // half an address names no register
            m_open->entry.registerLetter = 0;
    }
    LineEntry& entry = m_open->entry;
    entry.count = static_cast<std::uint32_t>(number - entry.first + 1);
    if (broken) {
        entry.trouble = exchange.in == kNoByte ? LineTrouble::NoAnswer : LineTrouble::WrongAnswer;
        entry.wanted = exchange.out;
        entry.found = exchange.in;
        m_entries.push_back(entry);
        m_open.reset();
        return;
    }
    takeRegisterByte(exchange);
}

void LineStory::openRegister()
{
    OpenRegister opened;
    opened.entry.first = m_frameStart;
    opened.entry.kind = m_frames.writing() ? LineEntry::Kind::Write : LineEntry::Kind::Read;
    opened.entry.address = m_frames.address();
    opened.entry.registerLetter = registerLetterAt(m_frames.address());
    m_open = opened;
}

void LineStory::takeRegisterByte(const LineExchange& exchange)
{
    LineEntry& entry = m_open->entry;
    entry.secret = entry.secret || exchange.in == kSecretByte;
    m_open->bytes[m_open->have++] = exchange.in;
    if (m_open->have < registerWidth(entry.registerLetter))
        return;
    ValueBytes bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(m_open->bytes[i]);
    RegisterAddress address;
    address.RegLetter = entry.registerLetter;
    if (!entry.secret)
        entry.value = composeValue(address, bytes);
    m_entries.push_back(entry);
    m_open.reset();
}

void LineStory::closeRegister()
{
    if (!m_open)
        return;
    m_open->entry.trouble = LineTrouble::BrokenOff;
    m_entries.push_back(m_open->entry);
    m_open.reset();
}

/// Belongs to what stayed without an answer.
void LineStory::takeResend()
{
    if (m_entries.empty())
        return;
    LineEntry& entry = m_entries.back();
    ++entry.count;
    ++entry.resends;
}

void LineStory::takeOther(std::uint64_t number, const LineExchange& exchange, LineRole role)
{
    const bool record = role == LineRole::Record;
    const auto kind = role == LineRole::Attention ? LineEntry::Kind::Attention
                      : role == LineRole::Mode    ? LineEntry::Kind::Mode
                      : record                    ? LineEntry::Kind::Record
                                                  : LineEntry::Kind::Other;
    const bool well = m_frames.answeredWell();
    const bool together = role == LineRole::Record || role == LineRole::Other;
    if (well && together && !m_open && !m_entries.empty() && m_entries.back().kind == kind &&
        m_entries.back().trouble == LineTrouble::None && m_entries.back().count < kBytesTogether) {
        ++m_entries.back().count;
        return;
    }
    LineEntry& entry = add(number, kind);
    if (role == LineRole::Mode)
        entry.address = static_cast<std::uint16_t>(exchange.out);
    if (well)
        return;
    entry.found = exchange.in;
    entry.wanted = kAcknowledge;
    entry.trouble = exchange.out == kNoByte  ? LineTrouble::Unasked
                    : exchange.in == kNoByte ? LineTrouble::NoAnswer
                                             : LineTrouble::WrongAnswer;
}

} // namespace tambrix
