#pragma once

#include <QStringList>

namespace tambrix::bench {

/// Cost of one exchange through the program's link and port against a plain write, poll and read
/// of the same bytes on the same pseudo-terminal, in turns.
void exchangeCost();

/// Share of the time that the wire itself needs in the time that 200 mixed register reads take,
/// against the board paced at 9600 and 19200.
void wireEfficiency();

/// Share of the time that the wire itself needs in the time that the records of a 32 KiB program
/// take, at 9600 and 19200, and the longest time for which events were not served meanwhile.
void programDownload();

/// Processor use, memory and longest unserved event of the program's window on line at
/// 9600 and off line. Runs in a process of its own.
void windowCost(const QString& program);

/// Upload and download of all labels behind the progress dialog, at 9600 and 19200; saving and
/// opening a set-up file. Runs in a process of its own.
void transferCost(const QString& program);

/// That process.
int transferProcess(int argc, char* argv[]);

/// Refresh passes of each screen on line at 9600 and 19200 against what the wire allows, and the
/// longest time for which events were not served meanwhile. Runs in a process of its own.
void screenPasses(const QString& program);

/// That process.
int screensProcess(int argc, char* argv[]);

/// What recording an exchange costs while the line monitor is closed, and the exchange rate of the
/// Main Display with the monitor open against closed. Runs in a process of its own.
void monitorCost(const QString& program);

/// That process.
int monitorProcess(int argc, char* argv[]);

/// A report of all labels as PDF against the same texts put bare on a PDF, and its peak memory.
/// Runs in a process of its own.
void reportPdf(const QString& program);

/// That process.
int reportProcess(int argc, char* argv[]);

/// Comparing with the controller against an upload of the same entries; the tree of differences
/// against a bare tree view. Runs in a process of its own.
void datasetsCost(const QString& program);

/// The labels' window, opened, scrolled, pasted into and undone, against the same with a bare
/// table view. A part of that process.
void labelsTableCost();

/// That process.
int datasetsProcess(int argc, char* argv[]);

/// A month of history against a day, opened and panned; the exchange rate of the Main Display while
/// it is recorded, and with what is not shown. Runs in a process of its own.
void historyCost(const QString& program);

/// That process.
int historyProcess(int argc, char* argv[]);

/// The process of `windowCost()`: serves `device`.
int windowProcess(int argc, char* argv[], const QString& device);

/// Time to the first painted window and memory, against a bare window of the same library.
void startCost(const QString& program);

/// Its processes: one shows the program's window on `device`, one a bare window; they print
/// their figures and end.
int startProcess(int argc, char* argv[], const QString& device);
int bareStartProcess(int argc, char* argv[]);

} // namespace tambrix::bench
