#pragma once

#include "data/line_recorder.h"
#include "platform/chosen_port.h"
#include "shell/reconnect.h"

#include <QDir>
#include <QPointer>

#include <memory>

class QLabel;
class QToolBar;

namespace tambrix {

class LineMonitor;
class MainWindow;
struct LineFinding;

/// The tools for the line: connection, monitor, check and reconnecting, in the Tools menu; and the
/// trace that is kept when the board is lost.
class LineTools
{
public:
    /// What stands between the link and the board.
    struct Line
    {
        Clock& clock;
        LineRecorder& recorder;
        BoxWatch& boxes;
        SerialPort& port;           ///< the real one, or that of the simulated controller
        ChosenPort* real = nullptr; ///< the real one; none where the controller is simulated
    };

    /// Adds the tools to the window's Tools menu. `startedWith` is what the command line says in
    /// place of the connection that is kept; may be empty.
    LineTools(ProgramState& state, MainWindow& window, const Line& line, QString startedWith);
    ~LineTools();
    LineTools(const LineTools&) = delete;
    LineTools& operator=(const LineTools&) = delete;

    /// What is used in place of Comm Port's number: "tcp://press4:4001", "the simulated
    /// controller"; empty while the number counts.
    QString usedInsteadOfNumber() const;

private:
    void showConnection();
    void addItems();
    QWidget* makeMonitor(QWidget& parent);
    void showCheck();
    LineFinding check();
    void followUser();
    void showNote(const QString& text);
    void keepTrace();
    bool mayGoOnline() const;

    ProgramState& m_state;
    MainWindow& m_window;
    Line m_line;
    QString m_startedWith;
    TracedPort m_probe; ///< the reconnecting's own way to the port
    std::unique_ptr<PortSearch> m_search;
    Reconnect m_reconnect;
    QPointer<LineMonitor> m_monitor;
    QToolBar* m_noteBar; ///< the window's
    QLabel* m_note;
    std::optional<std::uint64_t> m_keptUpTo; ///< exchanges when a trace was wanted last
};

} // namespace tambrix
