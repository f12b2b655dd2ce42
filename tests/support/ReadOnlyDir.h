#pragma once

#include <QFile>
#include <QString>
#include <unistd.h>

// Makes a folder read-only for as long as it is in scope. The superuser may write anywhere, so
// when the tests run as root the process also acts as an unprivileged user meanwhile.
class ReadOnlyDir {
public:
    explicit ReadOnlyDir(const QString& path)
        : path_(path)
    {
        QFile::setPermissions(path_,
            QFileDevice::ReadOwner | QFileDevice::ExeOwner | QFileDevice::ReadOther
                | QFileDevice::ExeOther | QFileDevice::ReadGroup | QFileDevice::ExeGroup);
        if (::geteuid() == 0)
            switched_ = ::seteuid(65534) == 0;
    }
    ~ReadOnlyDir()
    {
        if (switched_) [[maybe_unused]]
            const int back = ::seteuid(0);
        QFile::setPermissions(
            path_, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }
    ReadOnlyDir(const ReadOnlyDir&) = delete;
    ReadOnlyDir& operator=(const ReadOnlyDir&) = delete;

private:
    QString path_;
    bool switched_ = false;
};
