#include "help/help_window.h"

#include "controls/line_icon.h"
#include "help/help_page.h"

#include <QAction>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPrintDialog>
#include <QPrinter>
#include <QSplitter>
#include <QToolBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include <algorithm>

namespace tambrix {

namespace {

constexpr QSize kFirstSize(960, 640);
constexpr int kSidePane = 300;
constexpr int kUrlRole = Qt::UserRole;
constexpr int kPageMargin = 14;

} // namespace

HelpWindow::HelpWindow(const HelpBook& book, QWidget* parent)
    : QMainWindow(parent, Qt::Window),
      m_book(book),
      m_page(new HelpPage(QFileInfo(book.frontPage().toLocalFile()).path())),
      m_contents(new QTreeWidget),
      m_hits(new QListWidget),
      m_words(new QLineEdit)
{
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(QStringLiteral("TAMBRIX Help"));
    resize(kFirstSize);
    m_page->setObjectName(QStringLiteral("txtHelp"));
    m_page->setAccessibleName(QStringLiteral("Help topic"));
    m_page->document()->setDocumentMargin(kPageMargin);

    auto* panes = new QSplitter;
    panes->addWidget(makeSidePane());
    panes->addWidget(m_page);
    panes->setStretchFactor(1, 1);
    panes->setSizes({kSidePane, kFirstSize.width() - kSidePane});
    setCentralWidget(panes);
    buildToolBar();
    fillContents();
    connect(m_page, &QTextBrowser::sourceChanged, this, &HelpWindow::followTopic);
    m_page->setFocus();
}

void HelpWindow::buildToolBar()
{
    auto* bar = addToolBar(QStringLiteral("Help"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [&](const QString& caption, const char* name, const char* icon,
                         const QKeySequence& key) {
        auto* action = bar->addAction(lineIcon(QLatin1String(icon)), caption);
        action->setObjectName(QLatin1String(name));
        action->setShortcut(key);
        return action;
    };
    auto* back = add(QStringLiteral("&Back"), "cmdHelpBack", "back", QKeySequence::Back);
    auto* forward =
        add(QStringLiteral("&Forward"), "cmdHelpForward", "forward", QKeySequence::Forward);
    auto* home = add(QStringLiteral("&Contents"), "cmdHelpContents", "contents", {});
    auto* printer = add(QStringLiteral("&Print..."), "cmdHelpPrint", "print", QKeySequence::Print);
    auto* leave =
        add(QStringLiteral("C&lose"), "cmdHelpClose", "close", QKeySequence(Qt::Key_Escape));
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QAction::triggered, m_page, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, m_page, &QTextBrowser::forward);
    connect(home, &QAction::triggered, this, [this] { m_page->setSource(m_book.frontPage()); });
    connect(printer, &QAction::triggered, this, &HelpWindow::print);
    connect(leave, &QAction::triggered, this, &QWidget::close);
    connect(m_page, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_page, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
}

QWidget* HelpWindow::makeSidePane()
{
    m_words->setObjectName(QStringLiteral("txtHelpSearch"));
    m_words->setClearButtonEnabled(true);
    m_words->setPlaceholderText(QStringLiteral("Words to look for"));
    m_contents->setObjectName(QStringLiteral("treHelpContents"));
    m_contents->setAccessibleName(QStringLiteral("Contents"));
    m_contents->setHeaderHidden(true);
    m_hits->setObjectName(QStringLiteral("lstHelpHits"));
    m_hits->setAccessibleName(QStringLiteral("Topics found"));
    m_hits->hide();
    auto* caption = new QLabel(QStringLiteral("&Search:"));
    caption->setBuddy(m_words);

    auto* pane = new QWidget;
    auto* layout = new QVBoxLayout(pane);
    layout->addWidget(caption);
    layout->addWidget(m_words);
    layout->addWidget(m_contents, 1);
    layout->addWidget(m_hits, 1);
    connect(m_words, &QLineEdit::textChanged, this, &HelpWindow::search);
    connect(m_contents, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (item != nullptr)
            m_page->setSource(item->data(0, kUrlRole).toUrl());
    });
    connect(m_hits, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item != nullptr)
            m_page->setSource(item->data(kUrlRole).toUrl());
    });
    return pane;
}

void HelpWindow::fillContents()
{
    std::vector<QTreeWidgetItem*> parents = {m_contents->invisibleRootItem()};
    for (const HelpEntry& entry : m_book.contents()) {
        const auto depth = static_cast<std::size_t>(entry.depth);
        parents.resize(std::min(parents.size(), depth + 1));
        auto* item = new QTreeWidgetItem(parents.back(), {entry.title});
        item->setData(0, kUrlRole, entry.url);
        parents.push_back(item);
    }
    m_contents->expandAll();
}

void HelpWindow::search(const QString& words)
{
    const bool searching = !words.trimmed().isEmpty();
    m_contents->setHidden(searching);
    m_hits->setVisible(searching);
    m_hits->clear();
    for (const HelpHit& hit : m_book.search(words)) {
        auto* item = new QListWidgetItem(hit.title, m_hits);
        item->setData(kUrlRole, hit.url);
    }
    if (searching && m_hits->count() == 0) {
        auto* item = new QListWidgetItem(QStringLiteral("No topic holds these words."), m_hits);
        item->setFlags(Qt::NoItemFlags);
    }
    markWords();
}

void HelpWindow::showTopic(const QUrl& url)
{
    m_page->setSource(url.isEmpty() ? m_book.frontPage() : url);
    show();
    raise();
    activateWindow();
}

QUrl HelpWindow::currentTopic() const
{
    return m_page->source();
}

/// The contents show where the reader is, also after a link or Back.
void HelpWindow::followTopic(const QUrl& url)
{
    const QSignalBlocker quiet(m_contents);
    m_contents->setCurrentItem(nullptr);
    for (QTreeWidgetItemIterator it(m_contents); *it != nullptr; ++it) {
        // a chapter leads to its first topic: the later item is the topic itself
        if ((*it)->data(0, kUrlRole).toUrl().path() == url.path())
            m_contents->setCurrentItem(*it);
    }
    markWords();
}

/// Marks the words searched for on the page.
void HelpWindow::markWords()
{
    QList<QTextEdit::ExtraSelection> marks;
    QTextDocument& page = *m_page->document();
    for (const QString& word : m_words->text().split(u' ', Qt::SkipEmptyParts)) {
        for (auto at = page.find(word); !at.isNull(); at = page.find(word, at)) {
            QTextEdit::ExtraSelection mark;
            mark.cursor = at;
            mark.format.setBackground(palette().highlight());
            mark.format.setForeground(palette().highlightedText());
            marks.append(mark);
        }
    }
    m_page->setExtraSelections(marks);
}

void HelpWindow::print()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(m_page->documentTitle());
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        m_page->print(&printer);
}

} // namespace tambrix
