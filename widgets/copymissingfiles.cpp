#include "widgets/copymissingfiles.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

static bool holdsSameBytes(const QString& a, const QString& b)
{
    QFile first(a), second(b);
    return first.open(QIODevice::ReadOnly) && second.open(QIODevice::ReadOnly) && first.size() == second.size() &&
           first.readAll() == second.readAll();
}

/// Writes the copy beside its place and renames it, so that a crash leaves no half of a file there.
static bool copyFile(const QString& from, const QString& to)
{
    QFile source(from);
    QSaveFile copy(to);
    if (!source.open(QIODevice::ReadOnly) || !copy.open(QIODevice::WriteOnly)) return false;
    const QByteArray bytes = source.readAll();
    copy.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    return copy.write(bytes) == bytes.size() && copy.commit();
}

int copyMissingFiles(const QString& from, const QString& to)
{
    if (!QDir().mkpath(to)) return -1;
    int nCopied = 0;
    for (const QString& name : QDir(from).entryList(QDir::Files)) {
        if (QFile::exists(to + "/" + name)) continue;
        if (!copyFile(from + "/" + name, to + "/" + name)) return -1;
        ++nCopied;
    }
    return nCopied;
}

int refreshFiles(const QString& from, const QString& to)
{
    if (!QDir().mkpath(to)) return -1;
    int nCopied = 0;
    for (const QString& name : QDir(from).entryList(QDir::Files)) {
        if (holdsSameBytes(from + "/" + name, to + "/" + name)) continue;
        if (!copyFile(from + "/" + name, to + "/" + name)) return -1;
        ++nCopied;
    }
    for (const QString& name : QDir(from).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const int n = refreshFiles(from + "/" + name, to + "/" + name);
        if (n < 0) return -1;
        nCopied += n;
    }
    return nCopied;
}
