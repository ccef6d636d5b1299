#include "help/help_book.h"

#include "data/whole_file.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>

namespace tambrix {

namespace {

QUrl withoutAnchor(QUrl url)
{
    url.setFragment({});
    return url;
}

} // namespace

HelpBook::HelpBook(const QString& contentsFile)
    : m_frontPage(QUrl::fromLocalFile(QFileInfo(contentsFile).absoluteFilePath()))
{
    readContents(contentsFile);
    readTopic(m_frontPage);
    for (const HelpEntry& entry : m_contents) {
        if (const QUrl file = withoutAnchor(entry.url); m_topics.count(file) == 0)
            readTopic(file);
    }
}

void HelpBook::readContents(const QString& contentsFile)
{
    QXmlStreamReader xml(readWholeFile(contentsFile, kLongestFile).value_or(QByteArray()));
    int lists = 0;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.name() == QLatin1String("ul"))
            lists += xml.isStartElement() ? 1 : -1;
        if (!xml.isStartElement() || xml.name() != QLatin1String("a") || lists == 0)
            continue;
        const QUrl link(xml.attributes().value(QLatin1String("href")).toString());
        const QString title = xml.readElementText().simplified();
        m_contents.push_back({title, m_frontPage.resolved(link), lists - 1});
    }
}

void HelpBook::readTopic(const QUrl& url)
{
    Topic& topic = m_topics[url];
    const auto page = readWholeFile(url.toLocalFile(), kLongestFile);
    if (!page) {
        topic.error = whyUnread(url.toLocalFile(), kLongestFile);
        return;
    }
    QXmlStreamReader xml(*page);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isCharacters())
            topic.text += xml.text();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("title"))
            topic.title = xml.readElementText().simplified();
        if (const auto name = xml.attributes().value(QLatin1String("name")); !name.isEmpty()) {
            QUrl place = url;
            place.setFragment(name.toString());
            m_anchors.emplace(name.toString(), place);
        }
        if (const auto href = xml.attributes().value(QLatin1String("href")); !href.isEmpty())
            topic.links.push_back(url.resolved(QUrl(href.toString())));
    }
    topic.error = xml.hasError() ? xml.errorString() : QString();
}

QUrl HelpBook::topicOf(const QString& controlName) const
{
    for (const QString& name : {controlName, controlName.section(u'(', 0, 0)}) {
        if (const auto found = m_anchors.find(name); found != m_anchors.end())
            return found->second;
    }
    return {};
}

std::vector<HelpHit> HelpBook::search(const QString& words) const
{
    const QStringList wanted = words.simplified().split(u' ', Qt::SkipEmptyParts);
    if (wanted.isEmpty())
        return {};
    const auto holds = [&](const QString& text) {
        return std::ranges::all_of(
            wanted, [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
    };
    std::vector<HelpHit> hits;
    for (const auto& [url, topic] : m_topics) {
        if (url != m_frontPage && holds(topic.title + u' ' + topic.text))
            hits.push_back({topic.title, url});
    }
    std::stable_partition(hits.begin(), hits.end(),
                          [&](const HelpHit& hit) { return holds(hit.title); });
    return hits;
}

bool HelpBook::leadsSomewhere(const QUrl& link) const
{
    if (m_topics.count(withoutAnchor(link)) == 0)
        return false;
    if (!link.hasFragment())
        return true;
    const auto anchor = m_anchors.find(link.fragment());
    return anchor != m_anchors.end() && anchor->second == link;
}

std::vector<QString> HelpBook::defects() const
{
    std::vector<QString> found;
    for (const auto& [url, topic] : m_topics) {
        if (!topic.error.isEmpty())
            found.push_back(url.fileName() + QLatin1String(": ") + topic.error);
        if (topic.title.isEmpty())
            found.push_back(url.fileName() + QLatin1String(": no title"));
        for (const QUrl& link : topic.links) {
            if (!leadsSomewhere(link))
                found.push_back(url.fileName() + QLatin1String(": dead link ") + link.toString());
        }
    }
    return found;
}

QString boxAnchor(const QString& title)
{
    static const QRegularExpression kBetween(QStringLiteral("[^a-z0-9]+"));
    QString name = title.toLower().replace(kBetween, QStringLiteral("-"));
    while (name.endsWith(u'-'))
        name.chop(1);
    return QStringLiteral("box-") + name;
}

} // namespace tambrix
