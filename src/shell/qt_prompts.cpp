#include "shell/qt_prompts.h"

#include "shell/tabbed_text.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

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

std::optional<QString> askFile(QFileDialog& dialog, const FileQuestion& question)
{
    dialog.setWindowTitle(question.title);
    dialog.setNameFilters(nameFilters(question.filter));
    dialog.setDirectory(question.folder);
    if (!question.name.contains(u'*'))
        dialog.selectFile(question.name);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.selectedFiles().constFirst();
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
    return askFile(dialog, question);
}

} // namespace tambrix
