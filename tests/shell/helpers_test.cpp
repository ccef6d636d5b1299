#include "shell/fitting_font.h"
#include "shell/helpers.h"

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
        dialog.show();
        const QPoint offset =
            dialog.frameGeometry().center() - dialog.screen()->availableGeometry().center();
        EXPECT_LE(offset.manhattanLength(), 8) << sized; // the frame comes when it is shown
    }
}

TEST(FittingFont, FillsTheSpaceButNeverLeavesIt)
{
    const QFont font = QApplication::font();
    const QString lines = QStringLiteral("one line\nand another one");
    const QSize space(400, 200);
    const int points = fittingPointSize(font, lines, space, 8, 100);
    const auto sizeAt = [&](int pointSize) {
        QFont sized = font;
        sized.setPointSize(pointSize);
        return QFontMetrics(sized).size(Qt::TextExpandTabs, lines);
    };
    EXPECT_GT(points, 8);
    EXPECT_LE(sizeAt(points).width(), space.width());
    EXPECT_LE(sizeAt(points).height(), space.height());
    EXPECT_GT(sizeAt(points + 2).width() + 20, space.width());
    EXPECT_EQ(fittingPointSize(font, lines, QSize(1, 1), 8, 100), 8);
    EXPECT_EQ(fittingPointSize(font, lines, QSize(9000, 9000), 8, 100), 100);
}
