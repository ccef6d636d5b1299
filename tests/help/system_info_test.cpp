#include "data/version.h"
#include "help/about_box.h"
#include "help/system_info_window.h"
#include "tests/support/press_rig.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace tambrix;

TEST(SystemInfoTool, IsFoundThroughTheRegistry)
{
    const QTemporaryDir folder;
    const QString tool = folder.filePath("MSINFO32.EXE");
    QFile file(tool);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    struct Case
    {
        QString path, location, expected;
    };
    const Case cases[] = {{tool, {}, tool},
                          {{}, folder.path(), tool},
                          {tool, "elsewhere", tool},
                          {folder.filePath("gone.exe"), {}, {}},
                          {{}, folder.filePath("gone"), {}},
                          {folder.path(), {}, {}}, // a folder is no tool
                          {{}, {}, {}}};
    for (const Case& c : cases) {
        const auto registry = [&](const QString&, const QString& value) {
            return value == "Path" ? c.path : c.location;
        };
        EXPECT_EQ(systemInfoTool(registry), c.expected);
    }
}

TEST(SystemInformation, TellsSettingsAndFoldersAndTouchesNone)
{
    PressRig rig;
    const auto fact = [&](const QString& name) {
        for (const SystemFact& found : systemInformation(rig.state)) {
            if (found.name.startsWith(name))
                return found.value;
        }
        return QString();
    };
    EXPECT_EQ(fact("RSPort.cfg"), "none found");
    EXPECT_TRUE(fact("Support folder").endsWith("Support (missing)"));
    EXPECT_EQ(fact("Mode"), "OFFLINE");
    EXPECT_FALSE(QDir(rig.folder.filePath("Support")).exists());

    rig.goOnline(); // writes the settings file
    EXPECT_EQ(fact("RSPort.cfg"), "1,9600");
    EXPECT_EQ(fact("Mode"), "ONLINE");
}
