#pragma once

#include <QToolBar>

class QLabel;
class QMainWindow;

namespace tambrix {

/// A line at the bottom of the main window for what happened while nobody looked. It stays until
/// the user has seen it: the status bar is full of the system's own panels.
class NewsLine : public QToolBar
{
    Q_OBJECT

public:
    /// `topic` makes its names: "History" gives barHistory and lblHistoryNews.
    NewsLine(QMainWindow& window, const QString& topic);

    /// Shows `news` in place of what stood there, and has it read out.
    void tell(const QString& news);

private:
    QLabel* m_text;
};

} // namespace tambrix
