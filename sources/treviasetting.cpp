#include "sources/treviasetting.h"

#include "host/home.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

TreviaSetting::TreviaSetting(const QString& area, const QString& line)
    : _area(area), _line(line),
      _linepath(QString::fromLocal8Bit(treviaLinePath(area.toLocal8Bit().constData(), line.toLocal8Bit().constData())))
{
}

QStringList TreviaSetting::loadFile() const
{
    QFile file(fileName());
    if (_linepath.isEmpty() || !file.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
    if (lines.last().isEmpty()) lines.removeLast();
    return lines;
}

static bool isOfKey(const QString& line, const QString& key)
{
    return line.contains('|') && line.section('|', 0, 0) == key;
}

QString TreviaSetting::readSetting(const QString& key) const
{
    for (const QString& line : loadFile())
        if (isOfKey(line, key)) return line.section('|', 1);
    return QString();
}

bool TreviaSetting::writeSetting(const QString& key, const QString& value)
{
    QStringList lines = loadFile();
    const QString text = key + "|" + QString(value).replace('\n', ' ');
    for (QString& line : lines) {
        if (!isOfKey(line, key)) continue;
        line = text;
        return saveFile(lines);
    }
    return saveFile(lines << text);
}

bool TreviaSetting::saveFile(const QStringList& lines)
{
    if (_linepath.isEmpty() || !QDir().mkpath(_linepath)) return false;
    QSaveFile file(fileName());
    if (!file.open(QIODevice::WriteOnly)) return false;
    for (const QString& line : lines) file.write(line.toUtf8() + "\n");
    return file.commit();
}
