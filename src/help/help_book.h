#pragma once

#include <QString>
#include <QUrl>

#include <map>
#include <vector>

namespace tambrix {

/// A line of the table of contents.
struct HelpEntry
{
    QString title;
    QUrl url;
    int depth = 0; ///< 0 for a chapter
};

/// A topic that holds what was searched for.
struct HelpHit
{
    QString title;
    QUrl url;
};

/// The help texts: the contents file TMBRX.hlp, which links to the topics beside it. All are
/// XHTML. An anchor in a topic is named after the control, window or menu item that it explains,
/// which is how F1 finds it.
class HelpBook
{
public:
    static constexpr qint64 kLongestFile = 4 << 20; ///< bytes, of a page or a picture

    /// Reads the contents and every topic that they link to. A file that is not there leaves the
    /// book empty.
    explicit HelpBook(const QString& contentsFile);

    bool isEmpty() const { return m_contents.empty(); }
    const QUrl& frontPage() const { return m_frontPage; }
    const std::vector<HelpEntry>& contents() const { return m_contents; }

    /// Where the control with this name is explained; "txtSetup(2)" falls back on "txtSetup".
    /// Empty when it is nowhere.
    QUrl topicOf(const QString& controlName) const;

    /// Topics that hold every one of the words, those with all of them in the title first.
    std::vector<HelpHit> search(const QString& words) const;

    /// Links in the book that lead nowhere, and files that are not well-formed; for tests.
    std::vector<QString> defects() const;

private:
    struct Topic
    {
        QString title;
        QString text;
        std::vector<QUrl> links;
        QString error;
    };

    void readContents(const QString& file);
    void readTopic(const QUrl& url);
    bool leadsSomewhere(const QUrl& link) const;

    QUrl m_frontPage;
    std::vector<HelpEntry> m_contents;
    std::map<QUrl, Topic> m_topics; ///< by file, without anchor
    std::map<QString, QUrl> m_anchors;
};

/// Name of the anchor that explains message boxes with this title: "box-" and the title's letters
/// and digits in lower case, with "-" for everything between them.
QString boxAnchor(const QString& title);

} // namespace tambrix
