#include "data/csv_text.h"

#include <algorithm>
#include <optional>

namespace tambrix {

namespace {

QString quoted(QString field, QChar separator)
{
    const bool plain = std::none_of(field.cbegin(), field.cend(), [separator](QChar c) {
        return c == separator || c == u'"' || c == u'\r' || c == u'\n';
    });
    if (plain && field == field.trimmed())
        return field;
    return u'"' + field.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

/// Goes through a text and knows the line and column that it is at.
class Reader
{
public:
    Reader(const QString& text, QChar separator) : m_text(text), m_separator(separator) {}

    bool atEnd() const { return m_at >= m_text.size(); }
    QChar next() const { return atEnd() ? QChar() : m_text[m_at]; }

    QChar take()
    {
        const QChar c = m_text[m_at++];
        m_column = c == u'\n' ? 1 : m_column + 1;
        m_line += c == u'\n';
        return c;
    }

    /// Takes a line's end, CR LF or LF, where there is one.
    bool takeLineEnd()
    {
        const bool both = next() == u'\r' && m_at + 1 < m_text.size() && m_text[m_at + 1] == u'\n';
        if (both)
            take();
        if (!both && next() != u'\n')
            return false;
        take();
        return true;
    }

    bool atSeparator() const { return !atEnd() && next() == m_separator; }
    /// At a quote that a field must not have in its middle.
    bool atStrayQuote() const { return m_separator == u',' && next() == u'"'; }
    bool atFieldEnd() const
    {
        return atEnd() || atSeparator() || next() == u'\r' || next() == u'\n';
    }

    TextFault fault(const char* reason) const { return {m_line, m_column, QLatin1String(reason)}; }
    CsvField emptyField() const { return {{}, m_line, m_column}; }

private:
    const QString& m_text;
    QChar m_separator;
    qsizetype m_at = 0;
    int m_line = 1;
    int m_column = 1;
};

/// The field's text behind its opening quote.
std::optional<TextFault> takeQuoted(Reader& reader, CsvField& field)
{
    const TextFault open = reader.fault("a quote is opened and not closed");
    reader.take();
    for (;;) {
        if (reader.atEnd())
            return open;
        const QChar c = reader.take();
        if (c == u'"' && reader.next() != u'"')
            return std::nullopt;
        if (c == u'"')
            reader.take();
        field.text += c;
    }
}

std::optional<TextFault> takeField(Reader& reader, CsvField& field)
{
    field = reader.emptyField();
    if (reader.next() == u'"') {
        if (auto fault = takeQuoted(reader, field))
            return fault;
    } else {
        while (!reader.atFieldEnd() && !reader.atStrayQuote())
            field.text += reader.take();
    }
    if (field.text.contains(QChar::ReplacementCharacter))
        return field.fault(QStringLiteral("characters that are not UTF-8"));
    if (reader.atFieldEnd())
        return std::nullopt;
    return reader.fault("a quote in the middle of a field");
}

CsvTable readTable(const QString& text, std::size_t mostRows, QChar separator)
{
    Reader reader(text, separator);
    std::vector<CsvRow> rows;
    while (!reader.atEnd()) {
        if (rows.size() == mostRows)
            return reader.fault("more lines than there can be");
        CsvRow row(1);
        for (;;) {
            if (auto fault = takeField(reader, row.back()))
                return *fault;
            if (!reader.atSeparator())
                break;
            reader.take();
            row.emplace_back();
        }
        rows.push_back(std::move(row));
        if (!reader.atEnd() && !reader.takeLineEnd())
            return reader.fault("a line that ends without a line feed");
    }
    return rows;
}

} // namespace

QString csvText(const std::vector<QStringList>& table, QChar separator)
{
    QString text;
    for (const QStringList& row : table) {
        QStringList fields;
        for (const QString& field : row)
            fields += quoted(field, separator);
        text += fields.join(separator) + QStringLiteral("\r\n");
    }
    return text;
}

QString guarded(const QString& text)
{
    const bool formula = !text.isEmpty() && QStringLiteral("=+-@'\t\r\n").contains(text.front());
    return formula ? u'\'' + text : text;
}

QString unguarded(const QString& text)
{
    return text.startsWith(u'\'') ? text.mid(1) : text;
}

QString TextFault::sentence() const
{
    return QStringLiteral("Line %1, column %2: %3.").arg(line).arg(column).arg(reason);
}

CsvTable readCsv(const QByteArray& text, std::size_t mostRows)
{
    return readTable(QString::fromUtf8(text), mostRows, u',');
}

CsvTable readTabbed(const QString& text, std::size_t mostRows)
{
    return readTable(text, mostRows, u'\t');
}

} // namespace tambrix
