#include "data/label_names.h"

#include "data/whole_file.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace tambrix {

namespace {

const QString kFormat = QStringLiteral("TAMBRIX label names");
const QString kFormatVersion = QStringLiteral("1");
const QStringList kCaptions = {QStringLiteral("Label"), QStringLiteral("Name")};
constexpr std::size_t kHeadRows = 2;
constexpr qint64 kLongestFile = 64 * 1024;

bool isRow(const CsvRow& row, const QString& first, const QString& second)
{
    return row.size() == 2 && row[0].text == first && row[1].text == second;
}

/// Takes the row of one label.
std::optional<TextFault> takeRow(const CsvRow& row, LabelNames& names)
{
    if (row.size() != 2)
        return row.back().fault(QStringLiteral("a label's number and its name are expected"));
    bool isNumber = false;
    const int label = row[0].text.toInt(&isNumber);
    if (!isNumber || label < 0 || label >= kLabels)
        return row[0].fault(QStringLiteral("no label has this number"));
    if (!names.of(label).isEmpty())
        return row[0].fault(QStringLiteral("label %1 has two names").arg(label));
    names.set(label, unguarded(row[1].text));
    return std::nullopt;
}

/// What no line of text has becomes a blank.
bool isStrange(QChar c)
{
    return c.category() == QChar::Other_Control || c == QChar::ReplacementCharacter;
}

/// A name for what is in the way, under which nothing stands yet.
QString freeName(const QString& path)
{
    QString name = path + QStringLiteral(".old");
    for (int copy = 2; QFileInfo::exists(name); ++copy)
        name = QStringLiteral("%1.old%2").arg(path).arg(copy);
    return name;
}

} // namespace

void LabelNames::set(int label, const QString& name)
{
    QString line = name;
    std::replace_if(line.begin(), line.end(), isStrange, QChar(u' '));
    line = line.simplified().left(kLongest);
    if (!line.isEmpty() && line.back().isHighSurrogate()) // half of a character
        line.chop(1);
    m_names[static_cast<std::size_t>(label)] = line.trimmed();
}

QByteArray labelNamesCsv(const LabelNames& names)
{
    std::vector<QStringList> table = {{kFormat, kFormatVersion}, kCaptions};
    for (int label = 0; label < kLabels; ++label) {
        if (!names.of(label).isEmpty())
            table.push_back({QString::number(label), guarded(names.of(label))});
    }
    return csvText(table).toUtf8();
}

std::variant<LabelNames, TextFault> readLabelNamesCsv(const QByteArray& text)
{
    if (text.size() > kLongestFile)
        return TextFault{1, 1, QStringLiteral("far too long for a list of names")};
    auto parsed = readCsv(text, kLabels + kHeadRows);
    if (const auto* fault = std::get_if<TextFault>(&parsed))
        return *fault;
    const auto& rows = std::get<std::vector<CsvRow>>(parsed);
    if (rows.empty() || !isRow(rows[0], kFormat, kFormatVersion))
        return TextFault{1, 1, QStringLiteral("no list of label names of this program")};
    if (rows.size() < kHeadRows || !isRow(rows[1], kCaptions[0], kCaptions[1]))
        return TextFault{2, 1, QStringLiteral("other captions than %1").arg(kCaptions.join(u','))};
    LabelNames names;
    for (std::size_t i = kHeadRows; i < rows.size(); ++i) {
        if (const auto fault = takeRow(rows[i], names))
            return *fault;
    }
    return names;
}

QString labelNamesFile(const QString& setupFile)
{
    const QFileInfo file(setupFile);
    return file.path() + u'/' + file.completeBaseName() + QStringLiteral(".labels.csv");
}

LoadedNames loadLabelNames(const QString& setupFile)
{
    const QString path = labelNamesFile(setupFile);
    if (!QFileInfo::exists(path))
        return {};
    const auto content = readWholeFile(path, kLongestFile);
    if (!content)
        return {{},
                QStringLiteral("The file cannot be used: %1.").arg(whyUnread(path, kLongestFile))};
    const auto read = readLabelNamesCsv(*content);
    if (const auto* fault = std::get_if<TextFault>(&read))
        return {{}, fault->sentence()};
    return {std::get<LabelNames>(read), {}};
}

std::optional<QString> saveLabelNames(const QString& setupFile, const LabelNames& names)
{
    const QString path = labelNamesFile(setupFile);
    const LoadedNames there = loadLabelNames(setupFile);
    if (there.fault.isEmpty() && there.names == names)
        return std::nullopt;
    if (!there.fault.isEmpty() && !QFile::rename(path, freeName(path)))
        return QStringLiteral("%1 is in the way").arg(QFileInfo(path).fileName());
    if (!names.isEmpty())
        return writeWholeFile(path, labelNamesCsv(names));
    const bool gone = !QFileInfo::exists(path) || QFile::remove(path);
    return gone ? std::nullopt : std::optional(QStringLiteral("%1 cannot be removed").arg(path));
}

} // namespace tambrix
