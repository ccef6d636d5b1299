#include "simulator/sample_program.h"
#include "tests/support/link_rig.h"

#include <algorithm>
#include <array>

using namespace tambrix;
using namespace std::chrono_literals;

namespace {

constexpr const char* kThreeRecords = ":04001000010203FFE2\r\n"
                                      ":02FF000010:51F\r\n"
                                      ":01123400?;B9\r\n"
                                      ":00000001FF\r\n";

constexpr const char* kRequest = "FF <55 02 <55 1F <1F F5 <F5 56 <56 " // B8181 := 86
                                 "1F <1F F0 <F0 00 <00 FF <55";        // B8176 := 0, attention
constexpr const char* kLoad = " FF <55 03 <55";
constexpr const char* kRecordBytes = " 04 00 10 01 02 03 FF <19"
                                     " 02 FF 00 10 A5 <B6"
                                     " 01 12 34 FB <42";

/// The identity registers being written: "INK" padded to eight, checksum 10, revision 27.
constexpr const char* kIdentity = " FF <55 FF <55 02 <55"
                                  " EF <EF F0 <F0 49 <49 EF <EF F1 <F1 4E <4E"
                                  " EF <EF F2 <F2 4B <4B EF <EF F3 <F3 20 <20"
                                  " EF <EF F4 <F4 20 <20 EF <EF F5 <F5 20 <20"
                                  " EF <EF F6 <F6 20 <20 EF <EF F7 <F7 20 <20"
                                  " EF <EF F8 <F8 0A <0A EF <EF F9 <F9 1B <1B";

struct DownloadRig : LinkRig
{
    explicit DownloadRig(const std::string& image = kThreeRecords, const std::string& type = "D")
    {
        folder.write("ink.fnx", type + ",INK\r\n");
        folder.write("ink.rev", "INK0:1;\r\n");
        folder.write("ink.lcf", std::string(35, ' ') + "1xx72\r\n");
        folder.write("ink.hex", image);
        board.press().stop();
        board.poke(8176, 0x45);
        open();
        link.DownloadFile(folder.path() / "ink.fnx");
        person.answers = {BoxAnswer::Yes};
        person.whileShown = [this] { // after the confirmation the transfer itself begins
            if (person.boxes.size() == 1) {
                trace.clear();
                line.clearFaults();
                if (!faultPlanned.empty())
                    faultPlanned.front()();
            }
        };
    }

    /// Plans a fault for an exchange counted from the request for program mode.
    void planFault(std::size_t exchange, LineFault fault)
    {
        faultPlanned = {[this, exchange, fault] { line.setFault(exchange, fault); }};
    }

    void download()
    {
        link.DumpProgram([this] { ++eventTurns; });
    }

    std::string lastTitle() const { return person.boxes.back().title; }
    std::string lastText() const { return person.boxes.back().text; }

    bool boardHoldsProgram()
    {
        const BoardMemory& bytes = board.program().bytes;
        return bytes.byte(0x10) == 1 && bytes.byte(0x13) == 0xFF && bytes.byte(0xFF00) == 0x10 &&
               bytes.byte(0xFF01) == 0xA5 && bytes.byte(0x1234) == 0xFB;
    }

    std::string boardName() const
    {
        std::string name;
        for (std::uint16_t i = 0; i < 8; ++i)
            name += static_cast<char>(board.peek(static_cast<std::uint16_t>(61424 + i)));
        return name;
    }

    void expectIdle() const
    {
        EXPECT_FALSE(link.InProgramMode());
        EXPECT_FALSE(link.WritingIdent());
        EXPECT_EQ(link.CurrentProgramAdd(), " ");
        EXPECT_FALSE(link.isBusy());
    }

    int eventTurns = 0;
    std::vector<std::function<void()>> faultPlanned;
};

/// 0-based number, among the PC's bytes of a download, of the last byte of the first record.
constexpr std::size_t kFirstRecordEnd = 2 + 6 + 1 + 2 + 7 - 1;

} // namespace

TEST(ProgramDownload, ThreeRecordsByteByByte)
{
    DownloadRig rig;
    rig.download();
    EXPECT_EQ(rig.trace, std::string(kRequest) + kLoad + kRecordBytes + kIdentity);
    EXPECT_TRUE(rig.boardHoldsProgram());
    EXPECT_EQ(rig.boardName(), "INK     ");
    EXPECT_EQ(rig.board.peek(61432), 10);
    EXPECT_EQ(rig.board.peek(61433), 27);
    EXPECT_EQ(rig.board.peek(8176), 0);
    EXPECT_EQ(rig.board.peek(8181), 0); // the board has left program mode
    ASSERT_EQ(rig.person.boxes.size(), 2u);
    EXPECT_EQ(rig.lastTitle(), "Program Download");
    EXPECT_EQ(rig.lastText(), "Program Download Complete!");
    EXPECT_GT(rig.eventTurns, 100); // two seconds of waiting alone are served a hundred times
    rig.expectIdle();
}

