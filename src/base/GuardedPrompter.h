#pragma once

#include "Prompter.h"

#include <functional>

// Wraps the real prompter and counts the boxes open. While one is open the serial receive path
// holds the bytes back; when the last one closes it is told to go on, so bytes that arrived
// meanwhile are handled in order and the handler is never re-entered.
class GuardedPrompter : public Prompter {
    template <typename F> auto guarded(F&& show) -> decltype(show())
    {
        if (depth_ == 0 && beforeModal_)
            beforeModal_();
        ++depth_;
        struct Leave {
            GuardedPrompter* self;
            ~Leave()
            {
                if (--self->depth_ == 0 && self->afterModal_)
                    self->afterModal_();
            }
        } leave { this };
        return show();
    }

public:
    explicit GuardedPrompter(Prompter& inner)
        : inner_(inner)
    {
    }

    bool modalOpen() const { return depth_ > 0; }
    void setAfterModal(std::function<void()> callback) { afterModal_ = std::move(callback); }
    // Runs before the first box opens: whatever the screen may show meanwhile is saved first.
    void setBeforeModal(std::function<void()> callback) { beforeModal_ = std::move(callback); }

    using Prompter::message;
    Answer message(const Message& message) override
    {
        return guarded([&] { return inner_.message(message); });
    }
    std::optional<QString> inputBox(
        const QString& prompt, const QString& title, const QString& defaultText) override
    {
        return guarded([&] { return inner_.inputBox(prompt, title, defaultText); });
    }
    QString saveFileName(const FileChoice& choice) override
    {
        return guarded([&] { return inner_.saveFileName(choice); });
    }
    QString openFileName(const FileChoice& choice) override
    {
        return guarded([&] { return inner_.openFileName(choice); });
    }

private:
    Prompter& inner_;
    int depth_ = 0;
    std::function<void()> afterModal_;
    std::function<void()> beforeModal_;
};
