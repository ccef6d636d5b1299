#include "shell/file_commands.h"

#include "data/setup_file.h"
#include "data/whole_file.h"
#include "shell/file_drop.h"
#include "shell/main_window.h"
#include "tests/support/press_rig.h"

#include <QAction>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include <gtest/gtest.h>

#include <tuple>

namespace tambrix {
namespace {

struct FileCommandsTest : testing::Test
{
    PressRig rig;
    MainWindow window{rig.state, {}, {}};
    FileCommands& files = window.files();
    ProgramState& state = rig.state;
    ScriptedPrompts& person = rig.person;

    QString path(const char* name) const { return rig.folder.filePath(name); }

    void pick(const char* menuItem) { window.findChild<QAction*>(menuItem)->trigger(); }

    /// Answers the coming boxes, and the file dialogs.
    void willAnswer(std::initializer_list<BoxAnswer> answers, std::initializer_list<QString> chosen)
    {
        person.answers.assign(answers);
        person.chosenFiles.assign(chosen);
        person.boxes.clear();
    }

    void edit(std::size_t entry, int value) { state.gWorkingData.Value[entry] = value; }

    /// A file that some press saved.
    QString fileWith(const char* name, const SetupDataRecord& record) const
    {
        EXPECT_FALSE(writeWholeFile(path(name), QByteArray::fromStdString(setupFileBytes(record))));
        return path(name);
    }

    SetupDataRecord otherData() const
    {
        SetupDataRecord record = state.gDefaultData;
        record.Value[14] = 77;
        record.Address[14] = "B4000";
        return record;
    }

    SetupDataRecord inFile(const QString& file) const
    {
        const auto content = readSetupFile(readWholeFile(file, 1 << 20).value().toStdString());
        return std::get<SetupDataRecord>(content);
    }

    std::vector<std::string> texts() const
    {
        std::vector<std::string> all;
        for (const OperatorBox& box : person.boxes)
            all.push_back(box.title + ": " + box.text);
        return all;
    }

    /// What a file dialog was asked for: filter, folder, name and suffix.
    QString asked(const FileQuestion& question) const
    {
        const QString folder = question.folder == rig.folder.path() ? "here" : question.folder;
        return QStringList{question.filter, folder, question.name, question.suffix}.join(' ');
    }

