#include "data/setup_text.h"

#include "data/link_text.h"
#include "data/parameters.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace tambrix {

namespace {

const QString kFormat = QStringLiteral("TAMBRIX data set");
constexpr int kFormatVersion = 1;
constexpr std::size_t kEntries = gDataUpperBound + 1;
constexpr std::size_t kHeadRows = 2;
constexpr std::size_t kColumns = 5; // entry, name, register, unit, value
constexpr qsizetype kLongestText = 1 << 20;

const QStringList kCaptions = {QStringLiteral("Entry"), QStringLiteral("Name"),
                               QStringLiteral("Register"), QStringLiteral("Unit"),
                               QStringLiteral("Value")};

QString nameOfEntry(std::size_t entry)
{
    return fromLink(nameOf(entryAt(static_cast<int>(entry))));
}

QString unitOfEntry(std::size_t entry)
{
    return QString::fromLatin1(entryAt(static_cast<int>(entry)).parameter.unit);
}

/// A plain whole number: digits, a minus sign before them at most.
std::optional<std::int32_t> plainNumber(const QString& text)
{
    static const QRegularExpression plain(QStringLiteral("^-?[0-9]{1,10}$"));
    bool fits = false;
    const int value = text.toInt(&fits);
    return fits && plain.match(text).hasMatch() ? std::optional(value) : std::nullopt;
}

SetupDataRecord emptyRecord(const QString& version)
{
    SetupDataRecord record;
    record.Version = version.toLatin1().toStdString();
    record.Address.resize(kEntries);
    record.Value.resize(kEntries);
    return record;
}

std::optional<TextFault> checkHead(const std::vector<CsvRow>& rows)
{
    if (rows.empty() || rows[0].size() != 3 || rows[0][0].text != kFormat)
        return TextFault{1, 1, QStringLiteral("no data set of this program")};
    if (rows[0][1].text != QString::number(kFormatVersion))
        return rows[0][1].fault(QStringLiteral("a format that this program does not know"));
    QStringList captions;
    if (rows.size() > 1) {
        for (const CsvField& field : rows[1])
            captions += field.text;
    }
    if (captions != kCaptions)
        return TextFault{2, 1, QStringLiteral("other captions than %1").arg(kCaptions.join(u','))};
    return std::nullopt;
}

/// Takes the row of entry `entry`.
std::optional<TextFault> takeRow(const CsvRow& row, std::size_t entry, SetupDataRecord& record)
{
    if (row.size() != kColumns)
        return row.back().fault(QStringLiteral("%1 fields, not %2").arg(row.size()).arg(kColumns));
    if (row[0].text != QString::number(entry))
        return row[0].fault(QStringLiteral("entry %1 is expected here").arg(entry));
    const auto value = plainNumber(row[4].text);
    if (!value)
        return row[4].fault(QStringLiteral("no plain whole number"));
    record.Address[entry] = row[2].text.toLatin1().toStdString();
    record.Value[entry] = *value;
    return std::nullopt;
}

TextFault faultAt(const QByteArray& text, qsizetype offset, const QString& reason)
{
    const QByteArray before = text.left(offset);
    return {static_cast<int>(before.count('\n')) + 1,
            static_cast<int>(before.size() - (before.lastIndexOf('\n') + 1)) + 1, reason};
}

/// Where entry `entry` stands in a text with one entry a line.
TextFault faultInEntry(const QByteArray& text, std::size_t entry, const char* reason)
{
    const QByteArray mark = "{\"entry\": " + QByteArray::number(qulonglong{entry}) + ',';
    const qsizetype place = std::max<qsizetype>(text.indexOf(mark), 0);
    return faultAt(text, place,
                   QStringLiteral("entry %1: %2").arg(entry).arg(QLatin1String(reason)));
}

QByteArray jsonString(const QString& text)
{
    const QByteArray list = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return list.mid(1, list.size() - 2);
}

bool isWholeNumber(const QJsonValue& value)
{
    const double number = value.toDouble(0.5);
    return value.isDouble() && std::floor(number) == number &&
           std::abs(number) <= std::numeric_limits<std::int32_t>::max();
}

} // namespace

