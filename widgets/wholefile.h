/// Files that are written whole or not at all.
#ifndef WHOLEFILE_H
#define WHOLEFILE_H

#include <QByteArray>
#include <QString>

/// Writes the bytes to a new file beside the named one, waits until the disk holds them, and puts it in its place.
/// Returns true; false with *error naming the file and the reason, and what bears the name is as it was.
bool writeWhole(const QString& name, const QByteArray& bytes, QString* error);

/// Makes the message of a file that can't be written. Always false.
bool cannotWrite(const QString& name, const QString& reason, QString* error);

#endif
