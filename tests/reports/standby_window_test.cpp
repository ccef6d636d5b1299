#include "reports/reports.h"
#include "tests/support/press_rig.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPdfWriter>
#include <QProgressBar>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

/// A sheet that can run out of paper, and counts its pages.
class CountingPdf : public QPdfWriter
{
public:
    using QPdfWriter::QPdfWriter;
    bool newPage() override
    {
        ++pages;
        return pages < paper && QPdfWriter::newPage();
    }
    int pages = 0;
    int paper = 1000;
};

struct StandbyRig : PressRig
{
    QBuffer buffer;
    CountingPdf pdf{&buffer};
    QStringList seen; ///< what the window said, page by page
    int cancelAfter = -1;

    StandbyRig() { buffer.open(QIODevice::WriteOnly); }

    StandbyWindow::Outcome make(PageRange range = {})
    {
        StandbyWindow window(reportContent(state, QDateTime::currentDateTime()), pdf, range);
        auto* page = window.findChild<QLabel*>("lblWait");
        auto* cancel = window.findChild<QPushButton*>("cmdWaitCancel");
        auto* progress = window.findChild<QProgressBar*>("prgWait");
        QObject::connect(progress, &QProgressBar::valueChanged, &window, [=, this](int made) {
            seen.append(page->text());
            if (made == cancelAfter)
                cancel->click();
        });
        const auto outcome = window.make();
        full = progress->value() == progress->maximum();
        return outcome;
    }
    bool full = false;
};

} // namespace

TEST(Standby, MakesEveryPageAndShowsHowFarItIs)
{
    StandbyRig rig;
    EXPECT_EQ(rig.make(), StandbyWindow::Outcome::Made);
    EXPECT_GT(rig.pdf.pages, 3);
    EXPECT_EQ(rig.seen.size(), rig.pdf.pages + 1);
    EXPECT_EQ(rig.seen.front(), QStringLiteral("Making page 1 of %1").arg(rig.seen.size()));
    EXPECT_TRUE(rig.full);
    EXPECT_TRUE(rig.buffer.data().trimmed().endsWith("%%EOF"));
}

TEST(Standby, CancelEndsBeforeTheNextPage)
{
    StandbyRig rig;
    rig.cancelAfter = 2;
    EXPECT_EQ(rig.make(), StandbyWindow::Outcome::Cancelled);
    EXPECT_EQ(rig.seen.size(), 2);
    EXPECT_EQ(rig.pdf.pages, 1);
}

TEST(Standby, APageRangeIsKeptWithinTheReport)
{
    struct Case
    {
        PageRange range;
        int made;
        const char* firstText;
    };
    StandbyRig whole;
    whole.make();
    const int count = static_cast<int>(whole.seen.size());
    const Case cases[] = {{{2, 3}, 2, "Making page 2 of "},
                          {{count, 999}, 1, "Making page "},
                          {{-4, 1}, 1, "Making page 1 of "}};
    for (const Case& c : cases) {
        StandbyRig rig;
        EXPECT_EQ(rig.make(c.range), StandbyWindow::Outcome::Made);
        EXPECT_EQ(rig.seen.size(), c.made);
        EXPECT_TRUE(rig.seen.front().startsWith(QLatin1String(c.firstText)));
    }
}

TEST(Standby, ADeviceThatGivesUpIsAFailure)
{
    StandbyRig outOfPaper;
    outOfPaper.pdf.paper = 2;
    EXPECT_EQ(outOfPaper.make(), StandbyWindow::Outcome::Failed);

    const PressRig rig;
    QPdfWriter nowhere(rig.folder.filePath("no such folder/report.pdf"));
    StandbyWindow window(reportContent(rig.state, QDateTime::currentDateTime()), nowhere);
    EXPECT_EQ(window.make(), StandbyWindow::Outcome::Failed);
}

TEST(PdfReport, IsSavedBesideTheSetUpFileUnderItsName)
{
    PressRig rig;
    Reports reports(rig.state);
    rig.state.gUntitled = false;
    rig.state.gFileNameTitle = "night shift.sdt";
    rig.state.gFileNamePath = rig.folder.filePath("night shift.sdt");
    reports.savePdf(); // cancelled
    EXPECT_TRUE(QDir(rig.folder.path()).entryList({"*.pdf"}).isEmpty());
    ASSERT_EQ(rig.person.saveQuestions.size(), 1u);
    EXPECT_EQ(rig.person.saveQuestions[0].name, "night shift report.pdf");
    EXPECT_EQ(rig.person.saveQuestions[0].folder, rig.folder.path());
}

TEST(PdfReport, IsWrittenWholeOrNotAtAll)
{
    PressRig rig;
    Reports reports(rig.state);
    const QString path = rig.folder.filePath("report.pdf");
    reports.writePdf(path);
    QFile written(path);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_TRUE(written.read(5).startsWith("%PDF-"));
    EXPECT_TRUE(rig.person.boxes.empty());

    reports.writePdf(rig.folder.filePath("no such folder/report.pdf"));
    ASSERT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_EQ(rig.person.boxes[0].title, "Print Report");
    EXPECT_TRUE(QString::fromStdString(rig.person.boxes[0].text)
                    .startsWith("The report could not be saved."));
    EXPECT_EQ(QDir(rig.folder.path()).entryList({"*.pdf"}).size(), 1);
}
