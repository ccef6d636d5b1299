#include "maintenance/identity_page.h"

#include "controls/named_controls.h"
#include "data/link_text.h"
#include "data/program_file_name.h"
#include "platform/cooperative_loop.h"

#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>

#include <span>

namespace tambrix {

namespace {

constexpr int kFirstRegister = 61424; // eight characters of the name, checksum, revision
constexpr int kNameLength = 8;
constexpr int kChecksumIndex = 8;
constexpr int kRegisters = 10;

// Rows, in both frames.
constexpr std::size_t kName = 0;
constexpr std::size_t kRevision = 1;
constexpr std::size_t kChecksum = 2;
constexpr std::size_t kBoard = 3;
constexpr std::size_t kDate = 4;

constexpr std::array kCaptions = {"Name:", "Revision:", "Checksum:", "Target Board:", "Rev Date:"};

QGroupBox* makeSide(const char* frame, const char* caption, const char* name,
                    std::span<QLabel*> labels)
{
    QGroupBox* group = makeFrame(QLatin1String(frame), QLatin1String(caption));
    auto* form = new QFormLayout(group);
    form->setHorizontalSpacing(16);
    form->setVerticalSpacing(12);
    for (std::size_t row = 0; row < labels.size(); ++row) {
        labels[row] = makeLabel(arrayName(name, static_cast<int>(row)), QStringLiteral("-"));
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
    m_onDisk[kName]->setText(fromLink(printable(shown.name)));
    m_onDisk[kRevision]->setText(fromLink(shown.revision));
    m_onDisk[kChecksum]->setText(fromLink(shown.checksum));
    m_onDisk[kBoard]->setText(
        fromLink(m_state.gLink.TargetboardName(static_cast<std::int16_t>(boardType))));
    m_onDisk[kDate]->setText(fileDate(ChangeExtension(programFile, QStringLiteral("hex"))));
}

Task IdentityPage::refresh(CooperativeLoop& loop)
{
    enableBoardSide(true);
    for (int index = 0; index < kRegisters; ++index) {
        co_await loop.pendingEvents();
        if (m_state.gLink.CommError)
            co_return;
        const std::string value =
            m_state.gLink.RSRead("B" + std::to_string(kFirstRegister + index));
        if (!m_state.gLink.CommError)
            showRegister(index, std::stoi(value));
    }
}

void IdentityPage::showRegister(int index, int value)
{
    if (index < kNameLength) {
        const QString name = index == 0 ? QString() : m_inBoard[kName]->text();
        const std::string character(1, static_cast<char>(value));
        m_inBoard[kName]->setText(name + fromLink(printable(character)));
    } else {
        m_inBoard[index == kChecksumIndex ? kChecksum : kRevision]->setNum(value);
    }
}

void IdentityPage::showOffline()
{
    enableBoardSide(false);
}

void IdentityPage::enableBoardSide(bool enabled)
{
    for (QLabel* label : m_inBoard)
        label->setEnabled(enabled);
}

} // namespace tambrix
