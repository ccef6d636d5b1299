#include "data/setup_text_file.h"

#include "data/whole_file.h"

namespace tambrix {

std::variant<NamedSetup, Refusal> readSetupText(const QString& path)
{
    const auto content = readWholeFile(path, kLongestSetupText);
    if (!content)
        return Refusal{
            QStringLiteral("It cannot be used: %1.").arg(whyUnread(path, kLongestSetupText))};
    const bool json = content->trimmed().startsWith('{');
    auto read = json ? readSetupJson(*content) : readSetupCsv(*content);
    if (const auto* fault = std::get_if<TextFault>(&read))
        return Refusal{fault->sentence()};
    return std::get<NamedSetup>(std::move(read));
}

} // namespace tambrix
