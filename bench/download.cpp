#include "bench/benchmarks.h"
#include "bench/board_process.h"
#include "bench/event_loop_gap.h"
#include "bench/figures.h"
#include "bench/link_under_test.h"
#include "simulator/sample_program.h"

#include <QCoreApplication>

#include <stdexcept>

namespace tambrix::bench {

namespace {

constexpr std::size_t kKibibyte = 1024;
constexpr int kImageKibibytes = 32;
constexpr std::size_t kRecord = 16;
constexpr std::size_t kRecordBytes = kRecord + 3; // length and address before the data
constexpr std::size_t kRecordsPerKibibyte = kKibibyte / kRecord;
constexpr double kBitsPerByte = 10;

/// Says yes to the download, and keeps how it ended.
class WillingOperator : public AbsentOperator
{
public:
    BoxAnswer showMessage(const OperatorBox& box) override
    {
        last = box.text;
        return box.buttons == BoxButtons::YesNo ? BoxAnswer::Yes : BoxAnswer::Cancel;
    }

    std::string last;
};

class Download
{
public:
    Download(const QString& device, int baud)
        : m_folder(baud), m_serial(m_clock, device), m_port(m_serial, m_clock)
    {
        SampleProgram program;
        program.size = m_kibibytes * kKibibyte;
        program.perRecord = kRecord;
        m_link.OpenRSComm(m_port);
        m_link.DownloadFile(writeSampleProgram(program, m_folder.path(), "bench"));
    }

    void run()
    {
        EventLoopGap gap;
        gap.start();
        m_link.DumpProgram([this] { serveEvents(); });
        longestGap = gap.stop();
        if (m_operator.last != "Program Download Complete!")
            throw std::runtime_error("the download failed: " + m_operator.last);
    }

    /// From the first byte of the first record to the attention after the last acknowledgement.
    double secondsOfRecords() const
    {
        const std::size_t end = m_firstRecord + records() * kRecordBytes;
        return std::chrono::duration<double>(m_port.times[end] - m_port.times[m_firstRecord])
            .count();
    }

    std::size_t kibibytes() const { return m_kibibytes; }
    std::size_t records() const { return m_kibibytes * kRecordsPerKibibyte; }

    double longestGap = 0; // ms

private:
    void serveEvents()
    {
        if (m_firstRecord == 0 && m_link.CurrentProgramAdd() == "0000H")
            m_firstRecord = m_port.bytes.size();
        QCoreApplication::processEvents();
    }

    std::size_t m_kibibytes = static_cast<std::size_t>(rounds(kImageKibibytes));
    BenchFolder m_folder;
    SteadyClock m_clock;
    QtSerialPort m_serial;
    RecordingPort m_port;
    WillingOperator m_operator;
    RSComm m_link{m_folder.path(), m_clock, m_operator};
    std::size_t m_firstRecord = 0; ///< number of its first byte among all that the PC sent
};

void downloadAt(int baud)
{
    const QString speed = QString::number(baud);
    const BoardProcess board({QStringLiteral("--baud"), speed});
    Download download(board.device(), baud);
    download.run();
    const double wire =
        static_cast<double>(download.records() * (kRecordBytes + 1)) * kBitsPerByte / baud;
    const std::string what =
        "download of " + std::to_string(download.kibibytes()) + " KiB at " + speed.toStdString();
    reportAtLeast(what + ", wire efficiency", wire / download.secondsOfRecords(), 0.95);
    reportAtMost(what + ", longest unserved event", download.longestGap, 50, "ms");
}

} // namespace

void programDownload()
{
    downloadAt(9600);
    downloadAt(19200);
}

} // namespace tambrix::bench
