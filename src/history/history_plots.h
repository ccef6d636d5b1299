#pragma once

#include "history/plot_data.h"

#include <QPixmap>
#include <QStringList>
#include <QWidget>

#include <array>
#include <optional>
#include <vector>

class QCPAbstractItem;
class QCPAxis;
class QCPAxisRect;
class QCPGraph;
class QCPItemText;
class QCPItemStraightLine;
class QCPTextElement;
class QCustomPlot;

namespace tambrix {

struct Tones;

/// Speed, cycles, alarms, mode and label above each other on one axis of time. The wheel zooms,
/// dragging pans; + and -, the arrow keys, Home and End do the same, and Ctrl with an arrow moves
/// the crosshair. Knows no file: what to show for another time it asks with `spanWanted`.
class HistoryPlots : public QWidget
{
    Q_OBJECT

public:
    HistoryPlots();

    void show(PlotData data);
    const PlotData& data() const { return m_data; }

    /// The plots in the light colours of paper, `scale` times as fine as on the screen.
    QPixmap picture(int scale);

    /// Puts the crosshair at `time`, or takes it away.
    void pointAt(std::optional<UtcMs> time);

signals:
    void spanWanted(TimeSpan span);
    /// What stands at the crosshair, in words.
    void pointed(const QString& values);

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum Row { Speed, Cycles, Alarms, Bands, Rows };

    void makeRects();
    void makeValueAxes();
    void makeGraphs();
    void makeCrosshair();
    QCPTextElement* makeHead(const char* text, int above);
    void addTitle(Row row, const char* title, const char* unit);
    void makeTitles();
    void colour(const QPalette& palette);
    void colourAxis(QCPAxis& axis, const QPalette& palette);
    void showTime();
    void showSpeed();
    void showCycles();
    void showBars(const QPalette& palette);
    void showModes(const Tones& tones, const QColor& text);
    void showLabels(const Tones& tones, const QColor& text);
    void addBar(Row row, TimeSpan time, double from, double to, const QColor& ground);
    void addText(TimeSpan time, double height, const QStringList& texts, const QColor& colour);
    void fitToSize();
    void want(double begin, double end);
    void pan(double part);
    void zoom(double factor);
    void movePointer(int steps);
    QCPAxis& timeAxis(int row) const;

    QCustomPlot* m_plot;
    std::array<QCPAxisRect*, Rows> m_rects{};
    std::array<QCPTextElement*, Rows> m_titles{};
    std::array<QCPTextElement*, Rows> m_units{}; ///< below the titles
    std::array<QCPItemStraightLine*, Rows> m_lines{};
    QCPGraph* m_lowest = nullptr;
    QCPGraph* m_highest = nullptr;
    QCPGraph* m_speed = nullptr;
    QCPGraph* m_counted = nullptr;
    QCPGraph* m_expected = nullptr;
    QCPItemText* m_tip = nullptr;
    PlotData m_data;
    std::vector<QCPAbstractItem*> m_bars; ///< and their texts
    std::optional<UtcMs> m_pointed;
    QSize m_fitted;         ///< for which the texts of bars and axes were chosen
    bool m_setting = false; ///< the axes are being set: nobody has panned
};

} // namespace tambrix
