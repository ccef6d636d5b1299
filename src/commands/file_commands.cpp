#include "commands/file_commands.h"

#include "commands/data_access.h"
#include "commands/interruption.h"
#include "data/search_expression.h"
#include "data/setup_file_source.h"
#include "data/setup_text_file.h"
#include "data/whole_file.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace tambrix {

namespace {

/// All set-up files below `folder`, in the order of their names.
QStringList setupFilesBelow(const QString& folder)
{
    if (!QFileInfo(folder).isDir())
        throw Failure{ExitCode::File, QStringLiteral("there is no folder '%1'").arg(folder)};
    QStringList files;
    QDirIterator walk(folder, {QStringLiteral("*.sdt")}, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext())
        files.push_back(walk.next());
    files.sort();
    return files;
}

void printMatch(Console& console, const QString& file, const std::vector<int>& labels)
{
    QJsonArray numbers;
    QStringList texts;
    for (const int label : labels) {
        numbers.append(label);
        texts.push_back(QString::number(label));
    }
    if (console.json())
        console.print(
            QJsonObject{{QStringLiteral("file"), file}, {QStringLiteral("labels"), numbers}});
    else
        console.print(labels.empty()
                          ? file
                          : file + QStringLiteral(": label ") + texts.join(QStringLiteral(", ")));
}

ExitCode find(const CommandCall& call)
{
    const auto parsed = SearchExpression::parse(call.arguments[0]);
    if (const auto* refusal = std::get_if<Refusal>(&parsed))
        throw Failure{ExitCode::Usage, refusal->reason};
    const auto& expression = std::get<SearchExpression>(parsed);
    catchInterruptions();
    bool found = false;
    for (const QString& file : setupFilesBelow(call.arguments[1])) {
        stopIfInterrupted();
        const auto loaded = loadSetupData(file);
        if (const auto* refusal = std::get_if<Refusal>(&loaded)) {
            call.console.note(QStringLiteral("%1: %2").arg(file, refusal->reason));
            continue;
        }
        if (const auto labels = expression.match(std::get<SetupDataRecord>(loaded))) {
            found = true;
            printMatch(call.console, file, *labels);
        }
    }
    return found ? ExitCode::Done : ExitCode::Differs;
}

enum class Form { SetupFile, Csv, Json };

Form formOf(const QString& path)
{
    const QString ending = QFileInfo(path).suffix().toLower();
    if (ending == QLatin1String("sdt"))
        return Form::SetupFile;
    if (ending == QLatin1String("csv"))
        return Form::Csv;
    if (ending == QLatin1String("json"))
        return Form::Json;
    throw Failure{ExitCode::Usage,
                  QStringLiteral("%1: the name must end in .sdt, .csv or .json").arg(path)};
}

/// A names file that cannot be used costs the names, never the data.
LabelNames namesBeside(const QString& path, Console& console)
{
    const LoadedNames loaded = loadLabelNames(path);
    if (!loaded.fault.isEmpty())
        console.complain(QStringLiteral("%1: %2").arg(labelNamesFile(path), loaded.fault));
    return loaded.names;
}

NamedSetup readAs(Form form, const QString& path, Console& console)
{
    if (form == Form::SetupFile)
        return {loadedFile(path), namesBeside(path, console)};
    auto read = readSetupText(path);
    if (const auto* refusal = std::get_if<Refusal>(&read))
        throw Failure{ExitCode::File, QStringLiteral("%1: %2").arg(path, refusal->reason)};
    return std::get<NamedSetup>(std::move(read));
}

ExitCode convert(const CommandCall& call)
{
    const QString& out = call.arguments[1];
    const Form to = formOf(out);
    const NamedSetup setup = readAs(formOf(call.arguments[0]), call.arguments[0], call.console);
    if (to == Form::SetupFile) {
        saveFile(out, setup.record);
        if (const auto reason = saveLabelNames(out, setup.names))
            throw Failure{ExitCode::File,
                          QStringLiteral("%1: names of labels: %2").arg(out, *reason)};
    } else if (const auto reason =
                   writeWholeFile(out, to == Form::Csv ? setupCsv(setup) : setupJson(setup))) {
        throw Failure{ExitCode::File, QStringLiteral("%1: %2").arg(out, *reason)};
    }
    return ExitCode::Done;
}

} // namespace

Command convertCommand()
{
    Command command;
    command.name = QStringLiteral("convert");
    command.arguments = QStringLiteral("IN OUT");
    command.fewest = command.most = 2;
    command.summary = QStringLiteral(
        "Convert a data set from one form into another, as the names' endings say: .sdt, .csv or "
        ".json. A text that is not quite right is refused with line and column.");
    command.example = QStringLiteral("tambrix-cli convert press3.sdt press3.csv");
    command.run = convert;
    return command;
}

Command findCommand()
{
    Command command;
    command.name = QStringLiteral("find");
    command.arguments = QStringLiteral("EXPR FOLDER");
    command.fewest = command.most = 2;
    command.summary = QStringLiteral(
        "Tell which set-up files below FOLDER match, and for which labels. Terms such as W690>500, "
        "ON3=25, CYCLE<90 or label 12 ON>120 are joined by 'and'. The exit code is 1 when none "
        "does.");
    command.example =
        QStringLiteral("tambrix-cli find \"label 12 ON3=25 and W690>500\" D:/presses");
    command.run = find;
    return command;
}

} // namespace tambrix
