#include "link/program_files.h"
#include "simulator/sample_program.h"
#include "tests/link/checks.h"

using namespace tambrix;

namespace {

const std::string kUnknown = "Unknown|Unknown|Unknown";

/// A file set in a folder of its own and what the check makes of it.
struct CheckedSet
{
    ScratchFolder folder;
    ScriptedOperator person;
    ProgramFiles files{person};
    std::filesystem::path path;

    explicit CheckedSet(char boardType)
    {
        SampleProgram program;
        program.boardType = boardType;
        path = writeSampleProgram(program, folder.path(), "press.v2");
    }

    void check() { files.DownloadFile(path); }

    void checkSpoiled(const char* extension, const std::string& content)
    {
        folder.write(std::string("press.v2.") + extension, content);
        check();
    }

    void expectFileRefused(const char* extension, const std::string& what)
    {
        const auto file = folder.path() / (std::string("press.v2.") + extension);
        expectOnlyBox(person, {BoxIcon::Warning, BoxButtons::Ok, "Program Download",
                               file.string() + what + "\r\n\r\nProgram Downloaded Halted!"});
    }
};

} // namespace

TEST(ProgramFiles, AGoodSetIsValidWithoutABox)
{
    CheckedSet set('D');
    set.check();
    EXPECT_TRUE(set.files.ValidProgram());
    EXPECT_EQ(set.files.boardName(), "Q900(PLC)");
    EXPECT_EQ(set.files.identity().name, "DUCTCTR2");
    EXPECT_EQ(set.files.identity().revision, "4");
    EXPECT_EQ(set.files.identity().checksum, std::to_string(SampleProgram().checksum()));
    EXPECT_EQ(set.files.imagePath(), set.folder.path() / "press.v2.hex");
    set.files.DownloadFile(set.folder.path() / "missing.fnx"); // only clears the flag
    EXPECT_FALSE(set.files.ValidProgram());
    EXPECT_EQ(set.files.boardType(), 68);
    EXPECT_TRUE(set.person.boxes.empty());
}

TEST(ProgramFiles, EveryBoardTypeIsTakenOrRefusedAsItsKindIs)
{
    struct Case
    {
        std::string types;
        bool valid, configured;
        const char* title; ///< of the box that refuses it
    };
    const Case cases[] = {{"23456BD", true, false, ""},
                          {"8:;<=A", true, true, ""},
                          {"7>?@CE", false, false, "PLS Program Download"},
                          {"019FG", false, false, "Program Download"}};
    for (const Case& c : cases) {
        for (const char type : c.types) {
            SCOPED_TRACE(type);
            CheckedSet set(type);
            set.files.UploadFile(set.path); // records the set without checks
            EXPECT_EQ(set.files.boardType(), type);
            EXPECT_TRUE(set.person.boxes.empty());
            set.check();
            EXPECT_EQ(set.files.ValidProgram(), c.valid);
            EXPECT_EQ(set.files.hasConfiguration() && c.valid, c.configured);
            ASSERT_EQ(set.person.boxes.empty(), c.valid);
            EXPECT_TRUE(c.valid || set.person.boxes[0].title == c.title);
        }
    }
}

TEST(ProgramFiles, TheRevisionLineIsSplitFromItsEnd)
{
    const std::pair<const char*, std::string> cases[] = {
        {"ABCDEFGH0:1;", "ABCDEFGH|10|27"},
        {"INK fFA9", "INK |255|169"},
        {"LONGPROGRAMNAME0102\r\n", "LONGPROGRAMNAME|1|2"},
        {"0304", "|3|4"},
        {"304", kUnknown},
        {"NAME 102", "NAME|0|2"},
        {"NAME01GG", "NAME|1|0"},
        {"\r\nNAME0102", kUnknown},
        {"", kUnknown},
    };
    for (const auto& [line, expected] : cases) {
        SCOPED_TRACE(line);
        CheckedSet set('D');
        set.checkSpoiled("rev", line);
        const ProgramIdentity& identity = set.files.identity();
        EXPECT_EQ(identity.name + "|" + identity.checksum + "|" + identity.revision, expected);
        EXPECT_EQ(set.files.ValidProgram(), set.person.boxes.empty());
        if (expected == kUnknown)
            set.expectFileRefused("rev", " Revision File is Not Valid");
    }
    CheckedSet emptyProgram('D');
    emptyProgram.checkSpoiled("fnx", "");
    EXPECT_FALSE(emptyProgram.files.ValidProgram());
    EXPECT_EQ(emptyProgram.person.boxes.size(), 1u);
}

TEST(ProgramFiles, TheConfigurationFileDecidesForBoardsThatHaveOne)
{
    struct Case
    {
        std::string from36; ///< the settings stand at fixed columns
        bool valid;
        int a, b, c;
    };
    const Case cases[] = {{"1xx72", true, 1, 7, 2},
                          {"2xx01999", true, 2, 0, 1},
                          {"1xx7", false, 3, 0, 3},
                          {"1xx 2", false, 3, 0, 3},
                          {"Axx72", false, 3, 0, 3}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.from36);
        CheckedSet set('A'); // H810
        set.checkSpoiled("lcf", std::string(35, 'x') + c.from36);
        EXPECT_EQ(set.files.ValidProgram(), c.valid);
        EXPECT_EQ(set.files.configuration().a, c.a);
        EXPECT_EQ(set.files.configuration().b, c.b);
        EXPECT_EQ(set.files.configuration().c, c.c);
        if (!c.valid)
            set.expectFileRefused("lcf", " Configuration File is Not Valid");
    }
    CheckedSet badRevision('A');
    badRevision.checkSpoiled("rev", "");
    EXPECT_EQ(badRevision.person.boxes.size(), 1u);
    EXPECT_TRUE(badRevision.files.ValidProgram());
    EXPECT_FALSE(badRevision.files.identityKnown());
}

TEST(ProgramFiles, ControllerTextIsShownAsFarAsItCanBe)
{
    EXPECT_EQ(printable(std::string("A\x00\x1F\x7F\x85\xC4", 6)), "A    \xC3\x84");
}