QByteArray setupCsv(const SetupDataRecord& record)
{
    std::vector<QStringList> table = {
        {kFormat, QString::number(kFormatVersion), QString::fromLatin1(record.Version)}, kCaptions};
    for (std::size_t i = 0; i < kEntries; ++i)
        table.push_back({QString::number(i), nameOfEntry(i), QString::fromLatin1(record.Address[i]),
                         unitOfEntry(i), QString::number(record.Value[i])});
    return csvText(table).toUtf8();
}

std::variant<SetupDataRecord, TextFault> readSetupCsv(const QByteArray& text)
{
    if (text.size() > kLongestText)
        return TextFault{1, 1, QStringLiteral("far too long for a data set")};
    auto parsed = readCsv(QString::fromUtf8(text), kEntries + kHeadRows);
    if (const auto* fault = std::get_if<TextFault>(&parsed))
        return *fault;
    const auto& rows = std::get<std::vector<CsvRow>>(parsed);
    if (const auto fault = checkHead(rows))
        return *fault;
    SetupDataRecord record = emptyRecord(rows[0][2].text);
    for (std::size_t i = 0; i + kHeadRows < rows.size(); ++i) {
        if (const auto fault = takeRow(rows[i + kHeadRows], i, record))
            return *fault;
    }
    if (rows.size() < kEntries + kHeadRows)
        return TextFault{static_cast<int>(rows.size()) + 1, 1,
                         QStringLiteral("entry %1 is missing").arg(rows.size() - kHeadRows)};
    return record;
}

QByteArray setupJson(const SetupDataRecord& record)
{
    QByteArray text = "{\n\"format\": " + jsonString(kFormat) +
                      ",\n\"formatVersion\": " + QByteArray::number(kFormatVersion) +
                      ",\n\"version\": " + jsonString(QString::fromLatin1(record.Version)) +
                      ",\n\"entries\": [\n";
    for (std::size_t i = 0; i < kEntries; ++i)
        text += "{\"entry\": " + QByteArray::number(qulonglong{i}) +
                ", \"name\": " + jsonString(nameOfEntry(i)) +
                ", \"register\": " + jsonString(QString::fromLatin1(record.Address[i])) +
                ", \"unit\": " + jsonString(unitOfEntry(i)) +
                ", \"value\": " + QByteArray::number(record.Value[i]) +
                (i + 1 < kEntries ? "},\n" : "}\n");
    return text + "]\n}\n";
}

std::variant<SetupDataRecord, TextFault> readSetupJson(const QByteArray& text)
{
    if (text.size() > kLongestText)
        return TextFault{1, 1, QStringLiteral("far too long for a data set")};
    QJsonParseError error;
    const QJsonObject root = QJsonDocument::fromJson(text, &error).object();
    if (error.error != QJsonParseError::NoError)
        return faultAt(text, error.offset, error.errorString());
    if (root[QStringLiteral("format")] != kFormat ||
        root[QStringLiteral("formatVersion")] != kFormatVersion)
        return TextFault{1, 1, QStringLiteral("no data set of this program")};
    const QJsonArray entries = root[QStringLiteral("entries")].toArray();
    SetupDataRecord record = emptyRecord(root[QStringLiteral("version")].toString());
    for (std::size_t i = 0; i < kEntries; ++i) {
        const QJsonObject entry = entries.at(static_cast<qsizetype>(i)).toObject();
        if (entry[QStringLiteral("entry")] != static_cast<qint64>(i))
            return faultInEntry(text, i, "missing, or not in its place");
        if (!isWholeNumber(entry[QStringLiteral("value")]))
            return faultInEntry(text, i, "no plain whole number");
        record.Address[i] = entry[QStringLiteral("register")].toString().toLatin1().toStdString();
        record.Value[i] = entry[QStringLiteral("value")].toInt();
    }
    if (entries.size() != static_cast<qsizetype>(kEntries))
        return faultInEntry(text, kEntries, "one more than there are");
    return record;
}

} // namespace tambrix
