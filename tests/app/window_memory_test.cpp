#include "app/window_memory.h"

#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

using namespace tambrix;

TEST(WindowMemoryTest, AWindowComesBackWhereItWas)
{
    const QTemporaryDir folder;
    // where a window of that memory comes up; then it is moved, when asked for, and closed
    const auto openedAt = [ini = folder.filePath("new folder/tambrix.ini")](QRect moveTo) {
        QWidget window;
        window.resize(400, 300);
        const WindowMemory memory(window, ini);
        window.show();
        const QRect place = window.geometry();
        if (moveTo.isValid())
            window.setGeometry(moveTo);
        return place;
    };
    const QRect place(120, 90, 512, 384);
    EXPECT_EQ(openedAt(place).size(), QSize(400, 300)); // nothing is known yet
    EXPECT_EQ(openedAt({}), place);
    EXPECT_EQ(openedAt({}), place); // and stays there
}
