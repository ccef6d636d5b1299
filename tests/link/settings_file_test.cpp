#include "tests/link/checks.h"

#include <tuple>

using namespace tambrix;

TEST(CommSettings, AreReadTolerantlyAndLeftAloneOrCreated)
{
    // Without content there is no file and no folder.
    const std::tuple<const char*, const char*, int, int> cases[] = {
        {"usual", "3,19200\r\n", 3, 19200},
        {"odd speed", "7,4800\r\n", 7, 9600},
        {"port too high", "250,9600\r\n", 99, 9600},
        {"port zero", "0,19200", 1, 19200},
        {"quoted", "\"4\",\"19200\"\n", 4, 19200},
        {"byte-order mark", "\xEF\xBB\xBF\063,19200\r\n", 3, 19200},
        {"no speed", "5", 5, 9600},
        {"rubbish", "\xFF\xFE??", 1, 9600},
        {"empty", "", 1, 9600},
        {"missing", nullptr, 1, 9600},
    };
    for (const auto& [name, given, number, speed] : cases) {
        SCOPED_TRACE(name);
        LinkRig rig;
        const std::string content = given != nullptr ? given : "";
        if (given != nullptr)
            rig.folder.write("Support/RSPort.cfg", content);
        rig.open();
        EXPECT_EQ(rig.port.portNumber(), number);
        EXPECT_EQ(rig.port.speed(), speed);
        EXPECT_EQ(fileContent(rig.folder.path() / "Support/RSPort.cfg"),
                  content.empty() ? "1,9600\r\n" : content);
    }
}

TEST(CommSettings, ThatCannotBeWrittenAreReportedInOneBox)
{
    LinkRig rig;
    rig.open();
    std::filesystem::remove_all(rig.folder.path() / "Support");
    rig.folder.write("Support", "a file where the folder should be");
    rig.open();
    EXPECT_FALSE(rig.port.isOpen());
    ASSERT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_EQ(rig.person.boxes[0].title, "Comm Port Error");
    EXPECT_NE(rig.person.boxes[0].text.find("RSPort.cfg"), std::string::npos);
    EXPECT_FALSE(rig.link.OnlineMode);
    EXPECT_TRUE(rig.link.CommError);
    EXPECT_TRUE(rig.link.portError());
}

TEST(CommSettings, ThatAreNoPlainFileAreReportedToo)
{
    for (const char* target : {"/dev/zero", "RSPort.cfg", "."}) {
        SCOPED_TRACE(target);
        LinkRig rig;
        const auto file = rig.folder.path() / "Support/RSPort.cfg";
        rig.open();
        std::filesystem::remove(file);
        std::filesystem::create_symlink(target, file);
        rig.open();
        EXPECT_FALSE(rig.port.isOpen());
        EXPECT_EQ(rig.person.boxes.size(), 1u);
    }
}
