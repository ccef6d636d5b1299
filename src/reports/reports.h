#pragma once

#include "reports/standby_window.h"

#include <QPrinter>

#include <memory>

namespace tambrix {

class ToolsMenu;

/// The report commands of the File menu, and the board sheet of the Tools menu.
class Reports
{
public:
    explicit Reports(ProgramState& state) : m_state(state) {}

    /// Adds "Board Sheet..." to the Tools menu.
    void addTo(ToolsMenu& menu);

    /// File > Report Setup.
    void showSetup();

    /// File > Print Report...: asks for the printer, then prints.
    void print();

    /// Shows the report's pages as they will be printed.
    void preview();

    /// Asks for a file name and writes the report into it as PDF, whole or not at all.
    void savePdf();

    /// Reads the board sheet over the line and shows it as it will be printed. Off line it offers
    /// to go on line.
    void showBoardSheet();

    /// Writes the report into `path` as PDF. Says so when it could not; leaves no part of a file
    /// behind, and an older file as it was, after Cancel or an error.
    void writePdf(const QString& path);

    /// The same for a report with a page for each of these labels (0 to 99). Nothing for none.
    void previewLabels(const std::vector<int>& labels);
    void saveLabelsPdf(const std::vector<int>& labels);

private:
    QPrinter& printer();
    void printOn(QPrinter& device, const Report& report);
    void previewOf(const Report& report);
    void savePdfOf(const Report& report);
    void writePdfOf(const Report& report, const QString& path);
    Report content() const;
    void sayFailed(const QString& what, const QString& reason);

    ProgramState& m_state;
    std::vector<int> m_labels;           ///< of the report under way; empty: the whole data set's
    std::unique_ptr<QPrinter> m_printer; ///< keeps paper and printer from one print to the next
};

} // namespace tambrix
