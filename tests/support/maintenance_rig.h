#pragma once

#include "simulator/sample_program.h"
#include "tests/support/control_named.h"
#include "tests/support/press_rig.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QWidget>

#include <gtest/gtest.h>

namespace tambrix {

/// A press whose machine stands, and a controller program on disk.
struct MaintenanceRig : PressRig
{
    MaintenanceRig() { board.press().stop(); }

    /// Writes a program file set for boards of type `boardType` and returns the program file.
    QString writeProgram(char boardType = 'D') const
    {
        SampleProgram program;
        program.boardType = boardType;
        program.size = 40;
        writeSampleProgram(program, QFileInfo(folder.path()).filesystemAbsoluteFilePath(), "ink");
        return folder.filePath("ink.fnx");
    }

    QString write(const QString& name, const QByteArray& content) const
    {
        const QString path = folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return path;
    }

    QByteArray content(const QString& name) const
    {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::string lastText() const { return person.boxes.empty() ? "" : person.boxes.back().text; }
    std::string lastTitle() const { return person.boxes.empty() ? "" : person.boxes.back().title; }
};

} // namespace tambrix
