#include "help/help_book.h"
#include "tests/support/window_rig.h"

#include <QDir>

#include <gtest/gtest.h>

#include <set>

using namespace tambrix;

namespace {

const QString kHelp = QStringLiteral(TAMBRIX_SOURCE_FOLDER "/texts/Help");

const HelpBook& book()
{
    static const HelpBook shipped(kHelp + "/TMBRX.hlp");
    return shipped;
}

} // namespace

TEST(ShippedHelp, HasNoDeadLinkIsWellFormedAndListsEveryFile)
{
    for (const QString& defect : book().defects())
        ADD_FAILURE() << qPrintable(defect);
    std::set<QString> listed = {"TMBRX.hlp"};
    for (const HelpEntry& entry : book().contents())
        listed.insert(entry.url.fileName());
    for (const QString& file : QDir(kHelp).entryList(QDir::Files))
        EXPECT_EQ(listed.count(file), 1u) << qPrintable(file);
}

TEST(ShippedHelp, ExplainsEveryMenuItem)
{
    const WindowRig rig;
    int items = 0;
    for (const QAction* action : rig.window->findChildren<QAction*>()) {
        if (!action->objectName().startsWith("mnu"))
            continue;
        ++items;
        EXPECT_FALSE(book().topicOf(action->objectName()).isEmpty())
            << qPrintable(action->objectName());
    }
    EXPECT_GT(items, 20);
}

TEST(HelpBookTest, NamesWhatIsWrongWithABook)
{
    const QTemporaryDir folder;
    const auto write = [&](const char* name, const char* text) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    write("TMBRX.hlp", "<html><title>T</title><ul><li><a href=\"a.html\">A</a></li>"
                       "<li><a href=\"gone.html\">G</a></li></ul></html>");
    write("a.html", "<html><body><a href=\"#nowhere\">x</a>");
    QString all;
    for (const QString& defect : HelpBook(folder.filePath("TMBRX.hlp")).defects())
        all += defect + u'\n';
    for (const char* part : {"a.html: dead", "a.html: no title", "a.html: Premature", "gone.html"})
        EXPECT_TRUE(all.contains(part)) << part;
    EXPECT_TRUE(HelpBook(folder.filePath("none.hlp")).isEmpty());
}
