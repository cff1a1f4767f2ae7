/// The remap table: which bytes of a SEG-Y trace header overwrite which named word.
#ifndef SEGYREMAPTABLE_H
#define SEGYREMAPTABLE_H

#include <QString>

#include <array>

/// The cells of the table as the user typed them; a snapshot may be read on any thread.
///
/// Columns are header word, format (1I, 2I, 4I, 4R, 8R, Axx), type (IEEE, IBM) and start byte counted
/// from 1. Nothing is checked here: SegyHeader::buildRemapIndex decides which rows are usable.
struct SegyRemapTable {
    enum Column { HeaderWord, Format, Type, StartByte };
    static constexpr int nRows = 25;
    static constexpr int nColumns = 4;

    std::array<std::array<QString, nColumns>, nRows> cells;

    bool operator==(const SegyRemapTable& other) const { return cells == other.cells; }
    bool isEmpty() const { return *this == SegyRemapTable(); }
};

/// A table from the text of a remap file: line k fills row k, field j (between commas) column j; what
/// a line has not stays empty, lines beyond the last row are dropped.
SegyRemapTable remapTableFromText(const QByteArray& text);
/// The text of a remap file: one line for each row with word, format and start byte, upper-cased except
/// the start byte.
QByteArray remapTableToText(const SegyRemapTable& table);

/// Puts a row of integers into the table: in place of the last one for the same word, else behind the last one that
/// is filled, so that it wins over the rows before it. Returns its number from 1; 0, with the table as it was, when
/// there is no row left.
int putRemapRow(SegyRemapTable* table, const QString& word, const QString& format, int startByte);

/// Reads a remap file. False with the device's error text and *table as it was.
bool readRemapFile(const QString& path, SegyRemapTable* table, QString* error);
/// Writes a remap file beside its name and renames it, so that a failed write keeps the old one.
/// False with the device's error text.
bool writeRemapFile(const QString& path, const SegyRemapTable& table, QString* error);

#endif
