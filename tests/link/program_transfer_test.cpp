#include "tests/link/checks.h"

#include <functional>

using namespace tambrix;
using namespace std::chrono_literals;

namespace {

constexpr const char* kThreeRecords = ":04001000010203FFE2\r\n"
                                      ":02FF000010:51F\r\n"
                                      ":01123400?;B9\r\n"
                                      ":00000001FF\r\n";

constexpr const char* kRequest = "FF <55 02 <55 1F <1F F5 <F5 56 <56 " // B8181 := 86
                                 "1F <1F F0 <F0 00 <00 +102 FF <55";   // B8176 := 0, attention
constexpr const char* kLoad = " FF <55 03 <55";
constexpr const char* kRecordBytes = " 04 00 10 01 02 03 FF <19"
                                     " 02 FF 00 10 A5 <B6"
                                     " 01 12 34 FB <42";

/// The identity registers being written: "INK" padded to eight, checksum 10, revision 27.
constexpr const char* kIdentity = " FF <55 +2002 FF <55 02 <55"
                                  " EF <EF F0 <F0 49 <49 EF <EF F1 <F1 4E <4E"
                                  " EF <EF F2 <F2 4B <4B EF <EF F3 <F3 20 <20"
                                  " EF <EF F4 <F4 20 <20 EF <EF F5 <F5 20 <20"
                                  " EF <EF F6 <F6 20 <20 EF <EF F7 <F7 20 <20"
                                  " EF <EF F8 <F8 0A <0A EF <EF F9 <F9 1B <1B";

constexpr const char* kTitle = "Program Download";

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
                planFault();
            }
        };
    }

    void download()
    {
        link.DumpProgram([this] { ++eventTurns; });
        EXPECT_FALSE(link.InProgramMode());
        EXPECT_FALSE(link.WritingIdent());
        EXPECT_EQ(link.CurrentProgramAdd(), " ");
        EXPECT_FALSE(link.isBusy());
    }

    std::string lastText() const { return person.boxes.back().text; }

    void expectLastBox(BoxIcon icon, const char* title, const std::string& text) const
    {
        expectBox(person.boxes.back(), {icon, BoxButtons::Ok, title, text});
    }

    bool boardHoldsProgram()
    {
        const BoardMemory& bytes = board.program().bytes;
        return bytes.byte(0x10) == 1 && bytes.byte(0x13) == 0xFF && bytes.byte(0xFF00) == 0x10 &&
               bytes.byte(0xFF01) == 0xA5 && bytes.byte(0x1234) == 0xFB;
    }

    bool boardHoldsIdentity() const
    {
        std::string name;
        for (std::uint16_t i = 0; i < 8; ++i)
            name += static_cast<char>(board.peek(static_cast<std::uint16_t>(61424 + i)));
        return name == "INK     " && board.peek(61432) == 10 && board.peek(61433) == 27;
    }

    int eventTurns = 0;
    std::function<void()> planFault = [] {}; ///< counted from the request for program mode
};

/// Where the records begin and end among the PC's bytes, from the request for program mode on.
constexpr std::size_t kFirstRecord = 2 + 6 + 1 + 2;
constexpr std::size_t kIdentityStart = kFirstRecord + 7 + 5 + 4;

constexpr const char* kComplete = "Program Download Complete!";
constexpr const char* kNotComplete = "Program Download Not Complete!";
constexpr const char* kChecksumError = "Checksum Error, Program Download Halted!";

} // namespace

TEST(ProgramDownload, ThreeRecordsByteByByte)
{
    DownloadRig rig;
    rig.download();
    EXPECT_EQ(rig.trace, std::string(kRequest) + kLoad + kRecordBytes + kIdentity);
    EXPECT_TRUE(rig.boardHoldsProgram());
    EXPECT_TRUE(rig.boardHoldsIdentity());
    EXPECT_EQ(rig.board.peek(8176), 0);
    EXPECT_EQ(rig.board.peek(8181), 0); // the board has left program mode
    ASSERT_EQ(rig.person.boxes.size(), 2u);
    rig.expectLastBox(BoxIcon::Information, kTitle, kComplete);
    EXPECT_GT(rig.eventTurns, 100); // two seconds of waiting alone are served a hundred times
}

TEST(ProgramDownload, TheConfirmationComparesDiskAndBoard)
{
    DownloadRig rig;
    rig.person.answers = {BoxAnswer::No};
    rig.download();
    ASSERT_EQ(rig.person.boxes.size(), 2u);
    expectBox(rig.person.boxes[0],
              {BoxIcon::Question, BoxButtons::YesNo, "Program Download - [INK]",
               "\tOn Disk\tIn Board\r\n\r\n"
               "  Program Ident: \tINK\tDUCTCTRL\r\n"
               "  Program Revision: \t27\t3\r\n"
               "  Program Checksum: \t10\t90\r\n"
               "\r\nDo You Wish to Continue?"});
    rig.expectLastBox(BoxIcon::Warning, kTitle, "Program Download Halted!");
    EXPECT_EQ(rig.trace, "");
    rig.link.CloseRSComm();
    rig.download();
    rig.expectLastBox(BoxIcon::Information, kTitle,
                      "Program is Currently OFFLINE\r\n\r\nSwitch to ONLINE MODE to Continue.");
}

