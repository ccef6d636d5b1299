#include "shell/numeric_entry_field.h"

#include "shell/entry_number.h"
#include "tests/support/scripted_prompts.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace tambrix {
namespace {

struct TextCase
{
    const char* text;
    double leading;
    std::optional<double> whole;
};

class EntryText : public testing::TestWithParam<TextCase>
{
};

TEST_P(EntryText, IsReadAsANumber)
{
    const QString text = QString::fromUtf8(GetParam().text);
    EXPECT_DOUBLE_EQ(leadingNumber(text), GetParam().leading);
    EXPECT_EQ(numericText(text), GetParam().whole);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, EntryText,
    testing::Values(TextCase{"300", 300, 300.0}, TextCase{"  300 ", 300, 300.0},
                    TextCase{"149.5", 149.5, 149.5}, TextCase{".5", 0.5, 0.5},
                    TextCase{"5.", 5, 5.0}, TextCase{"-5", -5, -5.0}, TextCase{"+5", 5, 5.0},
                    TextCase{"12abc", 12, {}}, TextCase{"abc", 0, {}}, TextCase{"", 0, {}},
                    TextCase{"-", 0, {}}, TextCase{".", 0, {}}, TextCase{"1 2", 1, {}},
                    TextCase{"1,200", 1, {}}, TextCase{"1e2", 1, {}}, TextCase{"nan", 0, {}},
                    TextCase{"inf", 0, {}}, TextCase{"12\n", 12, {}}, TextCase{"\xD9\xA3", 0, {}}));

struct RoundCase
{
    double number;
    std::int32_t rounded;
};

class Rounding : public testing::TestWithParam<RoundCase>
{
};

TEST_P(Rounding, TakesHalvesToEven)
{
    EXPECT_EQ(roundedHalfToEven(GetParam().number), GetParam().rounded);
}

INSTANTIATE_TEST_SUITE_P(Numbers, Rounding,
                         testing::Values(RoundCase{149.5, 150}, RoundCase{150.5, 150},
                                         RoundCase{-0.5, 0}, RoundCase{1e300, 2147483647},
                                         RoundCase{-1e300, -2147483647 - 1}));

/// Two fields, a check box, a button and the focus sink in a window with a menu bar.
class Fields : public testing::Test
{
protected:
    void SetUp() override
    {
        window.menuBar()->addMenu("&File");
        auto* body = new QWidget;
        auto* layout = new QVBoxLayout(body);
        for (QWidget* widget : std::initializer_list<QWidget*>{sink, first, second, box, button})
            layout->addWidget(widget);
        window.setCentralWidget(body);
        first->setText("200");
        second->setText("20");
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        sink->setFocus();
        connectCounters();
    }

    void connectCounters()
    {
        QObject::connect(button, &QPushButton::clicked, [this] { ++clicks; });
    }

    EntryRules rules(std::int32_t minimum, std::int32_t maximum, std::vector<QString>& into)
    {
        EntryRules rules;
        rules.title = "Set-up";
        rules.minimum = minimum;
        rules.maximum = maximum;
        rules.store = [&into](const QString& text, std::int32_t value) {
            into.push_back(QStringLiteral("%1=%2").arg(text).arg(value));
        };
        rules.step = [&into](const QString& text, std::int32_t) { into.push_back("step " + text); };
        return rules;
    }

    void type(NumericEntryField* field, const char* text)
    {
        field->setFocus();
        QTest::keyClicks(field, text);
    }

    void clickUp(NumericEntryField* field)
    {
        QTest::mouseClick(field, Qt::LeftButton, {},
                          QPoint(field->width() - 6, field->height() / 4));
    }

    static void settle() { QCoreApplication::processEvents(); }

