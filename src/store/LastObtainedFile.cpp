#include "LastObtainedFile.h"

bool LastObtainedFile::open(const QString& path)
{
    close();
    file_.setFileName(path);
    return file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered);
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
    file_.write(pending_);
    pending_.clear();
}

void LastObtainedFile::close()
{
    flush();
    if (file_.isOpen())
        file_.close();
}
