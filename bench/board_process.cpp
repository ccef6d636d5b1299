#include "bench/board_process.h"

#include <stdexcept>

namespace tambrix::bench {

BoardProcess::BoardProcess(const QStringList& arguments)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(TAMBRIX_BOARD), arguments);
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
