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
    file_.write(text.toLatin1());
}

void LastObtainedFile::writeLine(const QString& text)
{
    if (!file_.isOpen())
        return;
    QByteArray line = text.toLatin1();
    line.append("\r\n", 2);
    file_.write(line);
}

void LastObtainedFile::close()
{
    if (file_.isOpen())
        file_.close();
}
