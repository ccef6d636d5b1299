#pragma once

#include <QDir>
#include <QTextBrowser>

namespace tambrix {

/// Shows the pages of one folder and their pictures, and no other file: not what a page names
/// elsewhere, nor a device, nor what is far too long for a page.
class HelpPage : public QTextBrowser
{
    Q_OBJECT

public:
    explicit HelpPage(const QString& folder) : m_folder(QDir::cleanPath(folder)) {}

protected:
    QVariant loadResource(int type, const QUrl& url) override;

private:
    QString m_folder;
};

} // namespace tambrix