TEST(ProgramDownload, TheConfirmationComparesDiskAndBoard)
{
    DownloadRig rig;
    rig.person.answers = {BoxAnswer::No};
    rig.download();
    ASSERT_EQ(rig.person.boxes.size(), 2u);
    const MessageBox& box = rig.person.boxes.front();
    EXPECT_EQ(box.title, "Program Download - [INK]");
    EXPECT_EQ(box.buttons, BoxButtons::YesNo);
    for (const char* piece :
         {"  Program Ident: \tINK\tDUCTCTRL\r\n", "  Program Revision: \t27\t3\r\n",
          "  Program Checksum: \t10\t90\r\n", "Do You Wish to Continue?"})
        EXPECT_NE(box.text.find(piece), std::string::npos) << piece;
    EXPECT_EQ(rig.lastTitle(), "Program Download");
    EXPECT_EQ(rig.lastText(), "Program Download Halted!");
    EXPECT_EQ(rig.trace, "");
    rig.expectIdle();
}

TEST(ProgramDownload, OnlyTheEndRecordSendsModesAndIdentityAlone)
{
    DownloadRig rig(":00000001FF\r\n");
    rig.download();
    EXPECT_EQ(rig.trace, std::string(kRequest) + kLoad + kIdentity);
    EXPECT_EQ(rig.lastText(), "Program Download Complete!");
}

TEST(ProgramDownload, ConfigurationGoesToBoardsThatHaveOne)
{
    DownloadRig rig(":00000001FF\r\n", "A");
    rig.download();
    EXPECT_EQ(rig.trace, std::string(kRequest) +
                             " FF <55 02 <55 1F <1F FC <FC 0A <0A"
                             " 1F <1F FD <FD 07 <07 1F <1F FE <FE 03 <03" +
                             kLoad + kIdentity);
}

TEST(ProgramDownload, AWrongAcknowledgementEndsTheTransferAtOnce)
{
    DownloadRig rig;
    rig.board.program().garbledRecord = 1;
    rig.download();
    EXPECT_EQ(rig.trace,
              std::string(kRequest) + kLoad + " 04 00 10 01 02 03 FF <19 02 FF 00 10 A5 <B7");
    EXPECT_EQ(rig.board.program().bytes.byte(0x10), 1);
    EXPECT_EQ(rig.board.program().bytes.byte(0xFF00), 0);
    EXPECT_EQ(rig.board.peek(61424), 'D'); // the board keeps its old identity
    ASSERT_EQ(rig.person.boxes.size(), 2u);
    EXPECT_EQ(rig.person.boxes.back().icon, BoxIcon::Warning);
    EXPECT_EQ(rig.lastTitle(), "Program Download");
    EXPECT_EQ(rig.lastText(), "Checksum Error, Program Download Halted!");
    rig.expectIdle();
    EXPECT_EQ(rig.link.RSRead("B61424"), "68");
}

TEST(ProgramDownload, ARecordWithoutAcknowledgementEndsItAfterASecond)
{
    DownloadRig rig;
    rig.planFault(kFirstRecordEnd, {LineFault::Kind::LoseReply, 0, {}});
    const Duration start = rig.clock.now();
    rig.download();
    EXPECT_EQ(rig.lastText(), "Checksum Error, Program Download Halted!");
    EXPECT_LT(rig.clock.now() - start, 1500ms);
    EXPECT_FALSE(rig.link.CommError);
}

TEST(ProgramDownload, TheCablePulledInTheMiddleIsNotComplete)
{
    DownloadRig rig;
    rig.planFault(kFirstRecordEnd + 9, {LineFault::Kind::Unplug, 0, {}});
    rig.download();
    EXPECT_EQ(rig.board.program().bytes.byte(0x10), 1);
    EXPECT_EQ(rig.board.program().bytes.byte(0x1234), 0);
    EXPECT_EQ(rig.board.peek(61424), 'D');
    EXPECT_EQ(rig.lastText(), "Checksum Error, Program Download Halted!");
    rig.expectIdle();
}

TEST(ProgramDownload, TheCablePulledBetweenRequestAndRecordsIsNotComplete)
{
    DownloadRig rig;
    rig.planFault(9, {LineFault::Kind::Unplug, 0, {}}); // the attention before the load command
    rig.download();
    ASSERT_EQ(rig.person.boxes.size(), 3u);
    EXPECT_EQ(rig.person.boxes[1].title, "WARNING - Communication Error!");
    EXPECT_EQ(rig.lastText(), "Program Download Not Complete!");
    EXPECT_EQ(rig.board.program().recordsTaken, 0u);
    rig.expectIdle();
}

