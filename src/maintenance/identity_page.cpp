#include "maintenance/identity_page.h"

#include "controls/value_label.h"
#include "data/link_text.h"
#include "data/program_file_name.h"
#include "link/board_registers.h"
#include "shell/link_poller.h"

#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLocale>

#include <span>

namespace tambrix {

namespace {

constexpr std::size_t kNameLength = board_registers::kProgramNameLength;

// Rows, in both frames.
constexpr std::size_t kName = 0;
constexpr std::size_t kRevision = 1;
constexpr std::size_t kChecksum = 2;
constexpr std::size_t kBoard = 3;
constexpr std::size_t kDate = 4;

constexpr std::array kCaptions = {"Name:", "Revision:", "Checksum:", "Target Board:", "Rev Date:"};

QGroupBox* makeSide(const char* frame, const char* caption, const char* name,
                    std::span<ValueLabel*> labels)
{
    QGroupBox* group = makeFrame(QLatin1String(frame), QLatin1String(caption));
    auto* form = new QFormLayout(group);
    form->setHorizontalSpacing(16);
    form->setVerticalSpacing(12);
    for (std::size_t row = 0; row < labels.size(); ++row) {
        const QString what =
            spokenText(QLatin1String(caption)) + u' ' + QLatin1String(kCaptions[row]);
        labels[row] = new ValueLabel(arrayName(name, static_cast<int>(row)), what, "-");
        labels[row]->setTextInteractionFlags(Qt::TextSelectableByMouse);
        form->addRow(QLatin1String(kCaptions[row]), labels[row]);
    }
    return group;
}

QString fileDate(const QString& file)
{
    const QFileInfo info(file);
    return info.exists() ? QLocale().toString(info.lastModified(), QLocale::ShortFormat)
                         : QStringLiteral("-");
}

} // namespace

IdentityPage::IdentityPage(ProgramState& state) : m_state(state)
{
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(
        makeSide("fraRevIdentInPLC", "In Target Board:", "lblRevIdentInPLC", m_inBoard), 1,
        Qt::AlignTop);
    layout->addWidget(makeSide("fraRevIdentOnDisk", "On Disk:", "lblRevIdentOnDisk", m_onDisk), 1,
                      Qt::AlignTop);
}

void IdentityPage::showDisk(const QString& programFile, int boardType)
{
    const QString revisionFile = ChangeExtension(programFile, QStringLiteral("rev"));
    const auto identity =
        QFileInfo::exists(programFile)
            ? readRevisionFile(QFileInfo(revisionFile).filesystemAbsoluteFilePath())
            : std::nullopt;
    const ProgramIdentity shown = identity.value_or(ProgramIdentity{"-", "0", "0"});
    m_onDisk[kName]->setValue(fromLink(printable(shown.name)));
    m_onDisk[kRevision]->setValue(fromLink(shown.revision));
    m_onDisk[kChecksum]->setValue(fromLink(shown.checksum));
    m_onDisk[kBoard]->setValue(
        fromLink(m_state.gLink.TargetboardName(static_cast<std::int16_t>(boardType))));
    m_onDisk[kDate]->setValue(fileDate(ChangeExtension(programFile, QStringLiteral("hex"))));
}

Task IdentityPage::refresh(LinkPoller& poller)
{
    static const auto kRegisters = [] {
        std::array<std::string, kNameLength + 2> registers; // name, checksum, revision
        for (std::size_t i = 0; i < registers.size(); ++i)
            registers[i] = byteRegister(board_registers::kProgramName + static_cast<int>(i));
        return registers;
    }();
    return poller.readRegisters(
        kRegisters, [this] { return m_state.canReachBoard(); },
        [this](std::size_t index, const QString& value) { showRegister(index, value); });
}

void IdentityPage::showRegister(std::size_t index, const QString& value)
{
    if (index < kNameLength) {
        // a character that could not be read leaves its place blank
        const QString name =
            m_inBoard[kName]->text().leftJustified(static_cast<qsizetype>(index), u' ', true);
        const std::string character(1, static_cast<char>(value.toInt()));
        m_inBoard[kName]->setValue(name + fromLink(printable(character)));
    } else {
        m_inBoard[index == kNameLength ? kChecksum : kRevision]->setValue(value);
    }
}

void IdentityPage::showMode(bool online)
{
    for (ValueLabel* label : m_inBoard)
        label->setEnabled(online);
}

} // namespace tambrix
