#pragma once

#include <QString>
#include <optional>

// Message boxes, the input box and the file choosers. The Qt adapter shows real dialogs; the
// test fake records a transcript and answers from a script.
class Prompter {
public:
    enum class Buttons { Ok, YesNo, YesNoCancel };
    enum class Icon { None, Exclamation, Question, Information, Critical };
    enum class Answer { Ok, Yes, No, Cancel };

    struct Message {
        QString title;
        QString text;
        Buttons buttons = Buttons::Ok;
        Icon icon = Icon::None;
        Answer defaultButton = Answer::Ok;
    };

    struct FileChoice {
        QString title;
        QString filter; // "*.txt", or empty for all files
        QString defaultExtension; // "txt", or empty
        QString directory;
        QString fileName;
    };

    virtual ~Prompter() = default;

    virtual Answer message(const Message& message) = 0;
    // The answer, or nothing when the operator cancelled.
    virtual std::optional<QString> inputBox(
        const QString& prompt, const QString& title, const QString& defaultText)
        = 0;
    // The chosen path, or an empty string when cancelled.
    virtual QString saveFileName(const FileChoice& choice) = 0;
    virtual QString openFileName(const FileChoice& choice) = 0;

    Answer message(const QString& title, const QString& text, Buttons buttons = Buttons::Ok,
        Icon icon = Icon::None, Answer defaultButton = Answer::Ok)
    {
        return message(Message { title, text, buttons, icon, defaultButton });
    }
};