TEST(ProgramDownload, ConfigurationGoesToBoardsThatHaveOne)
{
    DownloadRig rig(":00000001FF\r\n", "A"); // no record but the end: none is sent
    rig.line.clearFaults();
    rig.line.setFault(6, {LineFault::Kind::LoseReply, 0, {}}); // while the old name is read
    rig.download();
    EXPECT_EQ(rig.trace, std::string(kRequest) +
                             " FF <55 02 <55 1F <1F FC <FC 0A <0A"
                             " 1F <1F FD <FD 07 <07 1F <1F FE <FE 03 <03" +
                             kLoad + kIdentity);
    EXPECT_EQ(rig.lastText(), kComplete);
}

TEST(ProgramDownload, WhatCameBeforeARecordIsNoAcknowledgement)
{
    constexpr std::size_t kLoadCommandExchange = 10;
    DownloadRig rig;
    rig.planFault = [&rig] {
        rig.line.setFault(kLoadCommandExchange, {LineFault::Kind::DoubleReply, 0, {}});
    };
    rig.link.DumpProgram([&rig] { rig.clock.pause(5ms); }); // the second answer comes meanwhile
    EXPECT_EQ(rig.lastText(), "Program Download Complete!");
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
    rig.expectLastBox(BoxIcon::Warning, kTitle, kChecksumError);
    EXPECT_EQ(rig.link.RSRead("B61424"), "68");
}

TEST(ProgramUpload, SaysThatThereIsNoFileAndSendsNothing)
{
    LinkRig rig;
    rig.openQuietly();
    rig.person.whileShown = [&rig] { EXPECT_TRUE(rig.link.InUploadMode()); };
    rig.link.UploadProgram();
    expectOnlyBox(rig.person,
                  {BoxIcon::Warning, BoxButtons::Ok, "Program Upload", "HEX file not created."});
    EXPECT_FALSE(rig.link.InUploadMode());
    EXPECT_EQ(rig.trace, "");
}

TEST(ProgramDownload, ABadImageNeverReachesTheBoard)
{
    DownloadRig rig(std::string(kThreeRecords) + ":0400100001020\r\n");
    rig.download();
    EXPECT_EQ(rig.trace, "");
    ASSERT_EQ(rig.person.boxes.size(), 2u);
    rig.expectLastBox(BoxIcon::Warning, "Program Dump",
                      "Program Download Halted!\r\n\r\nLine 5: The record is cut short.");
}

TEST(ProgramDownload, ProgressFollowsTheRecordsAndTheStartOfTheNewProgram)
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
    ASSERT_EQ(shown, (std::vector<std::string>{" ", "0010H", "FF00H", "1234H", "ident"}));
    EXPECT_EQ(rig.lastText(), kComplete);
}

// Every kind of line fault at every byte: the download says what came of it, and says the truth.
TEST(ProgramDownload, EveryFaultAtEveryByteEndsInATrueReport)
{
    DownloadRig clean;
    clean.download();
    ASSERT_GE(clean.line.exchanges(), 60u);
    sweepFaults(clean.line.exchanges(), [](std::size_t k, const NamedFault& fault) {
        DownloadRig rig;
        rig.clock.setLimit(60s);
        rig.planFault = [&] { rig.line.setFault(k, fault.fault); };
        rig.download();
        const std::string text = rig.lastText();
        const bool loaded = rig.boardHoldsProgram() && rig.boardHoldsIdentity();
        EXPECT_TRUE(text != kComplete || loaded); // never praised without the program in the board
        EXPECT_NE(text.find(kTitle), std::string::npos);
        const bool inRecords = k >= kFirstRecord && k < kIdentityStart;
        if (fault.portDies()) {
            EXPECT_EQ(text, inRecords ? kChecksumError : kNotComplete);
        }
        if (text == kChecksumError) {
            EXPECT_EQ(rig.board.peek(61424), 'D'); // the board keeps its old identity
            EXPECT_FALSE(rig.link.CommError);
            EXPECT_TRUE(!inRecords || rig.clock.now() < 1500ms); // one second, and no box asks
            EXPECT_TRUE(fault.fault.kind != LineFault::Kind::LoseReply ||
                        rig.eventTurns > 40); // that second is served
        }
        startAfresh(rig);
        EXPECT_EQ(rig.link.RSRead("B8159"), "14");
    });
}
