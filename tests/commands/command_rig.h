#pragma once

#include "data/setup_file.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tambrix {

struct Ended
{
    int code = -1;
    QString out;
    QString err;
};

/// A folder of its own, a simulated controller in a process of its own, and the program.
struct CommandRig
{
    explicit CommandRig(QStringList boardOptions = {"--unpaced"})
    {
        board.start(TAMBRIX_BOARD, boardOptions);
        if (board.waitForStarted() && board.waitForReadyRead())
            device = QString::fromLocal8Bit(board.readLine()).trimmed();
    }
    ~CommandRig() { pull(); }
    CommandRig(const CommandRig&) = delete;
    CommandRig& operator=(const CommandRig&) = delete;

    void pull()
    {
        board.kill();
        board.waitForFinished();
    }

    QString file(const QString& name) const { return folder.filePath(name); }

    void start(QProcess& process, QStringList arguments) const
    {
        prepare(process);
        process.start(TAMBRIX_CLI, arguments);
    }

    void prepare(QProcess& process) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("XDG_CONFIG_HOME", folder.path());
        environment.insert("TAMBRIX_SERIAL_DEVICE", device);
        environment.insert("TAMBRIX_PROGRAM_FOLDER", folder.path());
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(folder.path());
    }

    static Ended finished(QProcess& process)
    {
        EXPECT_TRUE(process.waitForFinished(20'000));
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    Ended run(const QString& line) const
    {
        QProcess process;
        start(process, QProcess::splitCommand(line));
        return finished(process);
    }

    /// The same with 64 MiB for all its data; the address sanitizer's own takes more.
    Ended runInLittleMemory(const QString& line) const
    {
#ifdef TAMBRIX_SANITIZE
        return run(line);
#else
        QProcess process;
        prepare(process);
        process.start("sh", {"-c", "ulimit -d 65536; exec \"$0\" " + line, TAMBRIX_CLI});
        return finished(process);
#endif
    }

    /// The same where no file can grow beyond 4 KiB, as on a full disk.
    Ended runOnFullDisk(const QString& line) const
    {
        QProcess process;
        prepare(process);
        process.start("sh", {"-c", "trap '' XFSZ; ulimit -f 8; exec \"$0\" " + line, TAMBRIX_CLI});
        return finished(process);
    }

    SetupDataRecord load(const QString& name) const
    {
        QFile stored(file(name));
        if (!stored.open(QIODevice::ReadOnly))
            return {};
        const auto read = readSetupFile(stored.readAll().toStdString());
        return std::holds_alternative<SetupDataRecord>(read) ? std::get<SetupDataRecord>(read)
                                                             : SetupDataRecord{};
    }

    void save(const QString& name, const SetupDataRecord& record) const
    {
        QFile stored(file(name));
        ASSERT_TRUE(stored.open(QIODevice::WriteOnly));
        stored.write(QByteArray::fromStdString(setupFileBytes(record)));
    }

    QTemporaryDir folder;
    QProcess board;
    QString device;
};

} // namespace tambrix
