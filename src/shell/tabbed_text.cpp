#include "shell/tabbed_text.h"

#include <QStringList>

#include <algorithm>

namespace tambrix {

namespace {

const QLatin1String kBlank("&nbsp;");

/// Plain text as rich text: its blanks stay where they are.
QString escaped(const QString& text)
{
    return text.toHtmlEscaped().replace(u' ', kBlank);
}

QString paragraphOf(const QString& line)
{
    return QLatin1String("<div>") + (line.isEmpty() ? QString(kBlank) : line.toHtmlEscaped()) +
           QLatin1String("</div>");
}

QString rowOf(const QString& line)
{
    QString row;
    for (const QString& cell : line.split(u'\t'))
        row += QLatin1String("<td>") + escaped(cell) + QLatin1String("&nbsp;&nbsp;</td>");
    return QLatin1String("<tr>") + row + QLatin1String("</tr>");
}

} // namespace

QString tabbedTextAsTable(const QString& text)
{
    const QStringList lines = text.split(u'\n');
    const auto isTabbed = [](const QString& line) { return line.contains(u'\t'); };
    const auto first = std::find_if(lines.begin(), lines.end(), isTabbed);
    const auto last = std::find_if(lines.rbegin(), lines.rend(), isTabbed).base();
    QString rich;
    for (auto line = lines.begin(); line != lines.end(); ++line) {
        if (line == first)
            rich += QLatin1String("<table>");
        const bool inTable = line >= first && line < last;
        rich += inTable ? rowOf(*line) : paragraphOf(*line);
        if (line + 1 == last)
            rich += QLatin1String("</table>");
    }
    return rich;
}

} // namespace tambrix
