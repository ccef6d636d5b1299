#include "datasets/labels_window.h"

#include "controls/named_controls.h"
#include "data/whole_file.h"
#include "datasets/plan_dialog.h"
#include "tests/datasets/compare_rig.h"
#include "tests/support/control_named.h"
#include "tests/support/modal_watch.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QTreeView>

using namespace tambrix;

namespace {

using Shown = LabelsModel::Shown;

struct LabelsTest : testing::Test, PressRig
{
    std::vector<int> sent;
    std::unique_ptr<LabelsWindow> window;

    LabelsTest()
    {
        state.gOfflineEditing = true;
        state.labelNames.set(6, "Beer gold");
        set(6, 2, 76);
        window = std::make_unique<LabelsWindow>(
            state, LabelsHooks{[this](const auto& labels) { sent = labels; }, {}, {}});
        window->show();
    }

    void set(int label, int entry, int value)
    {
        state.gWorkingData.Value[static_cast<std::size_t>(labelBase(label) + entry)] = value;
    }
    int value(int label, int entry) const
    {
        return state.gWorkingData.Value[static_cast<std::size_t>(labelBase(label) + entry)];
    }

    QModelIndex cell(int label, int column) { return window->model().index(label, column); }
    static int ductor(int number) { return LabelsModel::FirstDuctor + number - 1; }

    template <typename Control> Control& control(const char* name)
    {
        return controlNamed<Control>(*window, name);
    }
    void press(const char* name) { control<QPushButton>(name).click(); }
    void show(Shown shown) { press(qPrintable(arrayName("cmdShown", static_cast<int>(shown)))); }

    void select(const QModelIndex& from, const QModelIndex& to)
    {
        window->view().selectionModel()->select({from, to}, QItemSelectionModel::ClearAndSelect);
    }
    void paste(const QString& text)
    {
        QApplication::clipboard()->setText(text);
        window->paste();
    }
    QString note() { return control<QLabel>("lblNote").text(); }
    bool hidden(int label) { return window->view().isRowHidden(label); }

    /// Types into a cell as a person does.
    void type(const QModelIndex& place, const char* text)
    {
        window->view().setCurrentIndex(place);
        window->view().edit(place);
        auto* editor = window->view().findChild<QLineEdit*>(QString());
        ASSERT_NE(editor, nullptr);
        editor->setText(QLatin1String(text));
        QTest::keyClick(editor, Qt::Key_Return);
        PressRig::turns(5);
    }
};

} // namespace

TEST_F(LabelsTest, ShowOnCycleDensityAndWhatIsWrong)
{
    EXPECT_EQ(cell(6, ductor(3)).data().toString(), "49.4");
    EXPECT_NEAR(cell(6, ductor(3)).data(LabelsModel::ShareRole).toDouble(), 0.494, 0.001);
    show(Shown::On);
    EXPECT_EQ(cell(6, ductor(3)).data().toString(), "76");
    show(Shown::Cycle);
    EXPECT_EQ(cell(6, ductor(3)).data().toString(), "200");
    EXPECT_FALSE(cell(6, ductor(3)).data(LabelsModel::ProblemRole).toBool());
    state.edit("Limit", {{{reg::kMaximumOn.slot, 70}, {kCurrentLabelSlot, 6}}, {}, {}});
    show(Shown::On);
    EXPECT_TRUE(cell(6, ductor(3)).data(LabelsModel::ProblemRole).toBool());
    EXPECT_TRUE(cell(6, 0).data(LabelsModel::CurrentRole).toBool());
    EXPECT_EQ(cell(6, ductor(3)).data(Qt::AccessibleTextRole).toString(),
              "Label 6, ductor 3 ON: 76. Problem: Label 6 ON Duration, Ductor 3: 76 is above "
              "Maximum ON Duration 70; 0 when the label is loaded");

    press("cmdProblems");
    show(Shown::Density);
    auto& list = control<QListWidget>("lstProblems");
    ASSERT_EQ(list.count(), 1);
    emit list.itemClicked(list.item(0));
    EXPECT_EQ(window->view().currentIndex(), cell(6, ductor(3)));
    EXPECT_EQ(window->model().shown(), Shown::On);
    EXPECT_EQ(control<QLabel>("lblShownName").text(), "Beer gold");
    EXPECT_EQ(control<QLabel>("lblLabelDensity(2)").text(), "70.6%");
}