    const std::vector<std::string> saveQuestion = {"TAMBRIX: Save Changes to File?"};
};

TEST_F(FileCommandsTest, SaveAsksForANameOnceAndWritesTheProgramsVersion)
{
    willAnswer({}, {path("press 1.sdt")});
    edit(8, 444);
    state.gWorkingData.Version = "TAMBRIX_R0.9.0";
    pick("mnuFileSave");
    ASSERT_EQ(person.saveQuestions.size(), 1U);
    EXPECT_EQ(asked(person.saveQuestions[0]), "Setup Files(*.sdt)|*.sdt| here  sdt");
    EXPECT_EQ(window.windowTitle(), "TAMBRIX - [press 1.sdt]");
    EXPECT_EQ(inFile(path("press 1.sdt")).Version, state.gProgramVersion);
    EXPECT_FALSE(state.hasUnsavedChanges());

    state.gWorkingData.Address[3] = "elsewhere"; // no value: nothing to save
    EXPECT_FALSE(state.hasUnsavedChanges());
    edit(1613, 445);
    EXPECT_TRUE(state.hasUnsavedChanges());
    pick("mnuFileSave"); // has its name now
    EXPECT_EQ(person.saveQuestions.size(), 1U);
    EXPECT_EQ(inFile(path("press 1.sdt")), state.gWorkingData);
    EXPECT_EQ(state.gSavedData, state.gWorkingData);
    EXPECT_TRUE(person.boxes.empty());
}

TEST_F(FileCommandsTest, NamesOfLabelsGoWithTheFile)
{
    state.edit("Name", {{{14, 5}}, {{6, "Beer gold"}}, {}});
    state.undoStack.undo();
    EXPECT_TRUE(state.labelNames.isEmpty());
    EXPECT_FALSE(state.hasUnsavedChanges());
    state.undoStack.redo();
    willAnswer({BoxAnswer::Yes}, {path("a.sdt")});
    pick("mnuFileNew");
    EXPECT_EQ(texts(), saveQuestion) << "untitled names are asked for, too";
    EXPECT_TRUE(state.labelNames.isEmpty());
    EXPECT_FALSE(state.undoStack.canUndo());
    EXPECT_EQ(loadLabelNames(path("a.sdt")).names.of(6), "Beer gold");

    files.openFile(path("a.sdt"));
    EXPECT_EQ(state.labelNames.of(6), "Beer gold");
    EXPECT_FALSE(state.hasUnsavedChanges());
    willAnswer({}, {path("b.sdt")});
    pick("mnuFileSaveAs");
    EXPECT_EQ(loadLabelNames(path("b.sdt")).names.of(6), "Beer gold");

    ASSERT_FALSE(
        writeWholeFile(path("b.labels.csv"), "TAMBRIX label names,1\r\nLabel,Name\r\n6;x"));
    files.openFile(path("b.sdt"));
    EXPECT_EQ(state.gWorkingData.Value[14], 5) << "only the names are lost";
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_NE(texts()[0].find("Line 3, column 1"), std::string::npos) << texts()[0];
}

TEST_F(FileCommandsTest, AFileOpensWithoutAQuestionCutToItsLength)
{
    SetupDataRecord longer = otherData();
    longer.Address.resize(2000, "W9");
    longer.Value.resize(3000, 9);
    const QString file = fileWith("a.sdt", longer);
    willAnswer({}, {file});
    pick("mnuFileOpen");
    ASSERT_EQ(person.openQuestions.size(), 1U);
    EXPECT_EQ(asked(person.openQuestions[0]), "Setup Files(*.sdt)|*.sdt| here *.sdt sdt");
    EXPECT_TRUE(person.boxes.empty());
    EXPECT_EQ(state.gWorkingData, otherData());
    EXPECT_EQ(state.gSavedData, otherData());
    EXPECT_EQ(state.gFileNamePath, file);
    EXPECT_EQ(state.gUploadNOW.date(), QDate::currentDate());
    EXPECT_FALSE(state.gUntitled);
    EXPECT_EQ(window.windowTitle(), "TAMBRIX - [a.sdt]");
    pick("mnuFileNew");
    EXPECT_EQ(state.gWorkingData, state.gDefaultData);
    EXPECT_TRUE(state.gUntitled);
    EXPECT_EQ(window.windowTitle(), "TAMBRIX - [unnamed]");
}

TEST_F(FileCommandsTest, AnotherVersionIsTakenOnlyAfterAQuestion)
{
    SetupDataRecord old = otherData();
    old.Version = "TAMBRIX_R0.\xE9";
    old.Address.resize(1000);
    old.Value.resize(1000);
    const QString file = fileWith("old.sdt", old);
    const std::vector<std::string> question = {
        "TAMBRIX: File created by set-up program version: TAMBRIX_R0.\u00E9\r\n"
        "Data tables may not be properly aligned.\r\n\r\nDo you wish to continue?"};

    willAnswer({BoxAnswer::Cancel}, {file});
    pick("mnuFileOpen");
    EXPECT_EQ(texts(), question);
    EXPECT_EQ(person.boxes[0].buttons, BoxButtons::YesNoCancel);
    EXPECT_EQ(state.gWorkingData, state.gDefaultData);
    EXPECT_EQ(state.gFileNameTitle, "old.sdt");
    EXPECT_EQ(person.openQuestions.size(), 1U);

    willAnswer({BoxAnswer::No}, {file}); // starts again; then the dialog is cancelled
    person.openQuestions.clear();
    pick("mnuFileOpen");
    EXPECT_EQ(person.openQuestions.size(), 2U);
    EXPECT_EQ(state.gWorkingData, state.gDefaultData);

    willAnswer({BoxAnswer::Yes}, {file});
    pick("mnuFileOpen");
    EXPECT_EQ(state.gWorkingData.Version, old.Version);
    ASSERT_EQ(state.gWorkingData.Value.size(), 1614U);
    EXPECT_EQ(state.gWorkingData.Value[14], 77);
    EXPECT_EQ(state.gWorkingData.Address[999], old.Address[999]);
    EXPECT_EQ(state.gWorkingData.Address[1000], "");
    EXPECT_EQ(state.gWorkingData.Value[1613], 0);
    EXPECT_TRUE(state.hasUnsavedChanges()) << "its version is not this program's";
}

TEST_F(FileCommandsTest, FileThatIsNoneChangesNothingAndIsNotMentioned)
{
    QFile(path("bad.sdt")).open(QIODevice::WriteOnly);
    QDir(rig.folder.path()).mkdir("folder.sdt");
    for (const char* name : {"bad.sdt", "folder.sdt", "missing.sdt"}) {
        willAnswer({}, {path(name)});
        pick("mnuFileOpen");
        EXPECT_TRUE(person.boxes.empty()) << name;
        EXPECT_EQ(state.gWorkingData, state.gDefaultData) << name;
        EXPECT_EQ(state.gFileNameTitle, "") << name;
        EXPECT_FALSE(state.gUploadNOW.isValid()) << name;
    }
}

TEST_F(FileCommandsTest, FailedSaveSaysWhyAndChangesNothing)
{
    files.openFile(fileWith("a.sdt", otherData()));
    state.gFileNamePath = path("gone/a.sdt");
    edit(9, 1);
    state.gWorkingData.Version = "TAMBRIX_R0.9.0";
    const SetupDataRecord edited = state.gWorkingData;
    pick("mnuFileSave");
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].icon, BoxIcon::Warning);
    const std::string start =
        "TAMBRIX: Cannot Save File\r\n" + path("gone/a.sdt").toStdString() + "\r\n\r\n";
    EXPECT_TRUE(texts()[0].starts_with(start));
    EXPECT_GT(texts()[0].size(), start.size()) << "the reason";
    EXPECT_EQ(state.gWorkingData, edited);
    EXPECT_EQ(state.gSavedData, otherData());
    EXPECT_EQ(inFile(path("a.sdt")), otherData());
    willAnswer({BoxAnswer::Yes}, {}); // save them first: they are kept when that fails
    pick("mnuFileNew");
    EXPECT_EQ(state.gWorkingData, edited);
    // of the others neither a failure nor Cancel is mentioned
    willAnswer({}, {path("gone/b.sdt"), path("gone/b.txt")});
    for (const char* item : {"mnuFileSaveAs", "mnuFileExport", "mnuFileSaveAs", "mnuFileExport"})
        pick(item);
    EXPECT_EQ(person.saveQuestions.size(), 4U);
    EXPECT_TRUE(person.boxes.empty());
    EXPECT_TRUE(state.hasUnsavedChanges());
    EXPECT_EQ(window.windowTitle(), "TAMBRIX - [a.sdt]");
}