    ScriptedPrompts person;
    QMainWindow window;
    QPushButton* sink = new QPushButton("-");
    std::vector<QString> stored;
    std::vector<QString> storedSecond;
    NumericEntryField* first = new NumericEntryField(person, *sink, rules(140, 650, stored));
    NumericEntryField* second = new NumericEntryField(person, *sink, rules(10, 30, storedSecond));
    QCheckBox* box = new QCheckBox("box");
    QPushButton* button = new QPushButton("go");
    int clicks = 0;
};

using Stored = std::vector<QString>;

TEST_F(Fields, EnterMovesOnAndStoresTwice)
{
    type(first, "300");
    QTest::keyClick(first, Qt::Key_Return);
    EXPECT_EQ(stored, (Stored{"300=300", "300=300"}));
    EXPECT_TRUE(second->hasFocus());
    EXPECT_FALSE(first->beingEdited());
    EXPECT_TRUE(person.boxes.empty());
}

TEST_F(Fields, EnteringSelectsTheWholeText)
{
    first->setFocus();
    EXPECT_EQ(first->findChild<QLineEdit*>()->selectedText(), "200");
    QTest::keyClicks(first, "3");
    QTest::mouseClick(first->findChild<QLineEdit*>(), Qt::LeftButton);
    EXPECT_EQ(first->findChild<QLineEdit*>()->selectedText(), "3");
    EXPECT_EQ(first->undoValue(), 3);
}

struct EntryCase
{
    const char* typed;
    bool valid;
    const char* stored;
};

class Entries : public Fields, public testing::WithParamInterface<EntryCase>
{
};

TEST_P(Entries, AreHeldAgainstBothLimits)
{
    const EntryCase& given = GetParam();
    type(first, given.typed);
    QTest::keyClick(first, Qt::Key_Tab);
    settle();
    if (given.valid) {
        EXPECT_EQ(stored, (Stored{given.stored, given.stored}));
        EXPECT_TRUE(second->hasFocus());
        EXPECT_TRUE(person.boxes.empty());
        return;
    }
    EXPECT_TRUE(stored.empty());
    EXPECT_TRUE(storedSecond.empty());
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].text, "Only a Number Between 140 and 650 can be Entered");
    EXPECT_EQ(person.boxes[0].title, "Set-up");
    EXPECT_EQ(person.boxes[0].icon, BoxIcon::Information);
    EXPECT_EQ(person.boxes[0].buttons, BoxButtons::Ok);
    EXPECT_EQ(first->text(), "200");
    EXPECT_TRUE(first->hasFocus());
    EXPECT_TRUE(first->beingEdited());
    EXPECT_EQ(first->findChild<QLineEdit*>()->selectedText(), "200");
}

INSTANTIATE_TEST_SUITE_P(Limits, Entries,
                         testing::Values(EntryCase{"140", true, "140=140"},
                                         EntryCase{"650", true, "650=650"},
                                         EntryCase{"149.5", true, "149.5=150"},
                                         EntryCase{" 150 ", true, " 150 =150"},
                                         EntryCase{"139", false, ""}, EntryCase{"139.9", false, ""},
                                         EntryCase{"650.5", false, ""}, EntryCase{"abc", false, ""},
                                         EntryCase{"200x", false, ""}, EntryCase{"-200", false, ""},
                                         EntryCase{"99999999999999999999", false, ""}));

TEST_F(Fields, AnEntryOfFourHundredDigitsIsRefused)
{
    type(first, std::string(400, '9').c_str());
    QTest::keyClick(first, Qt::Key_Return);
    settle();
    EXPECT_TRUE(stored.empty());
    EXPECT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(first->text(), "200");
}

TEST_F(Fields, ARefusedEntryShowsOneBoxHoweverTheFocusWasToLeave)
{
    const std::vector<std::function<void()>> leaves = {
        [&] { second->setFocus(); },
        [&] { QTest::keyClick(first, Qt::Key_Backtab); },
        [&] { QTest::mouseClick(second->findChild<QLineEdit*>(), Qt::LeftButton); },
        [&] { QTest::mouseClick(box, Qt::LeftButton); },
        [&] {
            QTest::keyClick(first, Qt::Key_Tab);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        },
    };
    for (const auto& leave : leaves) {
        person.boxes.clear();
        type(first, "7");
        leave();
        settle();
        EXPECT_EQ(person.boxes.size(), 1U);
        EXPECT_TRUE(first->hasFocus());
        EXPECT_EQ(first->text(), "200");
        settle();
        EXPECT_EQ(person.boxes.size(), 1U);
    }
    EXPECT_TRUE(stored.empty());
    EXPECT_TRUE(storedSecond.empty());
}

TEST_F(Fields, AClickThatLeavesARefusedEntryDoesNotCount)
{
    type(first, "7");
    QTest::mousePress(button, Qt::LeftButton);
    settle();
    QTest::mouseRelease(button, Qt::LeftButton);
    EXPECT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(clicks, 0);
    EXPECT_TRUE(first->hasFocus());
}

TEST_F(Fields, TwoRefusedFieldsDoNotFightForTheFocus)
{
    second->setText("99"); // as read from the controller
    person.whileShown = [&] { second->setFocus(); };
    type(first, "7");
    second->setFocus();
    settle();
    EXPECT_EQ(person.boxes.size(), 1U);
    person.whileShown = {};
    EXPECT_TRUE(first->hasFocus());

    QTest::keyClicks(first, "300");
    second->setFocus();
    first->setFocus();
    settle();
    EXPECT_EQ(person.boxes.size(), 2U);
    EXPECT_EQ(person.boxes[1].text, "Only a Number Between 10 and 30 can be Entered");
    EXPECT_TRUE(second->hasFocus());
    EXPECT_EQ(stored, (Stored{"300=300", "300=300"}));
}

TEST_F(Fields, EscapeOnceUndoesTwiceEndsTheEditing)
{
    type(first, "31");
    QTest::keyClick(first, Qt::Key_Escape);
    EXPECT_EQ(first->text(), "200");
    EXPECT_TRUE(first->hasFocus());
    EXPECT_TRUE(first->beingEdited());

    QTest::keyClicks(first, "32"); // another key disarms the second Escape
    QTest::keyClick(first, Qt::Key_Escape);
    EXPECT_TRUE(first->hasFocus());
    QTest::keyClick(first, Qt::Key_Escape);
    EXPECT_TRUE(sink->hasFocus());
    EXPECT_FALSE(first->beingEdited());
    EXPECT_EQ(first->text(), "200");
    EXPECT_TRUE(stored.empty());
    EXPECT_TRUE(person.boxes.empty());
}

