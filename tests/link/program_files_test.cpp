#include "link/program_files.h"
#include "simulator/sample_program.h"
#include "tests/support/link_rig.h"

using namespace tambrix;

namespace {

struct LineCase
{
    const char* name;
    std::string line;
    std::string expected; ///< "name|checksum|revision" or "A B C"; empty: refused
};

class RevisionLine : public testing::TestWithParam<LineCase>
{
};

class ConfigurationLine : public testing::TestWithParam<LineCase>
{
};

std::string columns(const std::string& from36)
{
    return std::string(35, 'x') + from36;
}

/// A file set in a folder of its own and what the check makes of it.
struct CheckedSet
{
    ScratchFolder folder;
    ScriptedOperator person;
    ProgramFiles files{person};

    explicit CheckedSet(char boardType)
    {
        SampleProgram program;
        program.boardType = boardType;
        path = writeSampleProgram(program, folder.path(), "press.v2");
    }

    void spoil(const char* extension, const std::string& content)
    {
        folder.write(std::string("press.v2.") + extension, content);
    }

    std::filesystem::path path;
};

enum class Kind { Plain, Configured, LimitSwitch, Incompatible };

Kind kindOf(int code)
{
    switch (code) {
    case 50:
    case 51:
    case 52:
    case 53:
    case 54:
    case 66:
    case 68:
        return Kind::Plain;
    case 56:
    case 58:
    case 59:
    case 60:
    case 61:
    case 65:
        return Kind::Configured;
    case 55:
    case 62:
    case 63:
    case 64:
    case 67:
    case 69:
        return Kind::LimitSwitch;
    default:
        return Kind::Incompatible;
    }
}

} // namespace

