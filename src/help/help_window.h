#pragma once

#include "help/help_book.h"

#include <QMainWindow>

class QLineEdit;
class QListWidget;
class QTextBrowser;
class QTreeWidget;

namespace tambrix {

/// The help viewer: contents or search results on the left, the topic on the right.
class HelpWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit HelpWindow(const HelpBook& book, QWidget* parent = nullptr);

    /// Shows this page, or the front page when it is empty, and brings the window to the front.
    void showTopic(const QUrl& url);

    QUrl currentTopic() const;

private:
    void buildToolBar();
    QWidget* makeSidePane();
    void fillContents();
    void search(const QString& words);
    void followTopic(const QUrl& url);
    void markWords();
    void print();

    const HelpBook& m_book;
    QTextBrowser* m_page;
    QTreeWidget* m_contents;
    QListWidget* m_hits;
    QLineEdit* m_words;
};

} // namespace tambrix
