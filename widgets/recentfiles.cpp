#include "widgets/recentfiles.h"

#include <QSettings>

static const char recentKey[] = "recentfiles";

QStringList withRecentFile(QStringList files, const QString& file, int most)
{
    files.removeAll(file);
    files.prepend(file);
    return files.mid(0, most);
}

QStringList readRecentFiles(QSettings* settings)
{
    return settings->value(recentKey).toStringList();
}

void writeRecentFiles(QSettings* settings, const QStringList& files)
{
    settings->setValue(recentKey, files);
}
