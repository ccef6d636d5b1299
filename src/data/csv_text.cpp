#include "data/csv_text.h"

#include <algorithm>
#include <optional>

namespace tambrix {

namespace {

QString quoted(QString field)
{
    const bool plain = std::none_of(field.cbegin(), field.cend(), [](QChar c) {
        return c == u',' || c == u'"' || c == u'\r' || c == u'\n';
    });
    if (plain && field == field.trimmed())
        return field;
    return u'"' + field.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

/// Goes through a text and knows the line and column that it is at.
class Reader
{
public:
    explicit Reader(const QString& text) : m_text(text) {}

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

    TextFault fault(const char* reason) const { return {m_line, m_column, QLatin1String(reason)}; }
    CsvField emptyField() const { return {{}, m_line, m_column}; }

private:
    const QString& m_text;
    qsizetype m_at = 0;
    int m_line = 1;
    int m_column = 1;
};

bool endsPlain(QChar c)
{
    return c == u',' || c == u'\r' || c == u'\n';
}

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
        while (!reader.atEnd() && !endsPlain(reader.next()) && reader.next() != u'"')
            field.text += reader.take();
    }
    if (reader.atEnd() || endsPlain(reader.next()))
        return std::nullopt;
    return reader.fault("a quote in the middle of a field");
}

} // namespace

QString csvText(const std::vector<QStringList>& table)
{
    QString text;
    for (const QStringList& row : table) {
        QStringList fields;
        for (const QString& field : row)
            fields += quoted(field);
        text += fields.join(u',') + QStringLiteral("\r\n");
    }
    return text;
}

QString TextFault::sentence() const
{
    return QStringLiteral("Line %1, column %2: %3.").arg(line).arg(column).arg(reason);
}

std::variant<std::vector<CsvRow>, TextFault> readCsv(const QString& text, std::size_t mostRows)
{
    Reader reader(text);
    std::vector<CsvRow> rows;
    while (!reader.atEnd()) {
        if (rows.size() == mostRows)
            return reader.fault("more lines than such a file can have");
        CsvRow row(1);
        for (;;) {
            if (auto fault = takeField(reader, row.back()))
                return *fault;
            if (reader.next() != u',')
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

} // namespace tambrix
