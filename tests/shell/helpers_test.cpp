#include "controls/fonts.h"
#include "controls/forms.h"
#include "data/program_file_name.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QScreen>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace tambrix;

TEST(Helpers, ChangeTheExtensionOnly)
{
    EXPECT_EQ(ChangeExtension("/press/line.2/job.fnx", "rev"), "/press/line.2/job.rev");
    EXPECT_EQ(ChangeExtension("/press/job.v1.fnx", "hex"), "/press/job.v1.hex");
    EXPECT_EQ(ChangeExtension("/press/job", "lcf"), "/press/job.lcf");
}

TEST(Helpers, ReadTheBoardTypeOfAProgram)
{
    struct Case
    {
        const char* content; ///< of the .FNX file; null: there is none
        int type;
    };
    const Case cases[] = {{nullptr, 68}, {"", 68},      {"A,rest\r\n", 65}, {"2", 50},
                          {",2", 68},    {"\r\n4", 68}, {"\xE9", 233}};
    for (const Case& c : cases) {
        const QTemporaryDir folder;
        if (c.content != nullptr) {
            QFile file(folder.filePath("job.fnx")); // found whatever the case of its name
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(c.content);
        }
        EXPECT_EQ(ProgramFileTypeChar(folder.filePath("job.rev")), c.type)
            << (c.content == nullptr ? "no file" : c.content);
    }
}

TEST(Helpers, CentreADialogThatHasItsSizeOrGetsIt)
{
    for (const bool sized : {true, false}) {
        QDialog dialog;
        QVBoxLayout layout(&dialog);
        layout.addWidget(new QLabel(QString(60, u'x')));
        if (sized)
            dialog.resize(700, 100);
        CenterForm(dialog);
        const QRect centred = dialog.geometry();
        const QPoint offset = centred.center() - dialog.screen()->availableGeometry().center();
        EXPECT_LE(offset.manhattanLength(), 2) << sized;
        dialog.show(); // must not give it another size now
        EXPECT_EQ(dialog.size(), centred.size()) << sized;
    }
}

TEST(FittingFont, FillsTheSpaceButNeverLeavesIt)
{
    const auto points = [](const QSize& space) {
        return fittingPointSize(QApplication::font(), "one line\nand another one", space, 8, 100);
    };
    QFont font = QApplication::font();
    font.setPointSize(20);
    const QSize needed = QFontMetrics(font).size(Qt::TextExpandTabs, "one line\nand another one");
    const int fitting = points(needed + QSize(12, 12)); // the margin that a view keeps
    EXPECT_TRUE(fitting == 20 || fitting == 21) << fitting;
    EXPECT_LT(points(needed), 20);
    EXPECT_EQ(points(QSize(1, 1)), 8);
    EXPECT_EQ(points(QSize(9000, 9000)), 100);
}
