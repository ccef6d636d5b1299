#include "reports/reports.h"
#include "tests/reports/paper.h"
#include "tests/support/modal_watch.h"
#include "tests/support/press_rig.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPrintDialog>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <tuple>

using namespace tambrix;

namespace {

using Outcome = StandbyWindow::Outcome;

struct StandbyRig : PressRig
{
    Paper printer;
    QStringList said; ///< what the window said, page by page
    int cancelAfter = -1;

    Outcome make(PageRange range = {})
    {
        return make(reportContent(state, QDateTime::currentDateTime()), range);
    }

    Outcome make(const Report& report, PageRange range)
    {
        StandbyWindow window(report, printer, range);
        auto* page = window.findChild<QLabel*>("lblWait");
        auto* cancel = window.findChild<QPushButton*>("cmdWaitCancel");
        auto* progress = window.findChild<QProgressBar*>("prgWait");
        QObject::connect(progress, &QProgressBar::valueChanged, &window, [=, this](int made) {
            said.append(page->text());
            if (made == cancelAfter)
                cancel->click();
        });
        const auto outcome = window.make();
        EXPECT_EQ(progress->value() == progress->maximum(), outcome == Outcome::Made);
        return outcome;
    }
};

} // namespace

TEST(PrintedReport, HoldsTheWantedPagesUnlessItIsStopped)
{
    StandbyRig whole;
    EXPECT_EQ(whole.make(), Outcome::Made);
    const int count = static_cast<int>(whole.printer.engine.pages.size());
    ASSERT_GT(count, 3);

    // what is wanted; after which page it is cancelled; sheets; outcome, first and last page made
    const std::tuple<PageRange, int, int, Outcome, int, int> cases[] = {
        {{}, -1, 99, Outcome::Made, 1, count},
        {{2, 3}, -1, 2, Outcome::Made, 2, 3},
        {{count, 999}, -1, 99, Outcome::Made, count, count},
        {{-4, 1}, -1, 99, Outcome::Made, 1, 1},
        {{}, 2, 99, Outcome::Cancelled, 1, 2},
        {{}, -1, 3, Outcome::Failed, 1, 3},
        {{}, -1, 0, Outcome::Failed, 1, 0}};
    for (const auto& [range, cancelAfter, sheets, outcome, first, last] : cases) {
        SCOPED_TRACE(testing::Message() << "pages " << first << " to " << last);
        StandbyRig rig;
        PaperEngine& paper = rig.printer.engine;
        rig.cancelAfter = cancelAfter;
        paper.sheets = sheets;
        EXPECT_EQ(rig.make(range), outcome);
        EXPECT_EQ(paper.aborted, outcome != Outcome::Made); // or it would print what it has
        ASSERT_EQ(rig.said.size(), last - first + 1);
        for (int page = first; page <= last; ++page) {
            const QString number = QStringLiteral("age %1 of %2").arg(page).arg(count);
            EXPECT_EQ(rig.said[page - first], "Making p" + number);
            EXPECT_TRUE(paper.pages[page - first].contains("|P" + number + u'|'));
        }
    }
}

TEST(PrintedReport, CutsNoValueShort)
{
    StandbyRig rig;
    rig.state.gWorkingData.Value[labelBase(0)] = 300;
    rig.state.gWorkingData.Value[labelBase(0) + kDuctors] = 1; // no density in sight of 100 %
    rig.make();
    const QString printed = rig.printer.engine.pages.join(QString());
    EXPECT_TRUE(printed.contains(QRegularExpression("\\|\\d{5}\\.\\d%\\|")));
    EXPECT_FALSE(printed.contains(QChar(0x2026))); // the ellipsis
}

TEST(PrintedReport, HasAPageForEachChosenLabel)
{
    StandbyRig rig;
    rig.state.labelNames.set(6, "Beer gold");
    rig.state.gWorkingData.Value[labelBase(6) + 2] = 50;
    rig.make(labelReport(rig.state, {6, 99}, QDateTime::currentDateTime()), {});
    const QStringList& pages = rig.printer.engine.pages;
    ASSERT_EQ(pages.size(), 2);
    EXPECT_TRUE(pages[0].contains("|Label 6: Beer gold|")) << pages[0].toStdString();
    EXPECT_TRUE(pages[0].contains("|3|32.5%|ON 50, CYCLE 200 (0.1 cans)|"));
    EXPECT_TRUE(pages[1].contains("|Label 99|"));
    EXPECT_TRUE(pages[1].contains("|Page 2 of 2|"));
}

TEST(PrintedReport, GoesToThePrinterThatTheUserChooses)
{
    PressRig rig;
    const QString file = rig.folder.filePath("printed.pdf");
    const ModalWatch<QPrintDialog> cancel([&](QPrintDialog& dialog) {
        dialog.printer()->setOutputFileName(file);
        dialog.reject();
    });
    Reports reports(rig.state);
    reports.print();
    EXPECT_TRUE(cancel.seen());
    EXPECT_FALSE(QFile::exists(file));
    const ModalWatch<QPrintDialog> user([&](QPrintDialog& dialog) {
        dialog.printer()->setOutputFileName(file);
        static_cast<QDialog&>(dialog).done(QDialog::Accepted);
    });
    reports.print();
    EXPECT_GT(QFileInfo(file).size(), 1000);
    EXPECT_TRUE(rig.person.boxes.empty());
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
    EXPECT_EQ(rig.person.saveQuestions[0].name, "night shift report.pdf");
    EXPECT_EQ(rig.person.saveQuestions[0].folder, rig.folder.path());

    QFile written(rig.folder.filePath("report.pdf"));
    const QString nowhere = rig.folder.filePath("no such folder/report.pdf");
    rig.person.chosenFiles = {written.fileName(), nowhere};
    reports.savePdf();
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_TRUE(written.read(5).startsWith("%PDF-"));
    EXPECT_TRUE(rig.person.boxes.empty());
    reports.savePdf();
    ASSERT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_NE(rig.person.boxes[0].text.find(QDir::toNativeSeparators(nowhere).toStdString()),
              std::string::npos);

    const ModalWatch<StandbyWindow> cancel([](StandbyWindow& window) { window.reject(); });
    reports.writePdf(rig.folder.filePath("cancelled.pdf"));
    EXPECT_TRUE(cancel.seen());
    EXPECT_EQ(pdfs().size(), 1);
}
