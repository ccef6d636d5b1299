#include "link/board_names.h"
#include "link/fault_text.h"
#include "tests/support/link_rig.h"

using namespace tambrix;

TEST(BoardNames, FollowTheTypeCode)
{
    const std::pair<std::int16_t, std::string> cases[] = {
        {49, "R110, library 1"},
        {57, "Not Defined, library "},
        {65, "H810, library E"},
        {68, "Q900(PLC), library G"},
        {70, "F Is Not Defined., library "},
        {-1, "\xC3\xBF Is Not Defined., library "},
    };
    for (const auto& [code, expected] : cases)
        EXPECT_EQ(TargetboardName(code) + ", library " + LCFBoardIndex(code), expected) << code;
}

TEST(FaultTexts, AreFoundByTheirCode)
{
    const ScratchFolder folder;
    const auto file = folder.write("faults.txt", "\xEF\xBB\xBF"
                                                 "0A,Low battery\r\n"
                                                 "1f,\"Slot, \"\"upper\"\" one\"\r\n"
                                                 "\r\n"
                                                 "1F,never reached\r\n"
                                                 " 00 , No fault \n"
                                                 "2B\n"
                                                 "\"3C\",plain, with a comma\n"
                                                 "5E,\"two\r\nlines\" and more\r\n"
                                                 "4D,\"no closing quote");
    const std::pair<std::int16_t, const char*> cases[] = {
        {10, "Fault Code (0AH): Low battery"},
        {31, "Fault Code (1FH): Slot, \"upper\" one"},
        {0, "Fault Code (00H): No fault"},
        {0x2B, "Fault Code (2BH): "},
        {0x3C, "Fault Code (3CH): plain, with a comma"},
        {0x5E, "Fault Code (5EH): two\r\nlines"},
        {0x4D, "Fault Code (4DH): no closing quote"},
        {0x7F, "Fault Code (7FH): "},
        {-1, "Fault Code (FFFFH): "},
    };
    for (const auto& [code, text] : cases)
        EXPECT_EQ(faultDescription(code, file), text);
    for (const auto& noFile : {folder.path() / "missing.txt", folder.path()})
        EXPECT_EQ(faultDescription(31, noFile), "Fault Code (1FH): --- Fault File Not Found ---");
    EXPECT_EQ(faultDescription(31, folder.write("empty.txt", "")), "Fault Code (1FH): ");
}

TEST(Identification, NeedsAUsableLink)
{
    LinkRig rig;
    rig.board.poke(8159, 42);
    rig.board.poke(8176, 0x1F);
    EXPECT_EQ(rig.link.FirmwareRev(), -1);
    EXPECT_EQ(rig.line.exchanges(), 0u);
    rig.open();
    EXPECT_EQ(rig.link.FirmwareRev(), 42);
    EXPECT_EQ(rig.link.FaultCode(), 0x1F);
    rig.link.CommError = true;
    EXPECT_EQ(rig.link.FirmwareRev(), -1);
    EXPECT_EQ(rig.link.FaultCode(), 0); // reads as no fault while the link is broken
    rig.folder.write("Support/FaultErrCodes.txt", "1F,Slot fault\r\n");
    EXPECT_EQ(rig.link.FaultDescription(0x1F), "Fault Code (1FH): Slot fault");
}
