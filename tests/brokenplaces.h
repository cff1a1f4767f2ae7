/// Places where no file can be written, for the tests of all that writes files.
#ifndef BROKENPLACES_H
#define BROKENPLACES_H

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/fsuid.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <functional>

/// A folder on a disk without a free byte while fill() holds. Where no disk can be mounted, the largest file is
/// limited instead, which cuts a write in the same way.
class FullDisk
{
public:
    FullDisk() : _isMounted(mount("tmpfs", qPrintable(_folder.path()), "tmpfs", 0, "size=64k") == 0) {}
    ~FullDisk()
    {
        limit(RLIM_INFINITY);
        if (_isMounted) umount2(qPrintable(_folder.path()), MNT_DETACH);
    }
    QString path(const QString& name) const { return _folder.path() + '/' + name; }
    QStringList files() const { return QDir(_folder.path()).entryList(QDir::Files); }
    void fill()
    {
        if (!_isMounted) return limit(4);
        QFile filler(path("filler"));
        if (!filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return;
        while (filler.write("x", 1) == 1) {
        }
    }
    void empty()
    {
        limit(RLIM_INFINITY);
        QFile::remove(path("filler"));
    }

private:
    void limit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit size = {};
        getrlimit(RLIMIT_FSIZE, &size);
        size.rlim_cur = std::min(bytes, size.rlim_max);
        setrlimit(RLIMIT_FSIZE, &size);
    }
    QTemporaryDir _folder;
    bool _isMounted;
};

/// A folder that this process can only read while it lives, whoever runs it.
class ReadOnlyFolder
{
public:
    explicit ReadOnlyFolder(const QString& path) : _path(path)
    {
        QFile::setPermissions(_path, QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther);
        if (geteuid() == 0) setfsuid(65534);  // the administrator writes where nobody may
    }
    ~ReadOnlyFolder()
    {
        if (geteuid() == 0) setfsuid(0);
        QFile::setPermissions(_path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

private:
    QString _path;
};

/// Gives a write three places where it must fail: a full disk, a read-only folder and a folder that is gone. Returns
/// what went wrong there: a write that reported success, an error that doesn't name the file, a former file that isn't
/// as it was, a part of a file left behind; empty if all is well.
inline QString failureOfWrites(const QString& fileName, const std::function<bool(const QString&, QString*)>& write)
{
    const QByteArray former = "the former file";
    const auto put = [&](const QString& name) {
        QFile file(name);
        return file.open(QIODevice::WriteOnly) && file.write(former) == former.size();
    };
    const auto wrong = [&](const QString& name, const QString& where) {
        QString error;
        if (write(name, &error)) return "success was reported on " + where;
        return error.contains(fileName) ? QString() : "on " + where + " the error is: " + error;
    };
    const auto isFormer = [&](const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) && file.readAll() == former;
    };
    FullDisk disk;
    const QString onDisk = disk.path(fileName);
    if (!put(onDisk)) return "the test has no disk";
    disk.fill();
    const QStringList before = disk.files();
    QString found = wrong(onDisk, "a full disk");
    if (found.isEmpty() && !isFormer(onDisk)) found = "a full disk lost the former file";
    if (found.isEmpty() && disk.files() != before) found = "a full disk has " + disk.files().join(" ");
    if (!found.isEmpty()) return found;

    QTemporaryDir folder;
    const QString inFolder = folder.filePath(fileName);
    if (!put(inFolder)) return "the test has no folder";
    {
        const ReadOnlyFolder locked(folder.path());
        found = wrong(inFolder, "a read-only folder");
    }
    if (found.isEmpty() && !isFormer(inFolder)) found = "a read-only folder lost the former file";
    if (!found.isEmpty()) return found;
    folder.remove();
    found = wrong(inFolder, "a folder that is gone");
    if (found.isEmpty() && QFile::exists(folder.path())) found = "the folder came back";
    return found;
}

#endif
