#include "controls/alarm_banner.h"
#include "controls/cycle_ring.h"
#include "controls/fitted_label.h"
#include "controls/lamp.h"
#include "controls/palettes.h"
#include "controls/plate.h"
#include "controls/progress_pace.h"
#include "controls/text_size.h"
#include "controls/tones.h"
#include "controls/value_bar.h"

#include <QAccessible>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <tuple>

using namespace tambrix;

namespace {

/// What a picture paints, in light or dark colours.
class Painted : public testing::TestWithParam<bool>
{
protected:
    QImage paint(QWidget& picture, QSize size)
    {
        picture.setPalette(GetParam() ? darkPalette() : lightPalette());
        picture.resize(size);
        return picture.grab().toImage();
    }

    const Tones& tones() const { return tonesOf(GetParam() ? darkPalette() : lightPalette()); }

    /// Pixels of the row in the middle that have this colour.
    static int inRow(const QImage& image, const QColor& color)
    {
        int count = 0;
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, image.height() / 2) == color ? 1 : 0;
        return count;
    }

    static QString spoken(QWidget& picture)
    {
        return QAccessible::queryAccessibleInterface(&picture)->text(QAccessible::Value);
    }
};

/// In one channel of a pixel, 0 to 255.
int largestDifference(const QImage& one, const QImage& other)
{
    int largest = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            largest = std::max({largest, std::abs(a.red() - b.red()),
                                std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
        }
    return largest;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(LightAndDark, Painted, testing::Bool());

TEST_P(Painted, ALampHasTheColourAndTheSymbolOfItsState)
{
    const std::tuple<LampState, QColor, const char*> cases[] = {
        {LampState::Unknown, tones().off, "not known"},
        {LampState::Off, tones().off, "off"},
        {LampState::On, tones().good, "on"},
        {LampState::Alarm, tones().alarm, "alarm"}};
    for (const auto& [state, fill, said] : cases) {
        Lamp lamp("Lamp", 8);
        lamp.show(state);
        const QImage image = paint(lamp, {50, 50});
        EXPECT_EQ(image.pixelColor(9, 25), fill) << said;
        EXPECT_EQ(image.pixelColor(25, 25) == fill,
                  state == LampState::Off || state == LampState::On)
            << said;
        EXPECT_EQ(spoken(lamp), said);
    }
}

TEST_P(Painted, ABarIsFilledAsFarAsItsValueSays)
{
    const std::tuple<double, int, int> cases[] = {
        {0, 0, 0}, {0.5, 100, 0}, {1, 200, 0}, {1.5, 180, 20}, {-1, 0, 0}};
    for (const auto& [share, filled, beyond] : cases) {
        ValueBar picture("Color Density ductor 1");
        picture.show(share, "45.0%");
        const QImage image = paint(picture, {200, 20});
        EXPECT_NEAR(inRow(image, tones().bar), filled, 2) << share;
        EXPECT_NEAR(inRow(image, tones().unusual), beyond, 1) << share;
        EXPECT_EQ(spoken(picture), "45.0%");
    }
}

TEST(ValueBarTest, CountsShareARoundScale)
{
    const double counts[] = {3, 17121, 9306};
    EXPECT_EQ(scaleEnd(counts), 20000);
    const double widest[] = {4294967295.0};
    EXPECT_EQ(scaleEnd(widest), 5e9);
    const double none[] = {0, 0};
    EXPECT_EQ(scaleEnd(none), 1);
}

TEST_P(Painted, TheRingIsFilledClockwiseFromTheTop)
{
    struct Case
    {
        int on, cycle;
        bool quarter, threeQuarters; ///< the ring is filled there
        const char* spoken;
    };
    for (const Case& ring :
         {Case{0, 500, false, false, "0.0 of 50.0 cans with ink, at most"},
          Case{200, 500, true, false, "20.0 of 50.0 cans with ink, at most"},
          Case{65535, 65535, true, true, "6553.5 of 6553.5 cans with ink, at most"},
          Case{5, 0, false, false, "-"}}) {
        CycleRing picture("Cycle");
        picture.show(ring.on, ring.cycle);
        const QImage image = paint(picture, {400, 400});
        EXPECT_EQ(image.pixelColor(378, 190) == tones().bar, ring.quarter) << ring.spoken;
        EXPECT_EQ(image.pixelColor(22, 210) == tones().bar, ring.threeQuarters) << ring.spoken;
        EXPECT_EQ(spoken(picture), ring.spoken);
    }
}

TEST_P(Painted, TheBannerIsRedWithASymbolOnlyForAnAlarm)
{
    AlarmBanner banner;
    EXPECT_EQ(spoken(banner), "Off line: alarms are not known");
    EXPECT_EQ(inRow(paint(banner, {700, 60}), tones().good), 0);
    banner.showAlarms(0, QTime(16, 0));
    EXPECT_EQ(spoken(banner), "No alarm");
    EXPECT_GT(inRow(paint(banner, {700, 60}), tones().good), 10);
    EXPECT_EQ(inRow(paint(banner, {700, 60}), tones().alarm), 0);
    banner.showAlarms(0b10000101, QTime(16, 2));
    banner.showAlarms(0b10000001, QTime(16, 9));
    EXPECT_EQ(spoken(banner), "Ductors 1 and 8: no feedback, since 16:02");
    EXPECT_EQ(paint(banner, {700, 60}).pixelColor(350, 1), tones().alarm);
    EXPECT_EQ(paint(banner, {700, 60}).pixelColor(350, 5), tones().alarmGround);
    EXPECT_GT(inRow(paint(banner, {700, 60}), tones().alarm), 10);
}

TEST_P(Painted, AFittedTextIsNeverCut)
{
    for (const QSize size : {QSize(60, 40), QSize(500, 200), QSize(120, 400)}) {
        FittedLabel speed("lblSpeed", "Speed", "88888", "0000");
        const QImage image = paint(speed, size);
        const QColor ground = image.pixelColor(0, 0);
        for (int x = 0; x < image.width(); ++x) {
            EXPECT_EQ(image.pixelColor(x, 0), ground);
            EXPECT_EQ(image.pixelColor(x, image.height() - 1), ground);
        }
        for (int y = 0; y < image.height(); ++y)
            EXPECT_EQ(image.pixelColor(0, y), ground) << image.width();
    }
}

TEST(TextSizeTest, TheStepGrowsWithTheWindowAndShrinksWithALargerFont)
{
    const std::tuple<int, QSize, int> cases[] = {
        {12, {1000, 500}, 75},  {12, {1280, 560}, 100}, {12, {1366, 668}, 100},
        {12, {1600, 700}, 125}, {12, {1920, 900}, 150}, {12, {2560, 1260}, 200},
        {12, {2560, 400}, 75},  {18, {1400, 668}, 75},  {18, {1280, 620}, 60}};
    for (const auto& [font, place, step] : cases) {
        QFont desktop;
        desktop.setPixelSize(font);
        EXPECT_EQ(scaleStep(place, desktop), step) << place.width();
    }
}

TEST(ProgressPaceTest, TellsTheTimeLeftAfterTwoSecondsAndShowsTenTextsASecond)
{
    ProgressPace pace("values");
    pace.start(100);
    EXPECT_EQ(pace.text(100.5, 10, 1600), "10 of 1600 values");
    EXPECT_EQ(pace.text(100.59, 11, 1600), std::nullopt);
    EXPECT_EQ(pace.text(102, 40, 1600), "40 of 1600 values, about 1 min 18 s left");
    EXPECT_EQ(pace.text(110, 1500, 1600), "1500 of 1600 values, about 1 s left");
    EXPECT_EQ(pace.text(110.01, 1600, 1600), "1600 of 1600 values");
}

/// Corners that are kept and strips between them must not be told from one round rectangle.
TEST_P(Painted, APlateLooksAsIfDrawnAtOnce)
{
    const std::tuple<QRect, double, int, double> cases[] = {{{3, 2, 60, 40}, 1, 1, 6},
                                                            {{3, 2, 60, 40}, 2, 2, 5},
                                                            {{3, 2, 60, 40}, 1.5, 1, 5},
                                                            {{0, 0, 13, 64}, 1, 2, 4},
                                                            {{5, 5, 11, 11}, 1, 2, 5.5}};
    for (const auto& [rect, ratio, width, corner] : cases) {
        QImage atOnce(QSize(70, 70) * ratio, QImage::Format_RGB32);
        atOnce.setDevicePixelRatio(ratio);
        atOnce.fill(tones().alarm);
        QImage plate = atOnce;
        for (const QColor& ground : {tones().card, QColor(Qt::transparent)}) {
            QPainter painter(&atOnce);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(tones().line, width));
            painter.setBrush(ground);
            const double in = width / 2.0;
            painter.drawRoundedRect(QRectF(rect).adjusted(in, in, -in, -in), corner, corner);
            QPainter other(&plate);
            paintPlate(other, rect, ground, tones().line, width, corner);
            EXPECT_LE(largestDifference(plate, atOnce), 1) // mixing colours in two steps rounds
                << rect.width() << " by " << rect.height() << " at " << ratio;
        }
    }
}
