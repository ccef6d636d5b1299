#include "controls/numeric_entry_field.h"

#include "data/typed_number.h"
#include "tests/support/scripted_prompts.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QProxyStyle>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace tambrix {
namespace {

using Stored = std::vector<std::string>;

TEST(EntryText, IsReadAsANumber)
{
    struct Case
    {
        const char* text;
        double leading;
        std::int32_t rounded; // halves to even
        std::optional<double> whole;
    };
    const Case cases[] = {{"  300 ", 300, 300, 300.0},
                          {"149.5", 149.5, 150, 149.5},
                          {"150.5", 150.5, 150, 150.5},
                          {"-.5", -0.5, 0, -0.5},
                          {"+5.", 5, 5, 5.0},
                          {"9999999999", 9999999999, 2147483647, 9999999999},
                          {"12abc", 12, 12, {}},
                          {"", 0, 0, {}},
                          {"1,200", 1, 1, {}},
                          {"1e2", 1, 1, {}},
                          {"nan", 0, 0, {}},
                          {"12\n", 12, 12, {}},
                          {"\xD9\xA3", 0, 0, {}}};
    for (const Case& c : cases) {
        const QString text = QString::fromUtf8(c.text);
        EXPECT_DOUBLE_EQ(leadingNumber(text), c.leading) << c.text;
        EXPECT_EQ(roundedHalfToEven(leadingNumber(text)), c.rounded) << c.text;
        EXPECT_EQ(numericText(text), c.whole) << c.text;
    }
}

/// Two fields, a button and the focus sink in a window with a menu bar.
class Fields : public testing::Test
{
protected:
    void SetUp() override
    {
        window.menuBar()->addMenu("&File");
        auto* body = new QWidget;
        auto* layout = new QVBoxLayout(body);
        for (QWidget* widget : std::initializer_list<QWidget*>{sink, first, second, button})
            layout->addWidget(widget);
        window.setCentralWidget(body);
        first->setText("200");
        second->setText("20");
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        sink->setFocus();
    }

    EntryRules rules(const EntryRange& range)
    {
        EntryRules rules;
        rules.title = "Set-up";
        rules.limits = [&range] { return range; };
        rules.store = [this](const QString& text, std::int32_t value) {
            stored.push_back(text.toStdString() + "=" + std::to_string(value));
        };
        rules.step = [this](const QString& text, std::int32_t) {
            stored.push_back("step " + text.toStdString());
            afterStep();
        };
        return rules;
    }

    void type(NumericEntryField* field, const QString& text)
    {
        field->setFocus();
        QTest::keyClicks(field, text);
    }

    void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    QLineEdit* edit(NumericEntryField* field) const { return field->findChild<QLineEdit*>(); }
    static void settle() { QCoreApplication::processEvents(); }

    /// One box, the old text, selected, and the focus back on the first field.
    void expectRefused()
    {
        settle();
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_EQ(person.boxes[0].icon, BoxIcon::Information);
        EXPECT_EQ(person.boxes[0].title, "Set-up");
        EXPECT_EQ(person.boxes[0].text, "Only a Number Between 140 and 650 can be Entered");
        EXPECT_TRUE(first->hasFocus());
        EXPECT_TRUE(first->beingEdited());
        EXPECT_EQ(edit(first)->selectedText(), "200");
        EXPECT_TRUE(stored.empty());
        person.boxes.clear();
    }

