#pragma once

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <functional>

// Waits on the event loop for the next modal dialog of type T and hands it to `act`. A dialog
// of another kind, or one still open a few seconds on, is rejected so that a broken window fails
// the test instead of hanging it.
template <typename T> class ModalDriver {
public:
    explicit ModalDriver(std::function<void(T*)> act)
        : act_(std::move(act))
    {
        timer_.setInterval(10);
        QObject::connect(&timer_, &QTimer::timeout, [this] { poll(); });
        timer_.start();
    }
    bool seen() const { return seen_; }

private:
    void poll()
    {
        QWidget* modal = QApplication::activeModalWidget();
        auto* dialog = qobject_cast<T*>(modal);
        if (!seen_ && dialog && dialog->isVisible()) {
            seen_ = true;
            act_(dialog);
            return;
        }
        if (++polls_ < 500 && (!modal || dialog))
            return;
        polls_ = 0;
        if (auto* stuck = qobject_cast<QDialog*>(modal))
            stuck->reject();
    }

    std::function<void(T*)> act_;
    QTimer timer_;
    int polls_ = 0;
    bool seen_ = false;
};