TEST_F(Fields, RefreshesKeepOffWhileEditing)
{
    type(first, "31");
    first->showValue("444");
    EXPECT_EQ(first->text(), "31");
    QTest::keyClick(first, Qt::Key_Escape);
    QTest::keyClick(first, Qt::Key_Escape);
    first->showValue("444");
    EXPECT_EQ(first->text(), "444");
    EXPECT_EQ(first->undoValue(), 444);
}

TEST_F(Fields, AnArrowStepsOnceAndGivesTheFocusAway)
{
    clickUp(first);
    EXPECT_EQ(stored, Stored{"step 201"});
    EXPECT_EQ(first->text(), "201");
    EXPECT_TRUE(sink->hasFocus());
    EXPECT_FALSE(first->beingEdited());
}

struct StepCase
{
    const char* shown;
    Qt::Key key;
    const char* stepped;
};

class Steps : public Fields, public testing::WithParamInterface<StepCase>
{
};

TEST_P(Steps, StayWithinTheLimitsAndKeepTheFocus)
{
    first->setText(GetParam().shown);
    first->setFocus();
    QTest::keyClick(first, GetParam().key);
    EXPECT_EQ(first->text(), GetParam().stepped);
    EXPECT_TRUE(first->hasFocus());
    EXPECT_EQ(stored.size(), QString(GetParam().shown) == GetParam().stepped ? 0U : 1U);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, Steps,
    testing::Values(StepCase{"200", Qt::Key_Up, "201"}, StepCase{"200", Qt::Key_Down, "199"},
                    StepCase{"200", Qt::Key_PageUp, "210"}, StepCase{"650", Qt::Key_Up, "650"},
                    StepCase{"645", Qt::Key_PageUp, "650"}, StepCase{"700", Qt::Key_Down, "650"},
                    StepCase{"abc", Qt::Key_Up, "140"}, StepCase{"-", Qt::Key_Down, "140"}));

TEST_F(Fields, AStepByKeyIsNotATypedEntry)
{
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Up);
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_EQ(stored, Stored{"step 201"});

    first->setFocus();
    QTest::keyClick(first, Qt::Key_Up);
    QTest::keyClicks(first, "300");
    EXPECT_TRUE(first->beingEdited());
    QTest::keyClick(first, Qt::Key_Escape);
    EXPECT_EQ(first->text(), "202");
}

TEST_F(Fields, TheWheelTurnsOnlyTheFocusedField)
{
    const auto turnWheel = [this] {
        QWheelEvent turn(QPointF(5, 5), first->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, 120), {},
                         {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(first, &turn);
    };
    turnWheel();
    EXPECT_EQ(first->text(), "200");
    first->setFocus();
    turnWheel();
    EXPECT_EQ(first->text(), "201");
    EXPECT_TRUE(first->hasFocus());
}

TEST_F(Fields, AVisitToTheMenuOrToAnotherWindowIsNoLeave)
{
    for (const Qt::FocusReason reason :
         {Qt::MenuBarFocusReason, Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
        type(first, "7");
        QFocusEvent out(QEvent::FocusOut, reason);
        QApplication::sendEvent(first, &out);
        QFocusEvent in(QEvent::FocusIn, reason);
        QApplication::sendEvent(first, &in);
        settle();
        EXPECT_EQ(first->text(), "7");
        EXPECT_EQ(first->undoValue(), 200);
        EXPECT_TRUE(first->beingEdited());
        QTest::keyClick(first, Qt::Key_Escape);
        QTest::keyClick(first, Qt::Key_Escape);
    }
    EXPECT_TRUE(person.boxes.empty());
    EXPECT_TRUE(stored.empty());
}

TEST_F(Fields, AVisitToTheMenuBarMayEndElsewhere)
{
    type(first, "300");
    window.menuBar()->setFocus(Qt::MenuBarFocusReason);
    EXPECT_TRUE(stored.empty());
    box->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(stored, (Stored{"300=300", "300=300"}));
}

TEST_F(Fields, AnEntryCanBeFinishedFromOutside)
{
    type(first, "7");
    EXPECT_FALSE(first->finishEditing());
    EXPECT_FALSE(first->finishEditing());
    settle();
    EXPECT_EQ(person.boxes.size(), 1U);
    QTest::keyClicks(first, "300");
    EXPECT_TRUE(first->finishEditing());
    EXPECT_EQ(stored, (Stored{"300=300", "300=300"}));
}

TEST_F(Fields, AnEndedEditIsNeitherCheckedNorStored)
{
    type(first, "7");
    first->endEditing();
    second->setFocus();
    settle();
    EXPECT_TRUE(person.boxes.empty());
    EXPECT_TRUE(stored.empty());
}

} // namespace
} // namespace tambrix
