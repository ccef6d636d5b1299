// Every kind of line fault at every exchange of a session, in turn: nothing hangs, nothing wrong
// is believed without a reason, and the next Online Data reads right again.

#include "tests/link/checks.h"

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

struct Session : LinkRig
{
    Session()
    {
        board.press().stop();
        board.poke(5100, 17);
        board.pokeWord(5102, 4660);
        board.pokeWord(5104, 6789);
        board.pokeWord(5106, 12345);
        board.poke(5110, kNeighbours & ~8);
    }

    /// Opens, reads everything, writes everything, closes.
    void run()
    {
        open();
        for (const Register& reg : kRegisters) {
            const std::string value = link.RSRead(reg.addr);
            if (value != reg.before)
                ++(link.readSucceeded() ? wrongReads : failedReads);
        }
        for (const Register& reg : kRegisters)
            link.RSWrite(reg.addr, reg.after);
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

    int wrongReads = 0;  ///< a wrong value that the link took for right
    int failedReads = 0; ///< "0", and the link says that it is none
};

/// The byte came or did not come: the link can tell.
void expectRecovered(const Session& session)
{
    EXPECT_TRUE(session.person.boxes.empty());
    EXPECT_EQ(session.wrongReads, 0);
    EXPECT_LE(session.failedReads, 1);
    EXPECT_TRUE(session.boardHoldsNewValues());
    EXPECT_EQ(session.board.peek(5110), kNeighbours | 8);
}

/// The wrong byte came where any byte could be right: the line has no checksum, so one value may
/// be wrong, but only one, and the link is in step again after it.
void expectBelievedOnce(const Session& session)
{
    EXPECT_TRUE(session.person.boxes.empty());
    EXPECT_LE(session.wrongReads + session.failedReads, 2);
    EXPECT_LE(session.wrongReads, 1);
    EXPECT_TRUE(session.boardHoldsNewValues());
}

/// One box, and its Cancel ends all exchanges.
void expectGivenUp(const Session& session)
{
    EXPECT_EQ(session.person.boxes.size(), 1u);
    EXPECT_TRUE(session.link.CommError);
    EXPECT_FALSE(session.link.OnlineMode);
    EXPECT_EQ(session.wrongReads, 0);
}

} // namespace

TEST(FaultSweep, EveryFaultAtEveryExchangeEndsAsItShould)
{
    Session clean;
    clean.run();
    expectRecovered(clean);
    EXPECT_EQ(clean.failedReads, 0);
    ASSERT_GT(clean.line.exchanges(), 50u);
    sweepFaults(clean.line.exchanges(), [](std::size_t k, const LineFault& fault) {
        Session session;
        session.line.setFault(k, fault);
        session.run();
        EXPECT_LT(session.clock.now(), 60s); // the waits allow less; a hang would run far beyond
        EXPECT_FALSE(session.link.OnlineMode);
        if (fault.kind == Kind::Unplug)
            expectGivenUp(session);
        else if (fault.kind == Kind::ChangeReply || fault.kind == Kind::DoubleReply)
            expectBelievedOnce(session);
        else
            expectRecovered(session);
        session.expectFreshStart();
    });
}
