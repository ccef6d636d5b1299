// Line faults at every exchange of a session, in turn: nothing hangs, nothing wrong is believed
// without a reason, and the next Online Data reads right again.

#include "tests/link/checks.h"

#include <array>

using namespace tambrix;
using namespace std::chrono_literals;

namespace {

using Kind = LineFault::Kind;

struct Register
{
    const char* addr;
    const char* before;
    const char* after;
};

// One register of every width that nobody but the session changes, and one bit.
constexpr std::array kRegisters = {Register{"B5100", "17", "255"}, Register{"W5102", "4660", "85"},
                                   Register{"D5104", "123456789", "987654"},
                                   Register{"B5110.3", "0", "1"}};
constexpr int kNeighbours = 0b1010'0101; // the other bits of that byte

struct Session : LinkRig, LinkObserver
{
    Session()
    {
        clock.setLimit(60s);
        board.press().stop();
        board.poke(5100, 17);
        board.pokeWord(5102, 4660);
        board.pokeWord(5104, 6789);
        board.pokeWord(5106, 12345);
        board.poke(5110, kNeighbours & ~8);
        link.addObserver(*this);
    }

    void exchangeDone(const ExchangeReport& report) override { meanings.push_back(report.meaning); }

    /// Opens, reads everything, writes everything, closes. What comes late or twice falls into
    /// the pauses, where it must do no harm.
    void run()
    {
        open();
        for (const Register& reg : kRegisters) {
            clock.pause(200ms);
            const std::string value = link.RSRead(reg.addr);
            if (value != reg.before)
                ++(link.readSucceeded() ? wrongReads : failedReads);
        }
        for (const Register& reg : kRegisters) {
            clock.pause(200ms);
            link.RSWrite(reg.addr, reg.after);
        }
        link.CloseRSComm();
    }

    bool boardHoldsNewValues() const
    {
        return board.peek(5100) == 255 && board.peekWord(5102) == 85 &&
               board.peekCounter(5104) == 987654 && (board.peek(5110) & 8) != 0;
    }

    void expectFreshStart()
    {
        const std::size_t boxes = person.boxes.size();
        startAfresh(*this);
        EXPECT_TRUE(link.OnlineMode);
        EXPECT_FALSE(link.CommError);
        EXPECT_EQ(link.RSRead("B5100"), std::to_string(board.peek(5100)));
        EXPECT_EQ(link.RSRead("D5104"), std::to_string(board.peekCounter(5104)));
        link.RSWrite("W5102", "321");
        EXPECT_EQ(link.RSRead("W5102"), "321");
        EXPECT_EQ(person.boxes.size(), boxes);
    }

    std::vector<ByteMeaning> meanings; ///< of every exchange
    int wrongReads = 0;                ///< a wrong value that the link took for right
    int failedReads = 0;               ///< "0", and the link says that it is none
};

/// Whether a read may bring a wrong value without a sign of it, for the line has no checksum: a
/// data byte was changed, or the echo in a value's last frame came twice and passes for its data.
bool mayPass(const ByteMeaning& byte, const LineFault& fault)
{
    if (byte.mode != LinkMode::Read)
        return false;
    if (fault.kind == Kind::ChangeReply)
        return byte.use == ByteUse::AddressLow;
    const bool lastFrame = byte.address == 5100 || byte.address == 5103 || byte.address == 5107 ||
                           byte.address == 5110;
    return fault.kind == Kind::DoubleReply &&
           (fault.delay > SimTime::zero() || (byte.use == ByteUse::AddressHigh && lastFrame));
}

/// An answer within its wait, and one that comes again in a pause, change nothing.
bool isHarmless(const LineFault& fault)
{
    return (fault.kind == Kind::DelayReply && fault.delay < 1s) ||
           (fault.kind == Kind::DoubleReply && fault.delay == 100ms);
}

void expectEnding(const Session& session, const ByteMeaning& byte, const NamedFault& named)
{
    const LineFault& fault = named.fault;
    // One box, and its Cancel ends all exchanges. A mode has a wait of its own, of 2 s.
    const bool over = named.portDies() || (fault.kind == Kind::DelayReply && fault.delay > 2s &&
                                           byte.use == ByteUse::ModeCommand);
    EXPECT_EQ(session.person.boxes.size(), over ? 1u : 0u);
    EXPECT_EQ(session.link.CommError, over);
    EXPECT_FALSE(session.link.OnlineMode);
    EXPECT_LE(session.wrongReads, mayPass(byte, fault) ? 1 : 0);
    if (over)
        return;
    EXPECT_LE(session.wrongReads + session.failedReads, isHarmless(fault) ? 0 : 1);
    EXPECT_TRUE(session.boardHoldsNewValues());
    if (fault.kind != Kind::ChangeReply || !mayPass(byte, fault)) {
        EXPECT_EQ(session.board.peek(5110), kNeighbours | 8);
    }
}

} // namespace

TEST(FaultSweep, EveryFaultAtEveryExchangeEndsAsItShould)
{
    Session clean;
    clean.run();
    EXPECT_TRUE(clean.boardHoldsNewValues());
    EXPECT_EQ(clean.wrongReads + clean.failedReads, 0);
    ASSERT_GT(clean.line.exchanges(), 50u);
    ASSERT_EQ(clean.line.exchanges(), clean.meanings.size());
    sweepFaults(clean.line.exchanges(), [&](std::size_t k, const NamedFault& fault) {
        Session session;
        session.line.setFault(k, fault.fault);
        session.run();
        expectEnding(session, clean.meanings[k], fault);
        session.expectFreshStart();
    });
}
