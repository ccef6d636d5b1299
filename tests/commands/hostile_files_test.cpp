// Files that are none, or far too large, as a script may name them.

#include "tests/commands/command_rig.h"

using namespace tambrix;

namespace {

/// A file that would be very large if anybody read it.
void makeHole(const QString& path, const QByteArray& head)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(head);
    ASSERT_TRUE(file.resize(qint64{4} << 30));
}

} // namespace

TEST(Cli, FilesThatAreNoneAreRefusedAtOnceInLittleMemory)
{
    const CommandRig rig;
    makeHole(rig.file("hole.sdt"), {});
    makeHole(rig.file("hole.json"), "{");
    makeHole(rig.file("hole.csv"), "TAMBRIX data set,1,V\r\n");
    QFile claim(rig.file("claim.sdt")); // 4,294,967,295 entries
    ASSERT_TRUE(claim.open(QIODevice::WriteOnly));
    claim.write(QByteArray("\0\0\1\0\xFF\xFF\xFF\xFF\0\0\0\0", 12).leftJustified(30'000, '\0'));
    claim.close();
    QProcess::execute("mkfifo", {rig.file("pipe.sdt")});
    const std::pair<const char*, const char*> links[] = {{"/dev/zero", "zero.sdt"},
                                                         {"self.sdt", "self.sdt"},
                                                         {"pipe.sdt", "pipe.csv"},
                                                         {".", "folder.json"}};
    for (const auto& [target, name] : links)
        QProcess::execute("ln", {"-s", target, rig.file(name)});
    for (const char* name : {"hole.sdt", "hole.json", "hole.csv", "claim.sdt", "pipe.sdt",
                             "zero.sdt", "self.sdt", "pipe.csv", "folder.json"}) {
        const Ended run = rig.runInLittleMemory(QStringLiteral("convert %1 out.csv").arg(name));
        EXPECT_EQ(run.code, 5) << name;
        EXPECT_TRUE(run.err.contains(name) && run.err.count('\n') == 1) << run.err.toStdString();
    }
    EXPECT_FALSE(QFile::exists(rig.file("out.csv")));
}
