#include "PtyServer.h"

#include <QSocketNotifier>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace {

QString systemError(const char* what)
{
    return QStringLiteral("%1: %2").arg(
        QLatin1String(what), QString::fromLocal8Bit(std::strerror(errno)));
}

void closeDescriptor(int& fd)
{
    if (fd >= 0)
        ::close(fd);
    fd = -1;
}

} // namespace

PtyServer::PtyServer(QObject* parent)
    : QObject(parent)
{
}

PtyServer::~PtyServer() { close(); }

bool PtyServer::open(QString* error)
{
    close();
    auto fail = [&](const char* what) {
        const QString message = systemError(what);
        close();
        if (error)
            *error = message;
        return false;
    };

    master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (master_ < 0)
        return fail("posix_openpt");
    if (::grantpt(master_) != 0)
        return fail("grantpt");
    if (::unlockpt(master_) != 0)
        return fail("unlockpt");
    char name[128];
    if (::ptsname_r(master_, name, sizeof name) != 0)
        return fail("ptsname");
    slavePath_ = QString::fromLocal8Bit(name);

    slave_ = ::open(name, O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (slave_ < 0)
        return fail("open slave");
    termios settings {};
    if (::tcgetattr(slave_, &settings) != 0)
        return fail("tcgetattr");
    // Raw: no echo back to us, no line editing, no CR/LF translation; the bytes arrive as sent.
    ::cfmakeraw(&settings);
    ::cfsetispeed(&settings, B4800);
    ::cfsetospeed(&settings, B4800);
    settings.c_cflag |= CLOCAL | CREAD;
    if (::tcsetattr(slave_, TCSANOW, &settings) != 0)
        return fail("tcsetattr");

    writeNotifier_ = new QSocketNotifier(master_, QSocketNotifier::Write, this);
    writeNotifier_->setEnabled(false);
    connect(writeNotifier_, &QSocketNotifier::activated, this, &PtyServer::flushQueue);
    // A reader that turns echo on sends bytes back; they are read and dropped so they can
    // never fill the return path and stall our writes.
    readNotifier_ = new QSocketNotifier(master_, QSocketNotifier::Read, this);
    connect(readNotifier_, &QSocketNotifier::activated, this, &PtyServer::drainMaster);
    return true;
}

void PtyServer::close()
{
    delete writeNotifier_;
    writeNotifier_ = nullptr;
    delete readNotifier_;
    readNotifier_ = nullptr;
    closeDescriptor(slave_);
    closeDescriptor(master_);
    slavePath_.clear();
    queue_.clear();
    queueOffset_ = 0;
}

void PtyServer::write(const QByteArray& data)
{
    if (master_ < 0 || data.isEmpty())
        return;
    // Let the terminal take what it can before the bound decides what is lost.
    qint64 offset = 0;
    while (offset < data.size()) {
        const qint64 room = MaxQueuedBytes - queuedBytes();
        if (room <= 0)
            break;
        const qint64 chunk = qMin(room, data.size() - offset);
        queue_.append(data.constData() + offset, int(chunk));
        offset += chunk;
        const qint64 before = queuedBytes();
        flushQueue();
        if (queuedBytes() == before)
            break; // the terminal is full
    }
    dropped_ += data.size() - offset;
}

void PtyServer::flushQueue()
{
    qint64 written = 0;
    while (master_ >= 0 && queuedBytes() > 0) {
        const ssize_t n
            = ::write(master_, queue_.constData() + queueOffset_, size_t(queuedBytes()));
        if (n > 0) {
            queueOffset_ += n;
            written += n;
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && errno != EAGAIN && errno != EWOULDBLOCK) {
            qWarning("PtyServer: %s", qPrintable(systemError("write")));
            dropped_ += queuedBytes();
            queue_.clear();
            queueOffset_ = 0;
        }
        break;
    }
    const bool empty = queuedBytes() == 0;
    if (empty) {
        queue_.clear();
        queueOffset_ = 0;
    } else if (queueOffset_ > 16 * 1024) {
        queue_.remove(0, int(queueOffset_));
        queueOffset_ = 0;
    }
    if (writeNotifier_)
        writeNotifier_->setEnabled(!empty);
    if (written > 0)
        emit bytesWritten(written);
    if (empty && written > 0)
        emit drained();
}

void PtyServer::drainMaster()
{
    char buffer[512];
    while (master_ >= 0) {
        const ssize_t n = ::read(master_, buffer, sizeof buffer);
        if (n > 0)
            continue;
        if (n < 0 && errno == EINTR)
            continue;
        break;
    }
}

int PtyServer::unreadBytes() const
{
    int count = 0;
    if (slave_ < 0 || ::ioctl(slave_, FIONREAD, &count) != 0)
        return 0;
    return count;
}

void PtyServer::discardPending()
{
    queue_.clear();
    queueOffset_ = 0;
    if (writeNotifier_)
        writeNotifier_->setEnabled(false);
    if (slave_ >= 0)
        ::tcflush(slave_, TCIFLUSH);
}
