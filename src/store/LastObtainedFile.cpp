#include "LastObtainedFile.h"

#include "base/WholeFile.h"

bool LastObtainedFile::open(const QString& path)
{
    close();
    failure_.clear();
    file_.setFileName(path);
    if (file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return true;
    failure_ = file_.errorString();
    return false;
}

void LastObtainedFile::fail(const QString& reason)
{
    if (failure_.isEmpty())
        failure_ = reason;
    pending_.clear();
    if (file_.isOpen())
        file_.close();
}

void LastObtainedFile::write(const QString& text)
{
    if (!file_.isOpen())
        return;
    pending_.append(text.toLatin1());
    if (!held_)
        flush();
}

void LastObtainedFile::writeLine(const QString& text)
{
    if (!file_.isOpen())
        return;
    pending_.append(text.toLatin1());
    pending_.append("\r\n", 2);
    if (!held_)
        flush();
}

void LastObtainedFile::flush()
{
    if (pending_.isEmpty() || !file_.isOpen())
        return;
    if (!WholeFile::WriteAll(file_, pending_)) {
        fail(file_.errorString());
        return;
    }
    pending_.clear();
}

void LastObtainedFile::close()
{
    flush();
    if (file_.isOpen())
        file_.close();
}
