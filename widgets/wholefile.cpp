#include "widgets/wholefile.h"

#include <QFileInfo>
#include <QLocale>
#include <QSaveFile>

#include <unistd.h>

#include <cerrno>
#include <cstring>

bool cannotWrite(const QString& name, const QString& reason, QString* error)
{
    *error = QString("Cannot write file %1:\n%2.").arg(name, reason);
    return false;
}

/// A folder that can't be synchronised, on some network disks, is no failure: the bytes were taken.
static bool isOnDisk(QSaveFile* file)
{
    return file->flush() && (fsync(file->handle()) == 0 || errno == EINVAL || errno == ENOTSUP);
}

bool writeWhole(const QString& name, const QByteArray& bytes, QString* error)
{
    const QFileInfo target(name);
    // A rename would put a plain file in the place of a device.
    if (target.exists() && !target.isFile()) return cannotWrite(name, "it is not a file", error);
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly)) return cannotWrite(name, file.errorString(), error);
    errno = 0;
    if (file.write(bytes) != bytes.size() || !isOnDisk(&file)) {
        const QString reason = file.error() != QFileDevice::NoError ? file.errorString() : std::strerror(errno);
        file.cancelWriting();
        return cannotWrite(name, reason, error);
    }
    if (!file.commit()) return cannotWrite(name, file.errorString(), error);
    WrittenFiles::all()->tell(name);
    return true;
}

WrittenFiles* WrittenFiles::all()
{
    static WrittenFiles files;
    return &files;
}

void WrittenFiles::tell(const QString& name)
{
    const QFileInfo file(name);
    emit written(tr("Wrote %1 (%2)").arg(file.absoluteFilePath(), QLocale::c().formattedDataSize(file.size())));
}