    ScriptedPrompts person;
    QMainWindow window;
    QPushButton* sink = new QPushButton("-");
    EntryRange limits{140, 650};
    EntryRange secondLimits{10, 30};
    std::function<void()> afterStep = [] {};
    Stored stored; ///< what both fields have stored or stepped to
    NumericEntryField* first = new NumericEntryField(person, *sink, rules(limits));
    NumericEntryField* second = new NumericEntryField(person, *sink, rules(secondLimits));
    QPushButton* button = new QPushButton("go");
};

TEST_F(Fields, AValidEntryMovesOnAndIsStoredTwice)
{
    const std::pair<const char*, const char*> cases[] = {
        {"140", "140=140"}, {"650", "650=650"}, {"149.5", "149.5=150"}, {" 150 ", " 150 =150"}};
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab}) {
        for (const auto& [typed, kept] : cases) {
            sink->setFocus();
            stored.clear();
            type(first, typed);
            press(key);
            settle();
            EXPECT_EQ(stored, (Stored{kept, kept}));
            EXPECT_TRUE(second->hasFocus());
            EXPECT_FALSE(first->beingEdited());
            EXPECT_TRUE(person.boxes.empty());
        }
    }
}

TEST_F(Fields, AnEntryBeyondTheLimitsIsRefusedWithOneBoxHoweverTheFocusWasToLeave)
{
    int clicks = 0;
    QObject::connect(button, &QPushButton::clicked, [&] { ++clicks; });
    const auto pressTab = [&] { press(Qt::Key_Tab); };
    const std::pair<QString, std::function<void()>> cases[] = {
        {"139.9", pressTab},
        {"650.5", pressTab},
        {"200x", pressTab},
        {QString(400, u'9'), [&] { press(Qt::Key_Return); }},
        {"-200", [&] { press(Qt::Key_Backtab); }},
        {"7", [&] { QTest::mouseClick(edit(second), Qt::LeftButton); }},
        {"7",
         [&] {
             press(Qt::Key_Tab);
             press(Qt::Key_Tab);
         }},
        {"7", [&] {
             QTest::mousePress(button, Qt::LeftButton);
             settle();
             QTest::mouseRelease(button, Qt::LeftButton);
         }}};
    for (const auto& [typed, leave] : cases) {
        SCOPED_TRACE(qPrintable(typed));
        type(first, typed);
        leave();
        expectRefused();
        settle();
        EXPECT_TRUE(person.boxes.empty()) << "a second one";
    }
    EXPECT_EQ(clicks, 0) << "the click that leaves does not count";
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

TEST_F(Fields, RefreshesKeepOffUntilTheSecondEscape)
{
    type(first, "3");
    QTest::mouseClick(edit(first), Qt::LeftButton);
    EXPECT_EQ(first->undoValue(), 3) << "a click in the field enters it anew";
    type(first, "31");
    first->showValue("444");
    EXPECT_EQ(first->text(), "31");
    press(Qt::Key_Escape);
    EXPECT_EQ(edit(first)->selectedText(), "3");
    QTest::keyClicks(first, "32"); // another key disarms the second Escape
    press(Qt::Key_Escape);
    EXPECT_TRUE(first->hasFocus());
    press(Qt::Key_Escape);
    EXPECT_TRUE(sink->hasFocus());
    EXPECT_EQ(first->text(), "3");
    EXPECT_TRUE(stored.empty());
    first->showValue("444");
    EXPECT_EQ(first->text(), "444");
    EXPECT_EQ(first->undoValue(), 444);
}

TEST_F(Fields, AStepChangesTheValueByOneWithinTheLimitsOfNow)
{
    struct Case
    {
        const char* shown;
        const char* typed; // after it; nothing if empty
        Qt::Key key;
        const char* stepped;
        std::size_t stored;
        std::size_t boxes;
    };
    const Case cases[] = {
        {"200", "", Qt::Key_Up, "201", 1, 0},     {"200", "", Qt::Key_Down, "199", 1, 0},
        {"200", "300", Qt::Key_Up, "301", 1, 0},  {"200", " ", Qt::Key_Up, "201", 1, 0},
        {"200", "30.5", Qt::Key_Up, "201", 1, 0}, {"650", "", Qt::Key_Up, "650", 0, 0},
        {"-", "", Qt::Key_Down, "649", 1, 0},     {"700", "", Qt::Key_Down, "700", 0, 1},
        {"200", "9999", Qt::Key_Up, "200", 0, 1}, {"139", "", Qt::Key_Up, "139", 0, 1},
        {"200", "", Qt::Key_PageUp, "200", 0, 0}, {"200", "", Qt::Key_PageDown, "200", 0, 0}};
    first->setFocus();
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.shown << " " << c.typed);
        stored.clear();
        person.boxes.clear();
        first->endEditing();
        first->setText(c.shown);
        edit(first)->selectAll();
        QTest::keyClicks(first, c.typed);
        press(c.key);
        settle();
        EXPECT_EQ(first->text(), c.stepped);
        EXPECT_TRUE(first->hasFocus());
        EXPECT_EQ(stored.size(), c.stored);
        EXPECT_EQ(person.boxes.size(), c.boxes);
    }
    stored.clear();
    QWheelEvent turn(QPointF(5, 5), first->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, 120), {}, {},
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(first, &turn);
    EXPECT_TRUE(stored.empty());
    limits = {140, 201};
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    press(Qt::Key_Tab);
    EXPECT_EQ(stored, Stored{"step 201"}) << "nor is a step a typed entry";
    type(first, "180");
    press(Qt::Key_Tab);
    EXPECT_EQ(stored.back(), "180=180") << "but one may follow it";
}

