/// The files opened last, kept with the user's settings.
#ifndef RECENTFILES_H
#define RECENTFILES_H

#include <QStringList>

class QSettings;

/// The list with `file` in front, each name once, at most `most` of them.
QStringList withRecentFile(QStringList files, const QString& file, int most = 10);

/// Reads and writes the list under the key "recentfiles".
QStringList readRecentFiles(QSettings* settings);
void writeRecentFiles(QSettings* settings, const QStringList& files);

#endif
