#include "data/setup_text.h"

#include "data/link_text.h"
#include "data/parameters.h"
#include "data/typed_number.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tambrix {

namespace {

const QString kFormat = QStringLiteral("TAMBRIX data set");
constexpr int kFormatVersion = 1;
constexpr std::size_t kEntries = gDataUpperBound + 1;
constexpr std::size_t kHeadRows = 2;
constexpr std::size_t kHeadFields = 3; // format, number, version
constexpr std::size_t kColumns = 6;    // entry, name, register, unit, value, label name

const QStringList kCaptions = {QStringLiteral("Entry"),    QStringLiteral("Name"),
                               QStringLiteral("Register"), QStringLiteral("Unit"),
                               QStringLiteral("Value"),    QStringLiteral("Label Name")};

QString nameOfEntry(std::size_t entry)
{
    return fromLink(nameOf(entryAt(static_cast<int>(entry))));
}

QString unitOfEntry(std::size_t entry)
{
    return QString::fromLatin1(entryAt(static_cast<int>(entry)).parameter.unit);
}

NamedSetup emptySetup(const QString& version)
{
    NamedSetup setup;
    setup.record.Version = version.toLatin1().toStdString();
    setup.record.Address.resize(kEntries);
    setup.record.Value.resize(kEntries);
    return setup;
}

/// The label whose first entry this is, or -1.
int labelBeginning(std::size_t entry)
{
    const int slot = static_cast<int>(entry);
    const int label = slot < kLabelSlot ? -1 : entryAt(slot).label;
    return label >= 0 && labelBase(label) == slot ? label : -1;
}

/// Spreadsheets fill the short first row with empty fields, and leave out the label name at a row's
/// end where it is empty.
void undoSpreadsheet(std::vector<CsvRow>& rows)
{
    while (!rows.empty() && rows[0].size() > kHeadFields && rows[0].back().text.isEmpty())
        rows[0].pop_back();
    for (std::size_t i = kHeadRows; i < rows.size(); ++i) {
        if (rows[i].size() + 1 == kColumns)
            rows[i].push_back({{}, rows[i].back().line, rows[i].back().column});
    }
}

std::optional<TextFault> checkHead(const std::vector<CsvRow>& rows)
{
    if (rows.empty() || rows[0].size() != kHeadFields || rows[0][0].text != kFormat)
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
std::optional<TextFault> takeRow(const CsvRow& row, std::size_t entry, NamedSetup& setup)
{
    if (row.size() != kColumns)
        return row.back().fault(QStringLiteral("%1 fields, not %2").arg(row.size()).arg(kColumns));
    if (row[0].text != QString::number(entry))
        return row[0].fault(QStringLiteral("entry %1 is expected here").arg(entry));
    const auto value = plainNumber(row[4].text);
    if (!value)
        return row[4].fault(QStringLiteral("no plain whole number"));
    const int label = labelBeginning(entry);
    if (label < 0 && !row[5].text.isEmpty())
        return row[5].fault(QStringLiteral("a label's name stands beside its first value"));
    if (label >= 0)
        setup.names.set(label, unguarded(row[5].text));
    setup.record.Address[entry] = unguarded(row[2].text).toLatin1().toStdString();
    setup.record.Value[entry] = *value;
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

/// An object a line for every label that has a name.
QByteArray jsonNames(const LabelNames& names)
{
    QByteArray text;
    for (int label = 0; label < kLabels; ++label) {
        if (!names.of(label).isEmpty())
            text += (text.isEmpty() ? "\n{\"label\": " : ",\n{\"label\": ") +
                    QByteArray::number(label) + ", \"name\": " + jsonString(names.of(label)) + '}';
    }
    return text;
}

/// Returns the first element that names no label, or one for the second time.
std::optional<qsizetype> takeNames(const QJsonArray& list, LabelNames& names)
{
    for (qsizetype i = 0; i < list.size(); ++i) {
        const QJsonObject element = list.at(i).toObject();
        const int label = element[QStringLiteral("label")].toInt(-1);
        if (label < 0 || label >= kLabels || !names.of(label).isEmpty())
            return i;
        names.set(label, element[QStringLiteral("name")].toString());
    }
    return std::nullopt;
}

bool isWholeNumber(const QJsonValue& value)
{
    const double number = value.toDouble(0.5);
    return value.isDouble() && std::floor(number) == number &&
           number >= std::numeric_limits<std::int32_t>::min() &&
           number <= std::numeric_limits<std::int32_t>::max();
}

} // namespace

QByteArray setupCsv(const NamedSetup& setup)
{
    const SetupDataRecord& record = setup.record;
    std::vector<QStringList> table = {
        {kFormat, QString::number(kFormatVersion), guarded(QString::fromLatin1(record.Version))},
        kCaptions};
    for (std::size_t i = 0; i < kEntries; ++i) {
        const int label = labelBeginning(i);
        table.push_back({QString::number(i), nameOfEntry(i),
                         guarded(QString::fromLatin1(record.Address[i])), unitOfEntry(i),
                         QString::number(record.Value[i]),
                         label < 0 ? QString() : guarded(setup.names.of(label))});
    }
    return csvText(table).toUtf8();
}

std::variant<NamedSetup, TextFault> readSetupCsv(const QByteArray& text)
{
    if (text.size() > kLongestSetupText)
        return TextFault{1, 1, QStringLiteral("far too long for a data set")};
    auto parsed = readCsv(text, kEntries + kHeadRows);
    if (const auto* fault = std::get_if<TextFault>(&parsed))
        return *fault;
    auto& rows = std::get<std::vector<CsvRow>>(parsed);
    undoSpreadsheet(rows);
    if (const auto fault = checkHead(rows))
        return *fault;
    NamedSetup setup = emptySetup(unguarded(rows[0][2].text));
    for (std::size_t i = 0; i + kHeadRows < rows.size(); ++i) {
        if (const auto fault = takeRow(rows[i + kHeadRows], i, setup))
            return *fault;
    }
    if (rows.size() < kEntries + kHeadRows)
        return TextFault{static_cast<int>(rows.size()) + 1, 1,
                         QStringLiteral("entry %1 is missing").arg(rows.size() - kHeadRows)};
    return setup;
}

QByteArray setupJson(const NamedSetup& setup)
{
    const SetupDataRecord& record = setup.record;
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
    return text + "],\n\"labelNames\": [" + jsonNames(setup.names) + "\n]\n}\n";
}

std::variant<NamedSetup, TextFault> readSetupJson(const QByteArray& text)
{
    if (text.size() > kLongestSetupText)
        return TextFault{1, 1, QStringLiteral("far too long for a data set")};
    QJsonParseError error;
    const QJsonObject root = QJsonDocument::fromJson(text, &error).object();
    if (error.error != QJsonParseError::NoError)
        return faultAt(text, error.offset, error.errorString());
    if (root[QStringLiteral("format")] != kFormat ||
        root[QStringLiteral("formatVersion")] != kFormatVersion)
        return TextFault{1, 1, QStringLiteral("no data set of this program")};
    const QJsonArray entries = root[QStringLiteral("entries")].toArray();
    NamedSetup setup = emptySetup(root[QStringLiteral("version")].toString());
    for (std::size_t i = 0; i < kEntries; ++i) {
        const QJsonObject entry = entries.at(static_cast<qsizetype>(i)).toObject();
        if (entry[QStringLiteral("entry")] != static_cast<qint64>(i))
            return faultInEntry(text, i, "missing, or not in its place");
        if (!isWholeNumber(entry[QStringLiteral("value")]))
            return faultInEntry(text, i, "no plain whole number");
        setup.record.Address[i] =
            entry[QStringLiteral("register")].toString().toLatin1().toStdString();
        setup.record.Value[i] = entry[QStringLiteral("value")].toInt();
    }
    if (entries.size() != static_cast<qsizetype>(kEntries))
        return faultInEntry(text, kEntries, "one more than there are");
    const auto wrong = takeNames(root[QStringLiteral("labelNames")].toArray(), setup.names);
    if (wrong)
        return faultAt(text, std::max<qsizetype>(text.indexOf("\"labelNames\""), 0),
                       QStringLiteral("name %1: no label, or one that has a name").arg(*wrong + 1));
    return setup;
}

} // namespace tambrix
