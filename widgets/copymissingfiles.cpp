#include "widgets/copymissingfiles.h"

#include <QDir>
#include <QFile>

int copyMissingFiles(const QString& from, const QString& to)
{
    if (!QDir().mkpath(to)) return -1;
    int nCopied = 0;
    for (const QString& name : QDir(from).entryList(QDir::Files)) {
        const QString copy = to + "/" + name;
        if (QFile::exists(copy)) continue;
        if (!QFile::copy(from + "/" + name, copy)) return -1;
        QFile::setPermissions(copy,
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
        ++nCopied;
    }
    return nCopied;
}
