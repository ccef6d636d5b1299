#include "data/file_text.h"

#include <QStringDecoder>

namespace tambrix {

namespace {

/// What Windows-1252 has in the places 80H to 9FH, where Latin-1 has control characters. The five
/// places that it leaves free stay what they are.
constexpr char16_t kPlaces80To9F[] = u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030"
                                     u"\u0160\u2039\u0152\u008D\u017D\u008F"
                                     u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122"
                                     u"\u0161\u203A\u0153\u009D\u017E\u0178";

QString fromWindows1252(const std::string& bytes)
{
    QString text = QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
    for (QChar& character : text) {
        const char16_t code = character.unicode();
        if (code >= 0x80 && code <= 0x9F)
            character = kPlaces80To9F[code - 0x80];
    }
    return text;
}

} // namespace

QString fileText(const std::string& bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return utf8.hasError() ? fromWindows1252(bytes) : text;
}

} // namespace tambrix
