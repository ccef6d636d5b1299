#include "help/help_page.h"

#include "data/whole_file.h"
#include "help/help_book.h"

#include <QDir>
#include <QUrl>

namespace tambrix {

QVariant HelpPage::loadResource(int /*type*/, const QUrl& url)
{
    const QUrl whole = source().resolved(url);
    const QString path = QDir::cleanPath(whole.toLocalFile());
    if (!whole.isLocalFile() || !path.startsWith(m_folder + u'/'))
        return {};
    return readWholeFile(path, HelpBook::kLongestFile).value_or(QByteArray());
}

} // namespace tambrix
