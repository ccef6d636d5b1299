#pragma once

#include "controls/numeric_entry_field.h"
#include "shell/screen.h"
#include "tests/support/control_named.h"
#include "tests/support/press_rig.h"
#include "tests/support/wire_writes.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

#include <memory>

namespace tambrix {

/// A screen in front of a press on a test bench, with a person at the keyboard.
template <typename Concrete> class ScreenRig : public testing::Test
{
protected:
    /// Shows the screen in the mode that the link is in.
    void open()
    {
        m_screen = std::make_unique<Concrete>(rig.state);
        m_screen->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_screen.get()));
        m_screen->activate();
        pass();
    }

    void openOnline()
    {
        rig.goOnline();
        open();
    }

    void goOffline() { rig.state.setOnline(false); }

    Concrete& screen() { return *m_screen; }

    /// Lets the screen make at least one whole pass. Off line passes are a while apart, so there
    /// the screen is entered anew.
    void pass()
    {
        PressRig::turns(kTurnsOfTwoPasses);
        if (rig.state.gLink.OnlineMode)
            return;
        m_screen->deactivate();
        m_screen->activate();
        PressRig::turns(kTurnsOfTwoPasses);
    }

    NumericEntryField& field(const char* name) { return control<NumericEntryField>(name); }
    QString text(const char* name) { return field(name).text(); }
    QString label(const char* name) { return control<QLabel>(name).text(); }
    QAbstractButton& button(const char* name) { return control<QAbstractButton>(name); }

    void type(const char* name, const char* typed)
    {
        field(name).setFocus();
        QTest::keyClicks(&field(name), QLatin1String(typed));
    }

    void enter(const char* name, const char* typed)
    {
        type(name, typed);
        QTest::keyClick(&field(name), Qt::Key_Return);
        QCoreApplication::processEvents();
    }

    /// Presses and releases a button before any other event is served.
    void clickAtOnce(const char* name) { QTest::mouseClick(&button(name), Qt::LeftButton); }

    /// What a screen reader does with a check box.
    void toggleByReader(const char* name)
    {
        QAccessible::queryAccessibleInterface(&button(name))
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::toggleAction());
    }

    /// What a screen reader says.
    QString spoken(const char* name)
    {
        return QAccessible::queryAccessibleInterface(&control<QWidget>(name))
            ->text(QAccessible::Name);
    }

    /// Clicks the upper or lower arrow of a field's spinner.
    void clickArrow(const char* name, bool up)
    {
        NumericEntryField& clicked = field(name);
        const int y = up ? clicked.height() / 4 : clicked.height() * 3 / 4;
        QTest::mouseClick(&clicked, Qt::LeftButton, {}, QPoint(clicked.width() - 6, y));
    }

    std::int32_t slot(int index)
    {
        return rig.state.gWorkingData.Value.at(static_cast<std::size_t>(index));
    }

    template <typename Control> Control& control(const char* name)
    {
        return controlNamed<Control>(*m_screen, name);
    }

    PressRig rig;
    WireWrites wire{rig.line};

private:
    static constexpr int kTurnsOfTwoPasses = 60;

    std::unique_ptr<Concrete> m_screen;
};

} // namespace tambrix
