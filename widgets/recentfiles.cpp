#include "widgets/recentfiles.h"

#include "widgets/appsettings.h"

QStringList withRecentFile(QStringList files, const QString& file, int most)
{
    files.removeAll(file);
    files.prepend(file);
    return files.mid(0, most);
}

QStringList readRecentFiles(QSettings* settings)
{
    return settings->value(SettingsKey::recentFiles).toStringList();
}

void writeRecentFiles(QSettings* settings, const QStringList& files)
{
    settings->setValue(SettingsKey::recentFiles, files);
}
