/// Files that are written whole or not at all.
#ifndef WHOLEFILE_H
#define WHOLEFILE_H

#include <QByteArray>
#include <QObject>
#include <QString>

/// Writes the bytes to a new file beside the named one, waits until the disk holds them, and puts it in its place.
/// Returns true; false with *error naming the file and the reason, and what bears the name is as it was.
bool writeWhole(const QString& name, const QByteArray& bytes, QString* error);

/// Tells of each file that the program has written for its user, whichever window asked for it.
class WrittenFiles : public QObject
{
    Q_OBJECT

public:
    /// The one of the program; main thread only.
    static WrittenFiles* all();
    /// writeWhole says so itself; for files that are written in another way.
    void tell(const QString& name);

signals:
    /// What was written, where, and how large it is.
    void written(const QString& line);
};

/// Makes the message of a file that can't be written. Always false.
bool cannotWrite(const QString& name, const QString& reason, QString* error);

#endif