TEST_F(LabelsTest, ATypedValueFollowsTheScreensRules)
{
    show(Shown::On);
    type(cell(6, ductor(3)), " 140 ");
    EXPECT_EQ(value(6, 2), 140);
    EXPECT_EQ(window->view().currentIndex(), cell(7, ductor(3))) << "Enter goes down";
    type(cell(6, ductor(3)), "141");
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].title, "Color Control");
    EXPECT_EQ(person.boxes[0].text, "Only a Number Between 0 and 140 can be Entered");
    EXPECT_EQ(value(6, 2), 140);
    show(Shown::Cycle);
    EXPECT_FALSE(window->model().setData(cell(6, ductor(3)), "199", Qt::EditRole));
    EXPECT_TRUE(window->model().setData(cell(6, ductor(3)), "260", Qt::EditRole));
    EXPECT_TRUE(window->model().setData(cell(6, LabelsModel::Name), "Gold", Qt::EditRole));
    EXPECT_TRUE(window->model().setData(cell(6, LabelsModel::Name), "Gold", Qt::EditRole));
    EXPECT_EQ(state.undoStack.count(), 3) << "what changes nothing is no step";
    for (int step = 0; step < 3; ++step)
        press("cmdUndo");
    EXPECT_EQ(value(6, 2), 76);
    EXPECT_EQ(value(6, 10), 200);
    EXPECT_EQ(state.labelNames.of(6), "Beer gold");
    press("cmdRedo");
    EXPECT_EQ(value(6, 2), 140);

    show(Shown::Density);
    EXPECT_FALSE(window->model().setData(cell(6, ductor(3)), "1", Qt::EditRole));
    state.announceNewData();
    EXPECT_FALSE(control<QPushButton>("cmdUndo").isEnabled());
}

TEST_F(LabelsTest, IsReadOnlyOnLineAndUntilEditingIsEnabled)
{
    show(Shown::On);
    state.edit("Step", {{{kCurrentLabelSlot, 5}}, {}, {}});
    EXPECT_TRUE(control<QPushButton>("cmdUndo").isEnabled());
    for (const bool online : {false, true}) {
        state.gOfflineEditing = online;
        state.setOnline(online);
        const char* const reason = online ? "On line the table is read-only" : "Enable Offline";
        ASSERT_TRUE(eventually([&] { return note().contains(reason); })) << reason;
        EXPECT_FALSE(cell(6, ductor(3)).flags().testFlag(Qt::ItemIsEditable));
        for (const char* button : {"cmdUndo", "cmdScale", "cmdImport"})
            EXPECT_FALSE(control<QPushButton>(button).isEnabled()) << button;
        select(cell(6, ductor(3)), cell(6, ductor(3)));
        person.boxes.clear();
        paste("1");
        ASSERT_EQ(person.boxes.size(), 1U) << "it says why";
        EXPECT_EQ(value(6, 2), 76);
    }
    select(cell(6, 0), cell(8, 2));
    press("cmdSend");
    EXPECT_EQ(sent, (std::vector<int>{6, 7, 8}));
}

TEST_F(LabelsTest, CopyAndPasteAsASpreadsheetDoes)
{
    show(Shown::On);
    state.labelNames.set(7, "=1+1");
    select(cell(6, LabelsModel::Label), cell(7, LabelsModel::Columns - 1));
    window->copy();
    EXPECT_EQ(QApplication::clipboard()->text(), "6\tBeer gold\t0\t0\t76\t0\t0\t0\t0\t0\r\n"
                                                 "7\t'=1+1\t0\t0\t0\t0\t0\t0\t0\t0\r\n");
    select(cell(20, LabelsModel::Label), cell(20, LabelsModel::Label));
    window->paste();
    EXPECT_EQ(value(20, 2), 76);
    EXPECT_EQ(state.labelNames.of(21), "=1+1");
    EXPECT_EQ(state.undoStack.count(), 1);

    select(cell(30, ductor(1)), cell(33, ductor(2)));
    paste("25");
    EXPECT_EQ(value(30, 0) + value(33, 1), 50);
    select(cell(30, ductor(1)), cell(30, ductor(1)));
    paste("1\t1\t1\t1\t1\t1\t1\t1\t270\r\n"); // behind the last ON stands the first CYCLE
    EXPECT_EQ(value(30, 7), 1);
    EXPECT_EQ(value(30, 8), 270);
    select(cell(99, ductor(1)), cell(99, ductor(1)));
    paste("1\n2");
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(value(99, 0), 0);
}

