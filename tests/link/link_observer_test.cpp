#include "link/board_registers.h"
#include "tests/link/checks.h"

using namespace tambrix;

namespace {

/// Writes down what it is told, one word an event.
struct Notes : LinkObserver
{
    explicit Notes(RSComm& observed) : link(observed) { link.addObserver(*this); }
    ~Notes() override { link.removeObserver(*this); }

    void exchangeDone(const ExchangeReport& report) override
    {
        constexpr const char* kUses[] = {"attention", "mode", "high", "low", "data",
                                         "length",    "sum",  "next", "poll"};
        constexpr const char* kFaults[] = {"", "!none", "!wrong", "!resent"};
        const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(report.duration);
        note(kUses[static_cast<std::size_t>(report.meaning.use)] +
             std::string(kFaults[static_cast<std::size_t>(report.fault)]) +
             (report.meaning.address >= 0 ? "@" + std::to_string(report.meaning.address) : "") +
             (report.sent ? ">" + std::to_string(*report.sent) : "") +
             (report.reply ? "<" + std::to_string(*report.reply) : "") + "/" +
             std::to_string(ms.count()) + std::string(report.resends.size(), '+'));
    }
    void registerRead(std::string_view addr, std::string_view value, bool succeeded) override
    {
        EXPECT_TRUE(link.isBusy());
        EXPECT_EQ(link.RSRead("B8159"), "0"); // an observer gets no answer of its own
        note("read:" + std::string(addr) + "=" + std::string(value) + (succeeded ? "" : "!"));
    }
    void registerWritten(std::string_view addr, std::string_view value, bool succeeded) override
    {
        note("wrote:" + std::string(addr) + "=" + std::string(value) + (succeeded ? "" : "!"));
    }
    void linkOpened(bool answered) override { note(answered ? "open" : "open!"); }
    void linkClosed() override { note("closed"); }
    void boxShown(const OperatorBox& box) override { note("box:" + box.title.substr(0, 7)); }

    void note(const std::string& event) { text += text.empty() ? event : " " + event; }

    RSComm& link;
    std::string text;
};

} // namespace

TEST(LinkObserver, IsToldWhatPassesAndWhatItMeans)
{
    using Kind = LineFault::Kind;
    struct Case
    {
        const char* name;
        std::function<void(LinkRig&)> act;
        const char* notes;
    };
    const Case cases[] = {
        {"read", [](LinkRig& rig) { rig.link.RSRead("B5100"); },
         "attention>255<85/2 mode>1<85/2 high@5100>19<19/2 low@5100>236<7/2 read:B5100=7"},
        {"write", [](LinkRig& rig) { rig.link.RSWrite("B5100", "9"); },
         "attention>255<85/2 mode>2<85/2 high@5100>19<19/2 low@5100>236<236/2 data@5100>9<9/2 "
         "wrote:B5100=9"},
        {"wrong echo",
         [](LinkRig& rig) {
             rig.line.setFault(2, {Kind::ChangeReply, 1, {}});
             rig.link.RSRead("B5100");
         },
         "attention>255<85/2 mode>1<85/2 high!wrong@5100>19<18/2 read:B5100=0!"},
        {"lost answer",
         [](LinkRig& rig) {
             rig.line.setFault(3, {Kind::LoseReply, 0, {}});
             rig.link.RSRead("B5100");
         },
         "attention>255<85/2 mode>1<85/2 high@5100>19<19/2 low!resent@5100>236<85/1002+ "
         "read:B5100=0!"},
        {"silence",
         [](LinkRig& rig) {
             rig.board.setPowered(false);
             rig.link.RSRead("B5100");
             rig.link.CloseRSComm();
         },
         "box:WARNING attention!none>255/5000++ read:B5100=0! closed"},
        {"limit switch", [](LinkRig& rig) { rig.link.PLSScaleFactor(); },
         "attention>255<85/2 mode>24<85/2 next>85<104/2 next>85<1/2"},
        {"opened", [](LinkRig& rig) { rig.open(); }, "closed attention>255<85/2 open"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        LinkRig rig;
        rig.board.press().stop();
        rig.board.poke(5100, 7);
        rig.board.pokeWord(186, 360);
        rig.openQuietly();
        const Notes other(rig.link);
        {
            const Notes notes(rig.link);
            c.act(rig);
            EXPECT_EQ(notes.text, c.notes);
            EXPECT_EQ(notes.text, other.text);
        }
        rig.link.RSRead("B5100"); // whoever is gone is told nothing
    }
}

TEST(SecretRegister, IsKnownHoweverItIsSpelt)
{
    for (const char* addr : {"W1298", "w1298", "B1298", "B1299.7", "D1296", "W1297", "0512H"})
        EXPECT_TRUE(isSecretRegister(addr)) << addr;
    for (const char* addr : {"W1296", "B1300", "D1300", "F1298", "0511H", ""})
        EXPECT_FALSE(isSecretRegister(addr)) << addr;
}
