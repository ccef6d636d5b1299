#pragma once

#include "history/history_output.h"
#include "recorder/unseen_reader.h"
#include "shell/prompts.h"

#include <QDialog>
#include <QTimer>

#include <array>
#include <functional>
#include <optional>

class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QTableView;

namespace tambrix {

class HistoryPlots;

/// What the press did while nobody looked: plots on one axis of time, alarms, changes. Shows what
/// is recorded and goes on with it; reads nothing from the board itself.
class HistoryWindow : public QDialog
{
    Q_OBJECT

public:
    struct Source
    {
        HistoryRecorder& recorder;
        std::optional<int> unseenInterval; ///< s, of what is not shown; none: it is not read
        std::function<void(std::optional<int> seconds)> recordUnseen;
        Prompts& prompts;
        QString folder; ///< where files are saved first
        const LabelNames& labelNames;
    };

    explicit HistoryWindow(const Source& source, QWidget* parent = nullptr);

    /// Shows this time and follows the press no longer.
    void showSpan(TimeSpan span);

private:
    enum class Span { Hour, Shift, Day, All };

    QHBoxLayout* makeSpans();
    QWidget* makeTables();
    QWidget* makeTable(QTableView& view, const QString& title);
    void addRecording(QHBoxLayout& row);
    QHBoxLayout* makeButtons();
    QPushButton* addButton(QHBoxLayout& row, const char* name, const char* caption,
                           std::function<void()> act);
    void connectPlots();
    void choose(Span span);
    void markSpan(std::optional<Span> span);
    TimeSpan spanOf(Span span, UtcMs now);
    void follow();
    void recordUnseen();
    void reload();
    void showPage(HistoryReader& reader);
    void showTrouble(SqlResult result);
    void pointAtRow(const QTableView& view);
    HistoryPage page() const;
    void exportCsv();
    void savePdf();
    void print();
    void copyPicture();
    void showDuctor();
    void say(const QString& title, const QString& text);
    void saved(const QString& title, const QString& file, const std::optional<QString>& failure);

    Source m_source;
    TimeSpan m_span;
    HistoryPlots* m_plots;
    QComboBox* m_ductor;
    std::array<QPushButton*, 4> m_spans{}; ///< by Span
    QPushButton* m_follow = nullptr;
    QLabel* m_summary;
    QLineEdit* m_filter;
    QTableView* m_alarms;
    QTableView* m_changes;
    QCheckBox* m_unseen;
    QSpinBox* m_seconds;
    HistoryTable m_alarmRows;
    HistoryTable m_changeRows;
    QTimer m_reload; ///< one reading for many movements of the hand
};

} // namespace tambrix