TEST_F(LabelsTest, WhatBreaksRulesIsShownFirst)
{
    show(Shown::On);
    select(cell(6, ductor(1)), cell(6, ductor(1)));
    for (const char* button : {"cmdCancel", "cmdOk"}) {
        const ModalWatch<PlanDialog> watch([button](PlanDialog& dialog) {
            EXPECT_EQ(dialog.findChild<QListWidget*>("lstObjections")->count(), 2);
            EXPECT_EQ(dialog.findChild<QLabel*>("lblPlan")->text(),
                      "1 value will change. 2 are not allowed and stay as they are:");
            dialog.findChild<QPushButton*>(button)->click();
        });
        EXPECT_EQ(value(6, 0), 0);
        paste("10\t1,5\t141");
        EXPECT_TRUE(watch.seen());
    }
    EXPECT_EQ(value(6, 0), 10);
    EXPECT_EQ(value(6, 2), 76);

    const ModalWatch<ScaleDialog> scale([](ScaleDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>("txtLabels")->text(), "6");
        dialog.findChild<QLineEdit*>("txtPercent")->setText("x");
        EXPECT_FALSE(dialog.findChild<QPushButton*>("cmdOk")->isEnabled());
        dialog.findChild<QLineEdit*>("txtDuctors")->setText("1-3");
        dialog.findChild<QLineEdit*>("txtPercent")->setText("200");
        EXPECT_EQ(dialog.plan().objections.size(), 1);
        dialog.findChild<QPushButton*>("cmdOk")->click();
    });
    press("cmdScale");
    EXPECT_EQ(value(6, 0), 20);
    EXPECT_EQ(value(6, 2), 140);
    const ModalWatch<CopyLabelDialog> copy([](CopyLabelDialog& dialog) {
        dialog.findChild<QLineEdit*>("txtLabels")->setText("9-11");
        dialog.findChild<QPushButton*>("cmdOk")->click();
    });
    window->view().setCurrentIndex(cell(6, 1));
    press("cmdCopyLabel");
    EXPECT_EQ(value(11, 2), 140);
    EXPECT_EQ(state.undoStack.count(), 3);
}

TEST_F(LabelsTest, FindHidesTheOthersAndLeavesThemAlone)
{
    show(Shown::On);
    set(40, 0, 30);
    control<QLineEdit>("txtFind").setText("ON > 20");
    EXPECT_FALSE(hidden(6) || hidden(40));
    EXPECT_TRUE(hidden(7));
    EXPECT_TRUE(note().startsWith("2 of 100 labels shown."));
    select(cell(6, ductor(1)), cell(40, ductor(1)));
    set(6, 0, 25);
    window->findChild<QAction*>("mnuFillDown")->trigger();
    EXPECT_EQ(value(40, 0), 25);
    EXPECT_EQ(value(7, 0), 0) << "not to be seen";
    paste("1\r\n2\r\n");
    EXPECT_EQ(value(40, 0), 2);
    EXPECT_EQ(value(7, 0), 0);
    control<QLineEdit>("txtFind").setText("nobody");
    EXPECT_EQ(note(), "No label is like this.");
    control<QLineEdit>("txtFind").clear();
    control<QCheckBox>("chkHideUnused").setChecked(true);
    EXPECT_TRUE(hidden(7));
    EXPECT_EQ(control<QCheckBox>("chkHideUnused").text(), "&Hide 98 unused");
}

TEST_F(LabelsTest, ExportedDataComeBackAsOneStep)
{
    set(99, 15, 499);
    state.labelNames.set(99, "a\"b\", =c");
    const SetupDataRecord data = state.gWorkingData;
    const LabelNames names = state.labelNames;
    for (const char* name : {"a.csv", "a.json"}) {
        const QString path = folder.filePath(name);
        person.chosenFiles.assign({path, path});
        press("cmdExport");
        state.gWorkingData = state.gDefaultData;
        state.labelNames = {};
        press("cmdImport");
        EXPECT_EQ(state.gWorkingData, data);
        EXPECT_EQ(state.labelNames, names);
        state.undoStack.undo();
        EXPECT_EQ(state.gWorkingData, state.gDefaultData);
        state.undoStack.redo();
    }
    EXPECT_TRUE(person.boxes.empty());
    const QString junk = folder.filePath("junk.csv");
    ASSERT_FALSE(writeWholeFile(junk, "TAMBRIX data set,1,V\r\njunk"));
    person.chosenFiles.assign({junk});
    press("cmdImport");
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_NE(person.boxes[0].text.find("Line 2, column 1"), std::string::npos);
    EXPECT_EQ(state.gWorkingData, data);
}

TEST(SendLabels, OpensTheComparisonWithThemTicked)
{
    CompareRig rig;
    for (int place = 3100; place < 3200; ++place) // labels 0 to 3
        rig.poke("B" + std::to_string(place), 5);
    rig.poke("B3282", 80); // label 6
    rig.open();
    rig.window->session().compareOnly({"B3282", "B3283"});
    ASSERT_TRUE(rig.settle());
    EXPECT_EQ(rig.tick({"Labels", "Label 6", "Ductor 3 ON"}), Qt::Checked);
    EXPECT_EQ(rig.tick({"Labels", "Label 0", "Ductor 1 ON"}), Qt::Unchecked);
    const auto& view = *rig.window->findChild<QTreeView*>();
    EXPECT_TRUE(view.viewport()->rect().contains(
        view.visualRect(rig.row({"Labels", "Label 6", "Ductor 3 ON"}))));
}
