#include "shell/news_line.h"

#include "controls/picture.h"

#include <QLabel>
#include <QMainWindow>

namespace tambrix {

namespace {

constexpr int kMargin = 4; // px

} // namespace

NewsLine::NewsLine(QMainWindow& window, const QString& topic)
    : QToolBar(&window), m_text(new QLabel)
{
    setObjectName(QStringLiteral("bar") + topic);
    setMovable(false);
    toggleViewAction()->setVisible(false);
    m_text->setObjectName(QStringLiteral("lbl%1News").arg(topic));
    m_text->setMargin(kMargin);
    m_text->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_text->setMinimumWidth(1); // a long path does not widen the window
    addWidget(m_text);
    addAction(QStringLiteral("Seen"), this, &QToolBar::hide);
    window.addToolBarBreak(Qt::BottomToolBarArea); // below the news of another
    window.addToolBar(Qt::BottomToolBarArea, this);
    hide();
}

void NewsLine::tell(const QString& news)
{
    m_text->setText(news);
    m_text->setToolTip(QStringLiteral("<p>%1</p>").arg(news.toHtmlEscaped()));
    show();
    announce(*m_text);
}

} // namespace tambrix
