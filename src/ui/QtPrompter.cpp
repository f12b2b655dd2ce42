#include "QtPrompter.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>

namespace {

QMessageBox::Icon boxIcon(Prompter::Icon icon)
{
    switch (icon) {
    case Prompter::Icon::Exclamation:
        return QMessageBox::Warning;
    case Prompter::Icon::Question:
        return QMessageBox::Question;
    case Prompter::Icon::Information:
        return QMessageBox::Information;
    case Prompter::Icon::Critical:
        return QMessageBox::Critical;
    case Prompter::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons boxButtons(Prompter::Buttons buttons)
{
    switch (buttons) {
    case Prompter::Buttons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case Prompter::Buttons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Prompter::Buttons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

QMessageBox::StandardButton standardButton(Prompter::Answer answer)
{
    switch (answer) {
    case Prompter::Answer::Yes:
        return QMessageBox::Yes;
    case Prompter::Answer::No:
        return QMessageBox::No;
    case Prompter::Answer::Cancel:
        return QMessageBox::Cancel;
    case Prompter::Answer::Ok:
        break;
    }
    return QMessageBox::Ok;
}

// The answer when the box was closed without a button: what Escape would have chosen.
Prompter::Answer closedAnswer(Prompter::Buttons buttons)
{
    switch (buttons) {
    case Prompter::Buttons::YesNo:
        return Prompter::Answer::No;
    case Prompter::Buttons::YesNoCancel:
        return Prompter::Answer::Cancel;
    case Prompter::Buttons::Ok:
        break;
    }
    return Prompter::Answer::Ok;
}

QString describe(const QString& pattern)
{
    const QString extension = pattern.section(QLatin1Char('.'), -1).toLower();
    if (extension == QLatin1String("txt"))
        return QStringLiteral("Text files");
    if (extension == QLatin1String("dat"))
        return QStringLiteral("Data files");
    if (extension == QLatin1String("rec"))
        return QStringLiteral("Plot files");
    if (extension == QLatin1String("xls") || extension == QLatin1String("xlsx"))
        return QStringLiteral("Spreadsheet files");
    if (extension == QLatin1String("htm") || extension == QLatin1String("html"))
        return QStringLiteral("Web pages");
    return extension.toUpper() + QStringLiteral(" files");
}

} // namespace

QString QtPrompter::displayText(const QString& text)
{
    QString result = text;
    result.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    result.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return result;
}

QStringList QtPrompter::nameFilters(const QString& filter)
{
    const QString all = QStringLiteral("All files (*)");
    const QString trimmed = filter.trimmed();
    if (trimmed.isEmpty() || trimmed == QLatin1String("*") || trimmed == QLatin1String("*.*"))
        return { all };
    // Already in "Description (patterns)" form, several of them apart by ";;".
    if (trimmed.contains(QLatin1Char('('))) {
        QStringList filters = trimmed.split(QStringLiteral(";;"), Qt::SkipEmptyParts);
        // A choice among formats offers exactly those formats.
        if (filters.size() == 1)
            filters << all;
        return filters;
    }
    QStringList patterns
        = trimmed.split(QRegularExpression(QStringLiteral("[;\\s]+")), Qt::SkipEmptyParts);
    return { describe(patterns.first()) + QStringLiteral(" (") + patterns.join(QLatin1Char(' '))
            + QLatin1Char(')'),
        all };
}

QWidget* QtPrompter::owner() { return QApplication::activeWindow(); }

Prompter::Answer QtPrompter::message(const Message& message)
{
    QMessageBox box(boxIcon(message.icon), message.title, displayText(message.text),
        boxButtons(message.buttons), owner());
    box.setTextFormat(Qt::PlainText);
    box.setWindowModality(Qt::ApplicationModal);
    if (auto* preferred
        = qobject_cast<QPushButton*>(box.button(standardButton(message.defaultButton))))
        box.setDefaultButton(preferred);
    box.exec();
    QAbstractButton* clicked = box.clickedButton();
    switch (clicked ? box.standardButton(clicked) : QMessageBox::NoButton) {
    case QMessageBox::Ok:
        return Answer::Ok;
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Cancel:
        return Answer::Cancel;
    default:
        return closedAnswer(message.buttons);
    }
}

std::optional<QString> QtPrompter::inputBox(
    const QString& prompt, const QString& title, const QString& defaultText)
{
    QInputDialog dialog(owner());
    dialog.setWindowTitle(title);
    dialog.setLabelText(displayText(prompt));
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.setTextValue(defaultText);
    dialog.setWindowModality(Qt::ApplicationModal);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.textValue();
}

QString QtPrompter::chooseFile(const FileChoice& choice, bool save)
{
    QFileDialog dialog(owner(), choice.title, choice.directory);
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
    // The program asks its own question about an existing file (append, overwrite).
    dialog.setOption(QFileDialog::DontConfirmOverwrite, true);
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setNameFilters(nameFilters(choice.filter));
    QString suffix = choice.defaultExtension;
    if (suffix.startsWith(QLatin1Char('.')))
        suffix.remove(0, 1);
    // QFileDialog appends the suffix only to names that have none, as the operator expects.
    dialog.setDefaultSuffix(suffix);
    // Among several formats, a name without an extension gets the chosen format's.
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& f) {
        const QRegularExpressionMatch m
            = QRegularExpression(QStringLiteral("\\*\\.(\\w+)")).match(f);
        if (m.hasMatch())
            dialog.setDefaultSuffix(m.captured(1));
    });
    if (!choice.fileName.isEmpty())
        dialog.selectFile(choice.fileName);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    const QStringList files = dialog.selectedFiles();
    return files.isEmpty() ? QString() : files.first();
}

QString QtPrompter::saveFileName(const FileChoice& choice) { return chooseFile(choice, true); }

QString QtPrompter::openFileName(const FileChoice& choice) { return chooseFile(choice, false); }
