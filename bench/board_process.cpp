#include "bench/board_process.h"

#include <stdexcept>

namespace tambrix::bench {

BoardProcess::BoardProcess(const QStringList& arguments)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const QString processor = qEnvironmentVariable("TAMBRIX_BENCH_BOARD_PROCESSOR");
    QStringList command = {QStringLiteral(TAMBRIX_BOARD)};
    if (!processor.isEmpty())
        command = QStringList{QStringLiteral("taskset"), QStringLiteral("-c"), processor} + command;
    command += arguments;
    m_process.start(command.takeFirst(), command);
    if (!m_process.waitForReadyRead())
        throw std::runtime_error("tambrix-board does not start");
    m_device = QString::fromLocal8Bit(m_process.readLine()).trimmed();
}

BoardProcess::~BoardProcess()
{
    m_process.kill();
    m_process.waitForFinished();
}

} // namespace tambrix::bench
