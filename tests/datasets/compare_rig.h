#pragma once

#include "data/setup_file.h"
#include "data/whole_file.h"
#include "datasets/compare_window.h"
#include "simulator/memory_map.h"
#include "tests/support/press_rig.h"

#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

namespace tambrix {

/// The compare window over a stopped press whose whole memory agrees with the working data, but
/// for what a test changes.
struct CompareRig : PressRig
{
    CompareRig()
    {
        board.press().stop();
        line.setBaud(0);
        const SetupDataRecord& data = state.gWorkingData;
        for (std::size_t i = 0; i < data.Address.size(); ++i)
            poke(data.Address[i], data.Value[i]);
        goOnline();
    }

    void poke(const std::string& address, int value)
    {
        const auto place = static_cast<std::uint16_t>(std::stoi(address.substr(1)));
        if (address.front() == 'B')
            board.poke(place, static_cast<std::uint8_t>(value));
        else if (address.front() == 'W')
            board.pokeWord(place, static_cast<std::uint16_t>(value));
    }

    int peek(const std::string& address) const
    {
        const auto place = static_cast<std::uint16_t>(std::stoi(address.substr(1)));
        return address.front() == 'B' ? board.peek(place) : board.peekWord(place);
    }

    void open()
    {
        window = std::make_unique<CompareWindow>(state);
        window->setModal(true);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    /// Lets what runs come to its end, a turn at a time and without pauses.
    bool settle()
    {
        for (int turn = 0; window->session().running() && turn < 20'000; ++turn)
            QCoreApplication::processEvents();
        return !window->session().running();
    }
    void compare()
    {
        window->session().compare();
        ASSERT_TRUE(settle());
    }
    void press(const char* name)
    {
        window->findChild<QPushButton*>(QLatin1String(name))->click();
        ASSERT_TRUE(settle());
    }
    QString summary() const { return window->findChild<QLabel*>("lblSummary")->text(); }

    CompareTree& tree() { return window->tree(); }
    /// A row by the titles that lead to it, from the top.
    QModelIndex row(const QStringList& titles)
    {
        QModelIndex found;
        for (const QString& title : titles) {
            QModelIndex next;
            for (int r = 0; r < tree().rowCount(found); ++r) {
                const QModelIndex child = tree().index(r, 0, found);
                if (child.data().toString().startsWith(title))
                    next = child;
            }
            EXPECT_TRUE(next.isValid()) << title.toStdString();
            found = next;
        }
        return found;
    }
    QString cell(const QStringList& titles, CompareTree::Column column)
    {
        return row(titles).siblingAtColumn(column).data().toString();
    }
    QVariant tick(const QStringList& titles) { return row(titles).data(Qt::CheckStateRole); }
    void click(const QStringList& titles, Qt::CheckState to = Qt::Checked)
    {
        tree().setData(row(titles), to, Qt::CheckStateRole);
    }

    std::unique_ptr<CompareWindow> window;
};

} // namespace tambrix