TEST_F(FileCommandsTest, UnsavedDataAreDroppedOnlyWhenSavedOrOnRequest)
{
    // of New, Open and Exit; where the data go, then what is opened; whether they are dropped
    using Case = std::tuple<const char*, BoxAnswer, std::vector<const char*>, bool>;
    const Case cases[] = {{"cancel", BoxAnswer::Cancel, {"other.sdt"}, false},
                          {"no", BoxAnswer::No, {"other.sdt"}, true},
                          {"yes", BoxAnswer::Yes, {"x.sdt", "other.sdt"}, true},
                          {"yes, but no name", BoxAnswer::Yes, {}, false},
                          {"yes, but the disk refuses", BoxAnswer::Yes, {"gone/x.sdt"}, false}};
    fileWith("other.sdt", otherData());
    for (const auto& [what, answer, chosen, dropped] : cases) {
        for (const std::string item : {"mnuFileNew", "mnuFileOpen", "mnuFileExit"}) {
            SCOPED_TRACE(item + " answered with " + what);
            state.InitSetupData();
            edit(8, 4321);
            window.show();
            willAnswer({answer}, {});
            for (const char* name : chosen)
                person.chosenFiles.push_back(path(name));
            pick(item.c_str());
            EXPECT_EQ(texts(), saveQuestion);
            EXPECT_EQ(person.boxes[0].buttons, BoxButtons::YesNoCancel);
            const bool gone =
                item == "mnuFileExit" ? !window.isVisible() : state.gWorkingData.Value[8] != 4321;
            EXPECT_EQ(gone, dropped);
            if (answer == BoxAnswer::Yes && dropped) {
                EXPECT_EQ(inFile(path("x.sdt")).Value[8], 4321);
            }
        }
    }
}