TEST(ProgramDownload, ABadImageNeverReachesTheBoard)
{
    DownloadRig rig(std::string(kThreeRecords) + ":0400100001020\r\n");
    rig.download();
    EXPECT_EQ(rig.trace, "");
    ASSERT_EQ(rig.person.boxes.size(), 2u);
    EXPECT_EQ(rig.person.boxes.back().icon, BoxIcon::Warning);
    EXPECT_EQ(rig.lastTitle(), "Program Dump");
    EXPECT_EQ(rig.lastText(), "Program Download Halted!\r\n\r\nLine 5: The record is cut short.");
    rig.expectIdle();
}

TEST(ProgramDownload, OffLineAsksForOnlineMode)
{
    DownloadRig rig;
    rig.link.CloseRSComm();
    rig.trace.clear();
    rig.download();
    EXPECT_EQ(rig.trace, "");
    ASSERT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_EQ(rig.lastTitle(), "Program Download");
    EXPECT_TRUE(rig.lastText().ends_with("\r\nSwitch to ONLINE MODE to Continue."));
}

TEST(ProgramDownload, TheIdentityWaitsForTheBoardToStartItsProgram)
{
    DownloadRig rig;
    Duration left{};
    Duration wrote{};
    std::vector<std::uint8_t> sent;
    rig.line.setTap([&](const WireByte& wire) {
        if (wire.direction != WireByte::Direction::ToBoard)
            return;
        sent.push_back(wire.byte);
        const bool afterRecords = rig.board.program().recordsTaken == 3;
        if (afterRecords && wire.byte == 0xFF && left == Duration::zero())
            left = wire.time;
        else if (afterRecords && left != Duration::zero() && wrote == Duration::zero())
            wrote = wire.time;
    });
    rig.download();
    EXPECT_GE(wrote - left, 2s);
    EXPECT_LT(wrote - left, 2100ms);
}

TEST(ProgramDownload, ProgressFollowsTheRecords)
{
    DownloadRig rig;
    std::vector<std::string> shown;
    rig.link.DumpProgram([&] {
        EXPECT_TRUE(rig.link.isBusy());
        EXPECT_EQ(rig.link.RSRead("B100"), "0"); // nobody else gets the link meanwhile
        std::string now = rig.link.WritingIdent() ? "ident" : rig.link.CurrentProgramAdd();
        if (rig.link.InProgramMode() && (shown.empty() || shown.back() != now))
            shown.push_back(now);
    });
    EXPECT_EQ(shown, (std::vector<std::string>{" ", "0010H", "FF00H", "1234H", "ident"}));
    EXPECT_EQ(rig.lastText(), "Program Download Complete!");
}

TEST(ProgramDownload, ABoardThatRefusesProgramModeIsReported)
{
    DownloadRig rig;
    rig.link.DumpProgram([&] { rig.board.poke(8181, 0); }); // it forgets the request
    const auto& boxes = rig.person.boxes;
    EXPECT_TRUE(std::ranges::any_of(boxes, [](const MessageBox& box) {
        return box.title == "WARNING - Communication Error!";
    }));
    EXPECT_EQ(rig.lastText(), "Program Download Not Complete!");
    EXPECT_EQ(rig.board.program().recordsTaken, 0u);
}

// Every kind of line fault at every byte: the download says what came of it, and says the truth.
TEST(ProgramDownload, EveryFaultAtEveryByteEndsInATrueReport)
{
    using Kind = LineFault::Kind;
    constexpr std::array kFaults = {
        LineFault{Kind::LoseRequest, 0, {}}, LineFault{Kind::LoseReply, 0, {}},
        LineFault{Kind::ChangeReply, 1, {}}, LineFault{Kind::DelayReply, 0, 1500ms},
        LineFault{Kind::DoubleReply, 0, {}}, LineFault{Kind::Unplug, 0, {}}};
    DownloadRig clean;
    clean.download();
    const std::size_t bytes = clean.line.exchanges();
    ASSERT_GE(bytes, 60u);
    for (const LineFault& fault : kFaults) {
        for (std::size_t k = 0; k < bytes && !testing::Test::HasFailure(); ++k) {
            SCOPED_TRACE("fault " + std::to_string(static_cast<int>(fault.kind)) + " at byte " +
                         std::to_string(k));
            DownloadRig rig;
            rig.planFault(k, fault);
            rig.download();
            rig.expectIdle();
            EXPECT_LT(rig.clock.now(), 30s);
            const bool complete = rig.lastText() == "Program Download Complete!";
            const bool loaded = rig.boardHoldsProgram() && rig.boardName() == "INK     " &&
                                rig.board.peek(61432) == 10 && rig.board.peek(61433) == 27;
            EXPECT_TRUE(!complete || loaded); // never praised without the program in the board
            EXPECT_NE(rig.lastText().find("Program Download"), std::string::npos);

            rig.line.plugIn();
            rig.line.clearFaults();
            rig.clock.pause(1s);
            rig.open();
            EXPECT_EQ(rig.link.RSRead("B8159"), "14");
        }
    }
}
