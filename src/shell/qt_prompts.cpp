#include "shell/qt_prompts.h"

#include "shell/tabbed_text.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QInputDialog>
#include <QMessageBox>
#include <QTreeView>

namespace tambrix {

namespace {

QMessageBox::Icon iconOf(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::Warning:
        return QMessageBox::Warning;
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    case BoxIcon::Information:
        break;
    }
    return QMessageBox::Information;
}

QMessageBox::StandardButtons buttonsOf(BoxButtons buttons)
{
    switch (buttons) {
    case BoxButtons::RetryCancel:
        return QMessageBox::Retry | QMessageBox::Cancel;
    case BoxButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case BoxButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

constexpr QSize kFileDialog(860, 520); // all columns of Qt's own dialog can be read

BoxAnswer answerOf(int button)
{
    switch (button) {
    case QMessageBox::Retry:
        return BoxAnswer::Retry;
    case QMessageBox::Yes:
        return BoxAnswer::Yes;
    case QMessageBox::No:
        return BoxAnswer::No;
    case QMessageBox::Ok:
        return BoxAnswer::Ok;
    default:
        return BoxAnswer::Cancel;
    }
}

/// Qt's own dialog gives size and date less room than they need; a system's own has no such list.
void widenColumns(QFileDialog& dialog)
{
    const auto* list = dialog.findChild<QTreeView*>();
    if (list == nullptr)
        return;
    QHeaderView* header = list->header();
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
}

std::optional<QString> askFile(QFileDialog& dialog, const FileQuestion& question)
{
    dialog.setWindowTitle(question.title);
    dialog.setNameFilters(nameFilters(question.filter));
    dialog.setDirectory(question.folder);
    if (!question.name.contains(u'*'))
        dialog.selectFile(question.name);
    dialog.resize(dialog.size().expandedTo(kFileDialog));
    widenColumns(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.selectedFiles().constFirst();
}

bool mayReplace(const QString& file)
{
    return !QFileInfo::exists(file) ||
           QMessageBox::question(QApplication::activeWindow(), QStringLiteral("Save As"),
                                 QStringLiteral("%1 already exists.\nDo you want to replace it?")
                                     .arg(QDir::toNativeSeparators(file))) == QMessageBox::Yes;
}

} // namespace

QString withLineBreaks(QString text)
{
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
}

QStringList nameFilters(const QString& filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList captions; // each has its pattern in brackets, where Qt looks for it
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        captions += parts[i];
    return captions;
}

QString withSuffix(const QString& file, const QString& suffix)
{
    const QString ending = u'.' + suffix;
    return suffix.isEmpty() || file.endsWith(ending, Qt::CaseInsensitive) ? file : file + ending;
}

BoxAnswer QtPrompts::showMessage(const OperatorBox& box)
{
    QMessageBox dialog(QApplication::activeWindow());
    dialog.setIcon(iconOf(box.icon));
    dialog.setWindowTitle(QString::fromStdString(box.title));
    const QString text = withLineBreaks(QString::fromStdString(box.text));
    const bool hasColumns = text.contains(u'\t');
    dialog.setTextFormat(hasColumns ? Qt::RichText : Qt::PlainText);
    dialog.setText(hasColumns ? tabbedTextAsTable(text) : text);
    dialog.setStandardButtons(buttonsOf(box.buttons));
    if (box.buttons == BoxButtons::YesNo)
        dialog.setEscapeButton(QMessageBox::No);
    return answerOf(dialog.exec());
}

std::optional<QString> QtPrompts::askText(const QString& title, const QString& prompt,
                                          const QString& preset)
{
    bool accepted = false;
    const QString text = QInputDialog::getText(QApplication::activeWindow(), title, prompt,
                                               QLineEdit::Normal, preset, &accepted);
    return accepted ? std::optional(text) : std::nullopt;
}

std::optional<QString> QtPrompts::askOpenFile(const FileQuestion& question)
{
    QFileDialog dialog(QApplication::activeWindow());
    dialog.setFileMode(QFileDialog::ExistingFile);
    return askFile(dialog, question);
}

std::optional<QString> QtPrompts::askSaveFile(const FileQuestion& question)
{
    QFileDialog dialog(QApplication::activeWindow());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(question.suffix);
    for (;;) {
        const auto file = askFile(dialog, question);
        // A name that ends as one of the filters says is taken as it is.
        const bool known =
            file && question.filter.contains(QStringLiteral("*.%1)").arg(QFileInfo(*file).suffix()),
                                             Qt::CaseInsensitive);
        const QString wanted = !file   ? QString()
                               : known ? *file
                                       : withSuffix(*file, question.suffix);
        if (!file || *file == wanted || mayReplace(wanted))
            return file ? std::optional(wanted) : std::nullopt;
    }
}

} // namespace tambrix
