#include "controls/frame_limit.h"

#include <QApplication>
#include <QWidget>

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

class PaintedWindow : public QWidget
{
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++paints; }
};

} // namespace

TEST(FrameLimitTest, PaintsInTheWaitsOfTheLineAndByItselfWithoutThem)
{
    LineWaits waits;
    PaintedWindow window;
    new FrameLimit(window, waits); // the window owns it
    window.show();
    QApplication::processEvents();
    const int shown = window.paints;
    EXPECT_GE(shown, 1);

    waits.begin();
    window.update();
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(window.paints, shown) << "in a turn of the event loop";
    while (window.paints == shown)
        waits.begin();
    EXPECT_EQ(window.paints, shown + 1);

    window.update();
    while (window.paints == shown + 1)
        QApplication::processEvents();
}
