#pragma once

#include <QProcess>
#include <QString>

namespace tambrix::bench {

/// A simulated board in a process of its own, for as long as this object lives.
class BoardProcess
{
public:
    /// `arguments` of tambrix-board. Throws std::runtime_error when it does not start.
    explicit BoardProcess(const QStringList& arguments);
    ~BoardProcess();
    BoardProcess(const BoardProcess&) = delete;
    BoardProcess& operator=(const BoardProcess&) = delete;

    /// Device to open.
    const QString& device() const { return m_device; }

private:
    QProcess m_process;
    QString m_device;
};

} // namespace tambrix::bench