TEST_F(Fields, RepetitionsOfAHeldKeyThatCameDuringAStepAreDropped)
{
    first->setFocus();
    for (int i = 0; i < 8; ++i) // the window system's queue after a slow write
        QCoreApplication::postEvent(
            first, new QKeyEvent(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier, {}, i > 0));
    QCoreApplication::sendPostedEvents(first);
    EXPECT_EQ(stored, Stored{"step 201"});
    settle();
    QKeyEvent late(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier, {}, true);
    QApplication::sendEvent(first, &late);
    EXPECT_EQ(stored.back(), "step 202");
}

/// Arrows that repeat without delay.
class QuickArrows : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override
    {
        const bool repeat =
            hint == SH_SpinBox_ClickAutoRepeatThreshold || hint == SH_SpinBox_ClickAutoRepeatRate;
        return repeat ? 1 : QProxyStyle::styleHint(hint, option, widget, result);
    }
};

TEST_F(Fields, AHeldArrowGoesOnUntilABoxOpens)
{
    QuickArrows style;
    first->setStyle(&style);
    QDialog box;
    box.setModal(true);
    afterStep = [&] { box.setVisible(stored.size() == 3); };
    const QPoint arrow = first->mapTo(&window, QPoint(first->width() - 5, first->height() / 4));
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, arrow);
    EXPECT_TRUE(sink->hasFocus());
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.isVisible(); }));
    QTest::qWait(20);
    box.close();
    QTest::qWait(20);
    EXPECT_EQ(stored.size(), 3U) << "the box has swallowed the release of the mouse";
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, arrow);
    first->setStyle(nullptr);
}

TEST_F(Fields, AVisitToTheMenuOrToAnotherWindowIsNoLeave)
{
    for (const Qt::FocusReason reason :
         {Qt::MenuBarFocusReason, Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
        type(first, "7");
        for (const QEvent::Type type : {QEvent::FocusOut, QEvent::FocusIn}) {
            QFocusEvent visit(type, reason);
            QApplication::sendEvent(first, &visit);
        }
        settle();
        EXPECT_EQ(first->text(), "7");
        EXPECT_EQ(first->undoValue(), 200);
        first->endEditing();
    }
    EXPECT_TRUE(person.boxes.empty());
    sink->setFocus();
    type(first, "300");
    window.menuBar()->setFocus(Qt::MenuBarFocusReason);
    EXPECT_TRUE(stored.empty());
    button->setFocus(Qt::MouseFocusReason); // but it may end elsewhere
    EXPECT_EQ(stored, (Stored{"300=300", "300=300"}));
}

} // namespace
} // namespace tambrix
