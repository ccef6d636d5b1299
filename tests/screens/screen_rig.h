#pragma once

#include "controls/numeric_entry_field.h"
#include "shell/screen.h"
#include "tests/support/press_rig.h"
#include "tests/support/wire_writes.h"

#include <QAbstractButton>
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

    void goOffline()
    {
        rig.state.gLink.OnlineMode = false;
        rig.state.ApplyOnlineMode();
    }

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

    NumericEntryField& field(const char* name) { return *find<NumericEntryField>(name); }
    QString text(const char* name) { return field(name).text(); }
    QString label(const char* name) { return find<QLabel>(name)->text(); }
    QAbstractButton& button(const char* name) { return *find<QAbstractButton>(name); }

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

    template <typename Control> Control* find(const char* name)
    {
        auto* found = m_screen->template findChild<Control*>(QLatin1String(name));
        if (found == nullptr)
            qFatal("no control %s", name);
        return found;
    }

    PressRig rig;
    WireWrites wire{rig.line};

private:
    static constexpr int kTurnsOfTwoPasses = 60;

    std::unique_ptr<Concrete> m_screen;
};

} // namespace tambrix
