#include "sources/segyremaptable.h"

#include <QFile>
#include <QSaveFile>
#include <QTextStream>

// 25 rows of four short fields need far less; the rest of a wrong file isn't worth reading.
constexpr qint64 largestRemapFile = 1 << 16;

SegyRemapTable remapTableFromText(const QByteArray& text)
{
    SegyRemapTable table;
    QTextStream stream(text);
    stream.setCodec("UTF-8");
    for (int row = 0; row < SegyRemapTable::nRows && !stream.atEnd(); ++row) {
        // Some editors leave more than one carriage return at a line's end.
        const QString line = stream.readLine().remove('\r');
        for (int column = 0; column < SegyRemapTable::nColumns; ++column)
            table.cells[row][column] = line.section(",", column, column);
    }
    return table;
}

QByteArray remapTableToText(const SegyRemapTable& table)
{
    QByteArray text;
    for (const auto& row : table.cells) {
        if (row[SegyRemapTable::HeaderWord].isEmpty() || row[SegyRemapTable::Format].isEmpty() ||
            row[SegyRemapTable::StartByte].isEmpty())
            continue;
        text += (row[SegyRemapTable::HeaderWord].toUpper() + "," + row[SegyRemapTable::Format].toUpper() + "," +
                 row[SegyRemapTable::Type].toUpper() + "," + row[SegyRemapTable::StartByte] + "\n")
                    .toUtf8();
    }
    return text;
}

int putRemapRow(SegyRemapTable* table, const QString& word, const QString& format, int startByte)
{
    int target = 0, filled = 0;
    for (int row = 0; row < SegyRemapTable::nRows; ++row) {
        const auto& cells = table->cells[size_t(row)];
        for (const QString& cell : cells)
            if (!cell.trimmed().isEmpty()) filled = row + 1;
        const bool isSameWord =
            cells[SegyRemapTable::HeaderWord].trimmed().compare(word.trimmed(), Qt::CaseInsensitive) == 0;
        if (isSameWord) target = row + 1;
    }
    if (target == 0) target = filled + 1;
    if (target > SegyRemapTable::nRows) return 0;
    table->cells[size_t(target - 1)] = {word.trimmed(), format, "IEEE", QString::number(startByte)};
    return target;
}

bool readRemapFile(const QString& path, SegyRemapTable* table, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        *error = file.errorString();
        return false;
    }
    const QByteArray text = file.read(largestRemapFile);
    if (file.error() != QFileDevice::NoError) {
        *error = file.errorString();
        return false;
    }
    *table = remapTableFromText(text);
    return true;
}

bool writeRemapFile(const QString& path, const SegyRemapTable& table, QString* error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text) || file.write(remapTableToText(table)) < 0 ||
        !file.commit()) {
        *error = file.errorString();
        return false;
    }
    return true;
}
