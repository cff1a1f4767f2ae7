/// Settings that belong to a line: keys and values in a text file of its folder.
#ifndef TREVIASETTING_H
#define TREVIASETTING_H

#include <QString>
#include <QStringList>

/// The file "meridune.setting" of a line, read anew at each question, so that two windows don't overwrite each
/// other's keys.
class TreviaSetting
{
public:
    TreviaSetting(const QString& area, const QString& line);

    /// All lines; none if there is no file.
    QStringList loadFile() const;
    /// The value of a key: what stands behind the first bar of the first line that begins with it. Empty
    /// without one.
    QString readSetting(const QString& key) const;
    /// Replaces the key's line, or appends one. A newline in the value would break the file: it becomes a blank.
    /// Returns true on success.
    bool writeSetting(const QString& key, const QString& value);
    /// Writes all lines, whole or not at all; makes the line's folder if it isn't there.
    bool saveFile(const QStringList& lines);

    QString fileName() const { return _linepath + "/meridune.setting"; }

private:
    QString _area;
    QString _line;
    QString _linepath;
};

#endif
