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

using Outcome = StandbyWindow::Outcome;

/// A printer that can run out of paper.
class ShortOfPaper : public QPdfWriter
{
public:
    using QPdfWriter::QPdfWriter;
    bool newPage() override { return --sheets > 0 && QPdfWriter::newPage(); }
    int sheets = 99;
};

struct StandbyRig : PressRig
{
    QBuffer buffer;
    ShortOfPaper pdf{&buffer};
    QStringList seen; ///< what the window said, page by page
    int cancelAfter = -1;

    StandbyRig() { buffer.open(QIODevice::WriteOnly); }

    Outcome make(PageRange range = {})
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
        EXPECT_EQ(progress->value() == progress->maximum(), outcome == Outcome::Made);
        return outcome;
    }
};

} // namespace

TEST(Standby, MakesTheWantedPagesUnlessItIsStopped)
{
    StandbyRig whole;
    EXPECT_EQ(whole.make(), Outcome::Made);
    EXPECT_TRUE(whole.buffer.data().trimmed().endsWith("%%EOF"));
    const int count = static_cast<int>(whole.seen.size());

    struct Case
    {
        PageRange range;
        int cancelAfter, sheets;
        Outcome outcome;
        int first, last; ///< pages made
    };
    const Case cases[] = {{{}, -1, 99, Outcome::Made, 1, count},
                          {{2, 3}, -1, 2, Outcome::Made, 2, 3},
                          {{count, 999}, -1, 99, Outcome::Made, count, count},
                          {{-4, 1}, -1, 99, Outcome::Made, 1, 1},
                          {{}, 2, 99, Outcome::Cancelled, 1, 2},
                          {{}, -1, 3, Outcome::Failed, 1, 3}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "pages " << c.first << " to " << c.last);
        StandbyRig rig;
        rig.cancelAfter = c.cancelAfter;
        rig.pdf.sheets = c.sheets;
        EXPECT_EQ(rig.make(c.range), c.outcome);
        ASSERT_EQ(rig.seen.size(), c.last - c.first + 1);
        const auto text = QStringLiteral("Making page %1 of %2");
        EXPECT_EQ(rig.seen.front(), text.arg(c.first).arg(count));
        EXPECT_EQ(rig.seen.back(), text.arg(c.last).arg(count));
    }
}

TEST(Standby, ADeviceThatCannotBeginIsAFailure)
{
    const PressRig rig;
    QPdfWriter nowhere(rig.folder.filePath("no such folder/report.pdf"));
    StandbyWindow window(reportContent(rig.state, QDateTime::currentDateTime()), nowhere);
    EXPECT_EQ(window.make(), Outcome::Failed);
}

TEST(PdfReport, IsSavedBesideTheSetUpFileWholeOrNotAtAll)
{
    PressRig rig;
    Reports reports(rig.state);
    rig.state.gUntitled = false;
    rig.state.gFileNameTitle = "night shift.sdt";
    rig.state.gFileNamePath = rig.folder.filePath("night shift.sdt");
    const auto pdfs = [&rig] { return QDir(rig.folder.path()).entryList({"*.pdf"}); };
    reports.savePdf(); // cancelled
    EXPECT_TRUE(pdfs().isEmpty());
    ASSERT_EQ(rig.person.saveQuestions.size(), 1u);
    EXPECT_EQ(rig.person.saveQuestions[0].name, "night shift report.pdf");
    EXPECT_EQ(rig.person.saveQuestions[0].folder, rig.folder.path());

    QFile written(rig.folder.filePath("report.pdf"));
    rig.person.chosenFiles = {written.fileName(), rig.folder.filePath("no such folder/report.pdf")};
    reports.savePdf();
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_TRUE(written.read(5).startsWith("%PDF-"));
    EXPECT_TRUE(rig.person.boxes.empty());
    reports.savePdf();
    ASSERT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_EQ(rig.person.boxes[0].title, "Print Report");
    EXPECT_TRUE(rig.person.boxes[0].text.starts_with("The report could not be saved."));
    EXPECT_EQ(pdfs().size(), 1);
}
