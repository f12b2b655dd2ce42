#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QString>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

// The reader's end of a pseudo-terminal, opened like a plain device: collects whatever arrives.
// With watch false nothing is read until readAvailable() is called.
class PtyReader : public QObject {
    Q_OBJECT
public:
    explicit PtyReader(const QString& path, bool watch = true, QObject* parent = nullptr)
        : QObject(parent)
    {
        fd_ = ::open(path.toLocal8Bit().constData(), O_RDONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        if (fd_ >= 0 && watch) {
            notifier_ = new QSocketNotifier(fd_, QSocketNotifier::Read, this);
            connect(notifier_, &QSocketNotifier::activated, this, &PtyReader::readAvailable);
        }
    }
    ~PtyReader() override
    {
        if (fd_ >= 0)
            ::close(fd_);
    }

    bool isOpen() const { return fd_ >= 0; }

    void readAvailable()
    {
        char buffer[4096];
        for (;;) {
            const ssize_t n = ::read(fd_, buffer, sizeof buffer);
            if (n > 0) {
                data.append(buffer, int(n));
                continue;
            }
            if (n < 0 && errno == EINTR)
                continue;
            // The other end has gone: stop watching, or the notifier would fire for ever.
            if (notifier_ && (n == 0 || errno != EAGAIN))
                notifier_->setEnabled(false);
            break;
        }
        emit arrived();
    }

    QByteArray data;

signals:
    void arrived();

private:
    int fd_ = -1;
    QSocketNotifier* notifier_ = nullptr;
};
