#include "reports/report_content.h"

#include "data/color_density.h"

#include <QFileInfo>
#include <QLocale>

#include <array>

namespace tambrix {

namespace {

constexpr double kQuantityShare = 3.0;
constexpr double kLabelShare = 1.2;

std::int32_t valueOf(const ProgramState& state, int slot)
{
    return state.gWorkingData.Value[static_cast<std::size_t>(slot)];
}

QString numberOf(const ProgramState& state, int slot)
{
    return QString::number(valueOf(state, slot));
}

QString enabledDuctors(std::int32_t bits)
{
    QStringList ductors;
    for (int d = 0; d < kDuctors; ++d) {
        if ((bits >> d & 1) != 0)
            ductors.append(QString::number(d + 1));
    }
    if (ductors.isEmpty())
        return QStringLiteral("none");
    return ductors.size() == kDuctors ? QStringLiteral("all") : ductors.join(QLatin1String(", "));
}

ReportBlock parameterRow(const Parameter& parameter, const QString& value)
{
    return {{{QLatin1String(parameter.name), value, QLatin1String(parameter.unit)}}};
}

ReportTable setupTable(const ProgramState& state)
{
    const auto row = [&](const Parameter& parameter) {
        return parameterRow(parameter, numberOf(state, parameter.slot));
    };
    return {
        QStringLiteral("Set-up Parameters"),
        {{QStringLiteral("Parameter"), 3, Qt::AlignLeft},
         {QStringLiteral("Value"), 1.5},
         {QStringLiteral("Unit"), 2, Qt::AlignLeft}},
        {row(reg::kMaximumCycle), row(reg::kMaximumOn), row(reg::kResponseTime),
         ReportBlock{{{QLatin1String(reg::kColorGain.name), numberOf(state, reg::kColorGain.slot),
                       QStringLiteral("% (100% per 2000 CPM)")}}},
         parameterRow(reg::kFeedbackEnable,
                      enabledDuctors(valueOf(state, reg::kFeedbackEnable.slot))),
         row(reg::kLabelNumber)}};
}

ReportTable shiftTable(const ProgramState& state)
{
    ReportTable table{QStringLiteral("Shift Data Counts"),
                      {{QStringLiteral("Ductor"), 3, Qt::AlignLeft},
                       {QLatin1String(reg::kShiftCount.name), 1.5},
                       {QStringLiteral("Unit"), 2, Qt::AlignLeft}},
                      {}};
    for (int d = 0; d < kDuctors; ++d)
        table.blocks.push_back({{{QStringLiteral("Ductor No. %1").arg(d + 1),
                                  QLocale().toString(valueOf(state, kShiftCountSlot + d)),
                                  QLatin1String(reg::kShiftCount.unit)}}});
    return table;
}

std::vector<ReportColumn> labelColumns()
{
    std::vector<ReportColumn> columns = {
        {QStringLiteral("Label"), kLabelShare, Qt::AlignLeft},
        {QStringLiteral("Ductor No."), kQuantityShare, Qt::AlignLeft}};
    for (int d = 0; d < kDuctors; ++d)
        columns.push_back({QString::number(d + 1)});
    return columns;
}

/// Three rows of a label: ON, CYCLE and the density that they give.
ReportBlock labelBlock(const ProgramState& state, int label)
{
    const int maximumOn = valueOf(state, reg::kMaximumOn.slot);
    QStringList on = {QString::number(label), QStringLiteral("ON (0.1 cans)")};
    QStringList cycle = {{}, QStringLiteral("CYCLE (0.1 cans)")};
    QStringList density = {{}, QStringLiteral("Color Density")};
    for (int d = 0; d < kDuctors; ++d) {
        const int onValue = valueOf(state, labelBase(label) + d);
        const int cycleValue = valueOf(state, labelBase(label) + kDuctors + d);
        on.append(QString::number(onValue));
        cycle.append(QString::number(cycleValue));
        density.append(colorDensity(onValue, cycleValue, maximumOn));
    }
    return {{on, cycle, density}};
}

ReportTable labelTable(const ProgramState& state)
{
    const ReportSettings& settings = state.report;
    const int first = settings.allLabels ? 0 : settings.firstLabel;
    const int last = settings.allLabels ? kLabels - 1 : settings.lastLabel;
    ReportTable table{QStringLiteral("Label Set-up Data"), labelColumns(), {}};
    for (int label = first; label <= last; ++label)
        table.blocks.push_back(labelBlock(state, label));
    return table;
}

QString asOf(const QDateTime& stamp)
{
    const bool dayOnly = stamp.time() == QTime(0, 0);
    return dayOnly ? QLocale().toString(stamp.date(), QLocale::ShortFormat)
                   : QLocale().toString(stamp, QLocale::ShortFormat);
}

bool isNamed(const ProgramState& state)
{
    return !state.gUntitled && !state.gFileNameTitle.isEmpty();
}

/// The header names the file: a reader must see when its values are not, or no longer, the file's.
QStringList fileNotes(const ProgramState& state)
{
    const QFileInfo file(state.gFileNamePath);
    if (!isNamed(state) || !file.exists())
        return {};
    const QString saved = QStringLiteral("File saved %1").arg(asOf(file.lastModified()));
    return {state.hasUnsavedChanges()
                ? saved + QStringLiteral("; the report shows values that were changed since.")
                : saved + u'.'};
}

/// The report prints the data set in this program, also while the screens show the controller's
/// own values: on line it says so, or a reader would take it for what the press runs with.
QStringList onlineNotes(const ProgramState& state)
{
    if (!state.gLink.OnlineMode)
        return {};
    const QString since = state.gUploadNOW.isValid()
                              ? QStringLiteral("as of %1").arg(asOf(state.gUploadNOW))
                              : QStringLiteral("to which nothing has been uploaded yet");
    return {QStringLiteral("Printed on line. The report shows the data set in this program, %1.")
                .arg(since),
            QStringLiteral("The controller may hold other values.")};
}

Report headOf(const ProgramState& state, const QDateTime& now)
{
    return {isNamed(state) ? state.gFileNameTitle : QStringLiteral("untitled"),
            QLocale().toString(now.date(), QLocale::ShortFormat),
            fileNotes(state) + onlineNotes(state),
            {},
            {}};
}

LabelSheet sheetOf(const ProgramState& state, int label)
{
    const QString& name = state.labelNames.of(label);
    LabelSheet sheet;
    sheet.title = QStringLiteral("Label %1").arg(label);
    if (!name.isEmpty())
        sheet.title += QStringLiteral(": ") + name;
    const int most = valueOf(state, reg::kMaximumOn.slot);
    for (int d = 0; d < kDuctors; ++d) {
        DuctorInk& ink = sheet.ductors[static_cast<std::size_t>(d)];
        ink.on = valueOf(state, labelBase(label) + d);
        ink.cycle = valueOf(state, labelBase(label) + kDuctors + d);
        ink.share = colorDensityPercent(ink.on, ink.cycle, most) / 100;
        ink.density = colorDensity(ink.on, ink.cycle, most);
    }
    return sheet;
}

} // namespace

Report reportContent(const ProgramState& state, const QDateTime& now)
{
    Report report = headOf(state, now);
    if (state.report.printSetupData)
        report.tables.push_back(setupTable(state));
    if (state.report.printShiftData)
        report.tables.push_back(shiftTable(state));
    if (state.report.printLabelData)
        report.tables.push_back(labelTable(state));
    return report;
}

Report labelReport(const ProgramState& state, const std::vector<int>& labels, const QDateTime& now)
{
    Report report = headOf(state, now);
    for (const int label : labels)
        report.sheets.push_back(sheetOf(state, label));
    return report;
}

} // namespace tambrix
