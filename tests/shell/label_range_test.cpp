#include "shell/label_range_dialog.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

#include <tuple>

using namespace tambrix;

TEST(LabelRange, BringsTypedBoundsIntoRange)
{
    const std::tuple<const char*, const char*, LabelRange> cases[] = {
        {"10", "5", {10, 10, false}},   {"0.6", "3", {1, 3, false}},
        {" 7 ", "12 ", {7, 12, false}}, {"2.5", "3.5", {2, 4, false}},
        {"-5", "200", {0, 99, false}},  {"1e300", "3", {99, 99, false}},
        {"12", "", {12, 99, true}},     {"nan", "12", {0, 12, true}},
        {"1 2", "inf", {0, 99, true}},
    };
    for (const auto& [from, to, range] : cases)
        EXPECT_EQ(labelsBetween(from, to), range) << from << " to " << to;
}

struct LabelRangeDialogTest : testing::Test
{
    LabelRangeDialog dialog;

    LabelRangeDialogTest() { dialog.show(); }

    template <typename Control> Control& control(const char* name) const
    {
        return *dialog.findChild<Control*>(QLatin1String(name));
    }
    QLineEdit& from() const { return control<QLineEdit>("txtLabels(0)"); }
    QLineEdit& to() const { return control<QLineEdit>("txtLabels(1)"); }
};

TEST_F(LabelRangeDialogTest, AllLabelsWhateverTheBoxesHoldAndNoneWhenCancelled)
{
    from().setText("7");
    to().setText("8");
    control<QPushButton>("cmdCancel").click();
    EXPECT_EQ(dialog.range(), (LabelRange{0, 0, true}));
    control<QPushButton>("cmdOk").click();
    EXPECT_EQ(dialog.range(), kAllLabels);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(LabelRangeDialogTest, TypingABoundMeansAnOwnRange)
{
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    control<QRadioButton>("optLabels(0)").setFocus();
    QTest::keyClick(&control<QRadioButton>("optLabels(0)"), Qt::Key_Down);
    QCoreApplication::processEvents();
    EXPECT_TRUE(from().hasFocus()) << "chosen by an arrow key";
    control<QRadioButton>("optLabels(0)").click();
    to().setFocus();
    EXPECT_TRUE(control<QRadioButton>("optLabels(1)").isChecked());
    from().setFocus();
    QTest::keyClicks(&from(), "12");
    QTest::keyClick(&from(), Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(to().hasFocus());
    QTest::keyClicks(&to(), "15");
    control<QPushButton>("cmdOk").click();
    EXPECT_EQ(dialog.range(), (LabelRange{12, 15, false}));
}