TEST_F(FileCommandsTest, ExportsTheShiftCounts)
{
    const auto lines = [](const QByteArray& title, const QByteArray& date) {
        return title + "\r\nDate: " + date +
               "\r\n \r\nCycling Counts (1-8):\r\n"
               " 0\r\n 1234\r\n-5\r\n 0\r\n 0\r\n 0\r\n 0\r\n 655359999\r\n";
    };
    edit(1, 1234);
    edit(2, -5);
    edit(7, 655359999);
    willAnswer({}, {path("out.txt"), path("out.txt")});
    pick("mnuFileExport");
    EXPECT_EQ(readWholeFile(path("out.txt"), 1000), lines("untitled", ""));
    state.gFileNameTitle = "press 1.sdt";
    state.gUploadNOW = QDate(2026, 2, 28).startOfDay();
    pick("mnuFileExport");
    EXPECT_EQ(readWholeFile(path("out.txt"), 1000), lines("press 1.sdt", "28 Feb 2026"));
    EXPECT_EQ(asked(person.saveQuestions[0]), "Text Files(*.txt)|*.txt| here  txt");
    EXPECT_EQ(asked(person.saveQuestions[1]), "Text Files(*.txt)|*.txt| here out.txt txt");
}

TEST_F(FileCommandsTest, RecentFilesAskTheSameQuestions)
{
    const QString ini = path("recent.ini");
    files.recent().keepIn(ini);
    files.openFile(fileWith("a.sdt", otherData()));
    files.openFile(fileWith("b.sdt", otherData()));
    files.openFile(path("a.sdt"));
    EXPECT_EQ(files.recent().paths(), QStringList({path("a.sdt"), path("b.sdt")}));
    EXPECT_EQ(window.findChild<QAction*>("mnuFileRecent(1)")->text(),
              "&2 " + QDir::toNativeSeparators(path("b.sdt")));

    edit(8, 4321);
    willAnswer({BoxAnswer::Cancel}, {});
    pick("mnuFileRecent(1)");
    EXPECT_EQ(texts(), saveQuestion);
    EXPECT_EQ(state.gWorkingData.Value[8], 4321);

    QFile::remove(path("b.sdt"));
    willAnswer({BoxAnswer::No}, {});
    pick("mnuFileRecent(1)");
    EXPECT_EQ(person.boxes.back().text,
              "The file is not there any more:\r\n" + path("b.sdt").toStdString());
    RecentFiles nextRun;
    nextRun.keepIn(ini);
    EXPECT_EQ(nextRun.paths(), QStringList({path("a.sdt")})) << "a file that is gone is dropped";
    for (int i = 0; i < 10; ++i)
        nextRun.add(QString::number(i));
    EXPECT_EQ(nextRun.paths().size(), RecentFiles::kMost);
}

TEST_F(FileCommandsTest, DroppedFileIsOpened)
{
    QMimeData drag;
    drag.setUrls({QUrl::fromLocalFile("a.txt")});
    EXPECT_EQ(draggedSetupFile(drag), "");
    drag.setUrls({QUrl::fromLocalFile(fileWith("A.SDT", otherData()))});
    QDragEnterEvent enter({}, Qt::CopyAction, &drag, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({}, Qt::CopyAction, &drag, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &drop);
    EXPECT_TRUE(drop.isAccepted());
    EXPECT_EQ(state.gWorkingData, state.gDefaultData) << "not before the drag is over";
    EXPECT_TRUE(PressRig::eventually([this] { return state.gWorkingData == otherData(); }));
}

} // namespace
} // namespace tambrix
