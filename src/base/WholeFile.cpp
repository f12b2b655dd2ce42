#include "WholeFile.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

// Written with the system's own calls rather than QSaveFile: a buffered QSaveFile only finds a
// full disk while committing, and Qt 6.4 then still renames the empty temporary file over the
// old one and reports success.
namespace {

WholeFile::Result failed(int error)
{
    return { false, QString::fromLocal8Bit(std::strerror(error)) };
}

bool writeAll(int fd, const char* data, qint64 size)
{
    while (size > 0) {
        const ssize_t written = ::write(fd, data, size_t(std::min<qint64>(size, 1 << 30)));
        if (written < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        data += written;
        size -= written;
    }
    return true;
}

// The temporary file beside the target: closed and removed unless it took the target's place.
struct Temporary {
    QByteArray name;
    int fd = -1;
    bool placed = false;
    ~Temporary()
    {
        if (fd >= 0)
            ::close(fd);
        if (!placed && !name.isEmpty())
            ::unlink(name.constData());
    }
};

mode_t newFileMode()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

} // namespace

namespace WholeFile {

Result Write(const QString& path, const QByteArray& bytes, bool append)
{
    // Through a link, the file it points to is the one replaced.
    const QFileInfo link(path);
    const QString resolved = link.isSymLink() ? link.canonicalFilePath() : QString();
    const QFileInfo target(resolved.isEmpty() ? path : resolved);
    const QByteArray targetName = QFile::encodeName(target.absoluteFilePath());

    struct stat old { };
    const bool exists = ::stat(targetName.constData(), &old) == 0;
    // A file the operator made read-only is not replaced behind its back.
    if (exists && ::access(targetName.constData(), W_OK) != 0)
        return failed(errno);
    QByteArray before;
    if (append && exists) {
        QFile file(target.absoluteFilePath());
        if (!file.open(QIODevice::ReadOnly))
            return { false, file.errorString() };
        before = file.readAll();
        if (file.error() != QFileDevice::NoError)
            return { false, file.errorString() };
    }

    Temporary temp;
    QByteArray name = QFile::encodeName(target.absolutePath() + QStringLiteral("/.")
        + target.fileName() + QStringLiteral(".XXXXXX"));
    temp.fd = ::mkstemp(name.data());
    if (temp.fd < 0)
        return failed(errno);
    temp.name = name;
    if (::fchmod(temp.fd, exists ? old.st_mode & 07777 : newFileMode()) != 0
        || !writeAll(temp.fd, before.constData(), before.size())
        || !writeAll(temp.fd, bytes.constData(), bytes.size()) || ::fsync(temp.fd) != 0)
        return failed(errno);
    const int fd = temp.fd;
    temp.fd = -1;
    if (::close(fd) != 0)
        return failed(errno);
    if (::rename(temp.name.constData(), targetName.constData()) != 0)
        return failed(errno);
    temp.placed = true;
    return {};
}

bool WriteAll(QFile& file, const QByteArray& bytes)
{
    qint64 done = 0;
    while (done < bytes.size()) {
        const qint64 n = file.write(bytes.constData() + done, bytes.size() - done);
        if (n <= 0)
            return false;
        done += n;
    }
    return true;
}

} // namespace WholeFile
