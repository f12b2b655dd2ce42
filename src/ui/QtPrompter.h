#pragma once

#include "base/Prompter.h"

#include <QStringList>

class QWidget;

// Shows the program's message boxes, input box and file choosers as Qt dialogs. Every box is
// application-modal and centred on the window that is active when it opens. Qt's own dialogs are
// used instead of the desktop's, so the boxes look and behave the same everywhere.
class QtPrompter : public Prompter {
public:
    QtPrompter() = default;

    using Prompter::message;
    Answer message(const Message& message) override;
    std::optional<QString> inputBox(
        const QString& prompt, const QString& title, const QString& defaultText) override;
    QString saveFileName(const FileChoice& choice) override;
    QString openFileName(const FileChoice& choice) override;

    // The name filters a chooser offers for `filter` ("*.txt" gives "Text files (*.txt)" first,
    // then "All files (*)"; an empty filter gives only the latter).
    static QStringList nameFilters(const QString& filter);
    // The program's texts end lines with CR LF; the dialogs want LF alone.
    static QString displayText(const QString& text);

private:
    static QWidget* owner();
    static QString chooseFile(const FileChoice& choice, bool save);
};
