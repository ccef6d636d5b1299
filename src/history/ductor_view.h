#pragma once

#include "history/ductor_report.h"

#include <QDialog>

#include <array>
#include <functional>

class QComboBox;
class QGridLayout;
class QLabel;
class QTableView;

namespace tambrix {

class ValueLabel;

/// All that is known of one ductor on one page: why does it give too much ink?
class DuctorView : public QDialog
{
    Q_OBJECT

public:
    /// `read` makes the report of ductor 0 to 7.
    DuctorView(std::function<DuctorReport(int ductor)> read, int ductor, QWidget* parent);

    /// Reads again what it shows.
    void refresh();

private:
    QWidget* makeValues();
    void addValue(QGridLayout& grid, QRect cells, const char* name, const QString& tells);
    void addPair(QGridLayout& grid, QPoint cell, const char* name, const QString& caption,
                 const std::array<const char*, 2>& heads);
    void addLine(QGridLayout& grid, QPoint cell, const char* name, const QString& caption);
    void showReport(const DuctorReport& report);

    std::function<DuctorReport(int)> m_read;
    QComboBox* m_ductor;
    QLabel* m_findings;
    QTableView* m_changes;
    QList<ValueLabel*> m_values; ///< in the order in which they are filled
};

} // namespace tambrix
