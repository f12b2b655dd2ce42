#pragma once

#include "base/Prompter.h"

#include <QStringList>
#include <deque>
#include <functional>
#include <vector>

// Records every box the program shows and answers from a script (OK or the default button
// when the script runs dry). onShow runs while a box or a file chooser is open.
class FakePrompter : public Prompter {
public:
    struct Shown {
        QString kind; // "message", "input", "save", "open"
        Message message;
        FileChoice choice;
        QString prompt;
    };

    using Prompter::message;
    Answer message(const Message& message) override
    {
        shown.push_back({ QStringLiteral("message"), message, {}, {} });
        if (onShow)
            onShow(message);
        if (!answers.empty()) {
            const Answer answer = answers.front();
            answers.pop_front();
            return answer;
        }
        return message.buttons == Buttons::Ok ? Answer::Ok : message.defaultButton;
    }
    std::optional<QString> inputBox(
        const QString& prompt, const QString& title, const QString& defaultText) override
    {
        Shown s { QStringLiteral("input"), {}, {}, prompt };
        s.message.title = title;
        s.message.text = defaultText;
        shown.push_back(s);
        if (inputs.empty())
            return std::nullopt;
        const bool answered = inputs.front().has_value();
        const QString text = answered ? *inputs.front() : QString();
        inputs.pop_front();
        return answered ? std::optional<QString>(text) : std::nullopt;
    }
    QString saveFileName(const FileChoice& choice) override { return choose("save", choice); }
    QString openFileName(const FileChoice& choice) override { return choose("open", choice); }

    std::vector<Message> messages() const
    {
        std::vector<Message> result;
        for (const auto& s : shown) {
            if (s.kind == QLatin1String("message"))
                result.push_back(s.message);
        }
        return result;
    }
    QStringList titles() const
    {
        QStringList result;
        for (const auto& m : messages())
            result << m.title;
        return result;
    }
    void clear() { shown.clear(); }

    std::vector<Shown> shown;
    std::deque<Answer> answers;
    std::deque<std::optional<QString>> inputs;
    std::deque<QString> files;
    std::function<void(const Message&)> onShow;

private:
    QString choose(const char* kind, const FileChoice& choice)
    {
        shown.push_back({ QString::fromLatin1(kind), {}, choice, {} });
        if (onShow) {
            Message box;
            box.title = choice.title;
            onShow(box);
        }
        if (files.empty())
            return {};
        QString f = files.front();
        files.pop_front();
        return f;
    }
};