TEST_P(RevisionLine, IsSplitFromItsEnd)
{
    const auto identity = parseRevisionLine(GetParam().line);
    EXPECT_EQ(identity ? identity->name + "|" + identity->checksum + "|" + identity->revision : "",
              GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, RevisionLine,
    testing::Values(LineCase{"MarkDigits", "ABCDEFGH0:1;", "ABCDEFGH|10|27"},
                    LineCase{"OrdinaryDigits", "INK fFA9", "INK |255|169"},
                    LineCase{"FourCharacters", "0304", "|3|4"},
                    LineCase{"LongName", "LONGPROGRAMNAME0102", "LONGPROGRAMNAME|1|2"},
                    LineCase{"Empty", "", ""}, LineCase{"ThreeCharacters", "304", ""},
                    LineCase{"NoDigitInRevision", "NAME01G2", ""},
                    LineCase{"NoDigitInChecksum", "NAME 102", ""}),
    [](const auto& row) { return row.param.name; });

TEST_P(ConfigurationLine, HasItsSettingsAtFixedColumns)
{
    const auto setting = parseConfigurationLine(GetParam().line);
    EXPECT_EQ(setting ? std::to_string(setting->a) + std::to_string(setting->b) +
                            std::to_string(setting->c)
                      : "",
              GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Table, ConfigurationLine,
                         testing::Values(LineCase{"Settings", columns("1xx72"), "172"},
                                         LineCase{"MoreColumns", columns("2xx01999"), "201"},
                                         LineCase{"Empty", "", ""},
                                         LineCase{"OneColumnShort", columns("1xx7"), ""},
                                         LineCase{"BlankSetting", columns("1xx 2"), ""},
                                         LineCase{"LetterSetting", columns("Axx72"), ""}),
                         [](const auto& row) { return row.param.name; });

TEST(ProgramFiles, AGoodSetIsValidWithoutABox)
{
    CheckedSet set('D');
    set.files.DownloadFile(set.path);
    EXPECT_TRUE(set.files.ValidProgram());
    EXPECT_TRUE(set.person.boxes.empty());
    EXPECT_EQ(set.files.boardName(), "Q900(PLC)");
    EXPECT_EQ(set.files.identity().name, "DUCTCTR2");
    EXPECT_EQ(set.files.identity().revision, "4");
    EXPECT_EQ(set.files.identity().checksum, std::to_string(SampleProgram().checksum()));
    EXPECT_EQ(set.files.imagePath(), set.folder.path() / "press.v2.hex");
}

TEST(ProgramFiles, EveryBoardTypeIsTakenOrRefusedAsItsKindIs)
{
    for (int code = 48; code <= 71; ++code) {
        SCOPED_TRACE(code);
        CheckedSet set(static_cast<char>(code));
        set.files.DownloadFile(set.path);
        const Kind kind = kindOf(code);
        EXPECT_EQ(set.files.ValidProgram(), kind == Kind::Plain || kind == Kind::Configured);
        EXPECT_EQ(set.files.hasConfiguration() && set.files.ValidProgram(),
                  kind == Kind::Configured);
        if (set.files.ValidProgram()) {
            EXPECT_TRUE(set.person.boxes.empty());
            continue;
        }
        ASSERT_EQ(set.person.boxes.size(), 1u);
        const MessageBox& box = set.person.boxes.front();
        const bool limitSwitch = kind == Kind::LimitSwitch;
        EXPECT_EQ(box.title, limitSwitch ? "PLS Program Download" : "Program Download");
        EXPECT_EQ(box.icon, limitSwitch ? BoxIcon::Information : BoxIcon::Critical);
        EXPECT_EQ(box.text, limitSwitch ? "press.v2 file is a PLS target board program.\r\n"
                                          "Open PLS program to download to target board.\r\n\r\n"
                                          "Program Downloaded Halted."
                                        : "press.v2 file is incompatible with target board.\r\n\r\n"
                                          "Program Downloaded Halted!");
    }
}

TEST(ProgramFiles, ABadRevisionFileIsNamed)
{
    for (const char* content : {"", "abc", "NAMEXX01", "\r\nNAME0102"}) {
        CheckedSet set('D');
        set.spoil("rev", content);
        set.files.DownloadFile(set.path);
        EXPECT_FALSE(set.files.ValidProgram());
        EXPECT_EQ(set.files.identity().name, "Unknown");
        ASSERT_EQ(set.person.boxes.size(), 1u);
        EXPECT_EQ(set.person.boxes[0].icon, BoxIcon::Warning);
        EXPECT_EQ(set.person.boxes[0].title, "Program Download");
        EXPECT_EQ(set.person.boxes[0].text, (set.folder.path() / "press.v2.rev").string() +
                                                " Revision File is Not Valid\r\n\r\n"
                                                "Program Downloaded Halted!");
    }
}

TEST(ProgramFiles, TheConfigurationFileDecidesForBoardsThatHaveOne)
{
    CheckedSet set('A'); // H810
    set.spoil("lcf", "too short");
    set.files.DownloadFile(set.path);
    EXPECT_FALSE(set.files.ValidProgram());
    EXPECT_EQ(set.files.configuration().a, 3);
    EXPECT_EQ(set.files.configuration().b, 0);
    EXPECT_EQ(set.files.configuration().c, 3);
    ASSERT_EQ(set.person.boxes.size(), 1u);
    EXPECT_EQ(set.person.boxes[0].text, (set.folder.path() / "press.v2.lcf").string() +
                                            " Configuration File is Not Valid\r\n\r\n"
                                            "Program Downloaded Halted!");

    CheckedSet badRevision('A');
    badRevision.spoil("rev", "");
    badRevision.files.DownloadFile(badRevision.path);
    EXPECT_EQ(badRevision.person.boxes.size(), 1u);
    EXPECT_TRUE(badRevision.files.ValidProgram());
    EXPECT_FALSE(badRevision.files.identityKnown());
}

TEST(ProgramFiles, AMissingFileOnlyClearsTheFlag)
{
    CheckedSet set('D');
    set.files.DownloadFile(set.path);
    set.files.DownloadFile(set.folder.path() / "other.fnx");
    EXPECT_FALSE(set.files.ValidProgram());
    EXPECT_EQ(set.files.boardType(), 68);
    EXPECT_TRUE(set.person.boxes.empty());
}

TEST(ProgramFiles, UploadRecordsTheSetWithoutChecks)
{
    CheckedSet set('1');
    set.files.UploadFile(set.path);
    EXPECT_TRUE(set.person.boxes.empty());
    EXPECT_EQ(set.files.boardType(), 49);
    EXPECT_EQ(set.files.boardName(), "R110");
}

TEST(ProgramFiles, AnEmptyProgramFileIsIncompatible)
{
    CheckedSet set('D');
    set.spoil("fnx", "");
    set.files.DownloadFile(set.path);
    EXPECT_FALSE(set.files.ValidProgram());
    ASSERT_EQ(set.person.boxes.size(), 1u);
    EXPECT_EQ(set.person.boxes[0].icon, BoxIcon::Critical);
}

TEST(ProgramFiles, ControllerTextIsShownAsFarAsItCanBe)
{
    EXPECT_EQ(printable(std::string("A\x00\x1F\x7F\x85\xC4", 6)), "A    \xC3\x84");
}
