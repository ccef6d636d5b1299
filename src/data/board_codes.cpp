#include "data/board_codes.h"

#include "data/file_text.h"
#include "data/link_text.h"
#include "link/fault_text.h"
#include "link/lenient_number.h"
#include "link/text_records.h"

#include <QFileInfo>

namespace tambrix {

namespace {

constexpr int kLastCoCpuFault = 63;
constexpr int kNoAnswer = 66;
constexpr int kUserFault = 69;
constexpr int kProgramFaults[] = {92, 93};
constexpr int kFirstBoardFault = 64;
constexpr int kLastBoardFault = 122;

bool isProgramFault(int code)
{
    return code == kProgramFaults[0] || code == kProgramFaults[1];
}

} // namespace

QString codeText(int value)
{
    return fromLink(faultCodeText(static_cast<std::int16_t>(value)));
}

QString correctiveAction(int code)
{
    // kept: "peplace" has always stood there, and the service people search for it.
    if (code >= 1 && code <= kLastCoCpuFault)
        return QStringLiteral(
            "Replace CO-CPU board at \"CO-CPU Slot\" and try again.  "
            "If fault persists, peplace R120 processor board and try again.  "
            "If fault persists, verify proper use of \"sfunc05/06/12\" in user program.");
    if (code == kNoAnswer)
        return QStringLiteral(
            "Verify connection of cable between computer \"COM\" port and target board "
            "\"PROG PORT\".  Verify cable wiring and connectors.  If fault persists, replace "
            "target board and/or try a different computer.");
    if (code == kUserFault)
        return QStringLiteral(
            "User program executed an sfunc09() system fault function call.  See User "
            "program for details on source of fault and corrective action.");
    if (isProgramFault(code))
        return QStringLiteral(
            "Program is invalid.  Re-dump program to target board.  If fault persists, "
            "verify cable connections between computer and target board.  If fault persists, "
            "replace target board.");
    if (code < kFirstBoardFault || code > kLastBoardFault)
        return QStringLiteral("None");
    return QStringLiteral("Reset fault and try again.  If fault persists, replace target board "
                          "and try again.  See Fennix Manual for more details.");
}

std::optional<QString> lastTextOf(const QString& code, const QString& file)
{
    const auto records = readTextRecords(QFileInfo(file).filesystemAbsoluteFilePath());
    if (!records)
        return std::nullopt;
    QString text;
    for (const TextRecord& record : *records) {
        if (sameIgnoringCase(record.code, code.toStdString()))
            text = fileText(record.text);
    }
    return text;
}

} // namespace tambrix
