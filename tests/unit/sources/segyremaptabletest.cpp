/// Remap files: one row a line, four fields.
#include "sources/segyremaptable.h"
#include "sources/segyheader.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <map>

TEST(SegyRemapTable, EachLineFillsTheRowWithItsNumber)
{
    const SegyRemapTable table = remapTableFromText("SOU_SLOC,4I,IEEE,197\n\nCDP     ,4I\r\nFFID,4I,IEEE,9,more");
    EXPECT_EQ(table.cells[0][0], "SOU_SLOC");
    EXPECT_EQ(table.cells[0][1], "4I");
    EXPECT_EQ(table.cells[0][2], "IEEE");
    EXPECT_EQ(table.cells[0][3], "197");
    EXPECT_EQ(table.cells[1][0], "");
    EXPECT_EQ(table.cells[2][0], "CDP     ") << "the name keeps its blanks";
    EXPECT_EQ(table.cells[2][2], "");
    EXPECT_EQ(table.cells[3][3], "9");
}

TEST(SegyRemapTable, CarriageReturnsAreNoPartOfAField)
{
    const SegyRemapTable table = remapTableFromText("CDP,4I,IEEE,9\r\r\nFFID,4I,IEEE,21\r");
    EXPECT_EQ(table.cells[0][3], "9");
    EXPECT_EQ(table.cells[1][3], "21");
}

TEST(SegyRemapTable, AFileOfThirtyLinesFillsTwentyFiveRows)
{
    QByteArray text;
    for (int i = 0; i < 30; ++i) text += "CDP,4I,IEEE," + QByteArray::number(i) + "\n";
    const SegyRemapTable table = remapTableFromText(text);
    EXPECT_EQ(table.cells[24][3], "24");
}

TEST(SegyRemapTable, SavingWritesFilledRowsInUpperCase)
{
    SegyRemapTable table;
    table.cells[1] = {"sou_x", "4r", "ibm", "73"};
    table.cells[2] = {"cdp", "", "ieee", "21"};
    table.cells[3] = {"cdp", "4i", "", "21"};
    table.cells[4] = {"", "4i", "ieee", "21"};
    table.cells[5] = {"cdp", "4i", "ieee", ""};
    EXPECT_EQ(remapTableToText(table), "SOU_X,4R,IBM,73\nCDP,4I,,21\n");
}

TEST(SegyRemapTable, AFileComesBackAsItWasSaved)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.remap");
    SegyRemapTable table, back;
    table.cells[0] = {"SOU_SLOC", "4I", "IEEE", "197"};
    table.cells[1] = {"CDP     ", "A10", "IEEE", "30"};
    QString error;
    ASSERT_TRUE(writeRemapFile(path, table, &error)) << error.toStdString();
    ASSERT_TRUE(readRemapFile(path, &back, &error)) << error.toStdString();
    EXPECT_TRUE(back == table);
    EXPECT_FALSE(back.isEmpty());
}

TEST(SegyRemapTable, AFailureTellsWhyAndKeepsTheTable)
{
    SegyRemapTable table;
    table.cells[0][0] = "CDP";
    const SegyRemapTable before = table;
    QString error;
    EXPECT_FALSE(readRemapFile("/no/such/file", &table, &error));
    EXPECT_EQ(error, "No such file or directory");
    EXPECT_TRUE(table == before);
    EXPECT_FALSE(writeRemapFile("/no/such/folder/file", table, &error));
    EXPECT_EQ(error, "No such file or directory");
}

TEST(SegyRemapTable, OnlyTheStartOfAHugeFileIsRead)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("huge"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(1 << 20, 'x'));
    file.close();
    SegyRemapTable table;
    QString error;
    ASSERT_TRUE(readRemapFile(file.fileName(), &table, &error));
    EXPECT_EQ(table.cells[0][0].size(), 1 << 16);
}

TEST(SegyRemapTable, ARowIsPutBehindTheLastOneOrInPlaceOfItsWord)
{
    SegyRemapTable table;
    EXPECT_EQ(putRemapRow(&table, "FFID", "4I", 17), 1);
    EXPECT_EQ(table.cells[0], (std::array<QString, 4>{"FFID", "4I", "IEEE", "17"}));
    table.cells[4] = {"", "", "IBM", ""};  // begun by the user
    EXPECT_EQ(putRemapRow(&table, "SOU_X   ", "4I", 73), 6) << "behind all that is filled, so that it wins";
    EXPECT_EQ(table.cells[5][0], "SOU_X");
    EXPECT_EQ(putRemapRow(&table, "ffid", "2I", 173), 1);
    EXPECT_EQ(table.cells[0], (std::array<QString, 4>{"ffid", "2I", "IEEE", "173"}));
}

TEST(SegyRemapTable, AFullTableTakesNoNewWord)
{
    SegyRemapTable table;
    for (int i = 0; i < 25; ++i) table.cells[size_t(i)] = {QString("W%1").arg(i), "4I", "IEEE", "9"};
    const SegyRemapTable before = table;
    EXPECT_EQ(putRemapRow(&table, "FFID", "4I", 17), 0);
    EXPECT_TRUE(table == before);
    EXPECT_EQ(putRemapRow(&table, "W24", "4I", 17), 25);
}

/// A trace header in which the four bytes from byte b on, counted from 1, hold 1000 + b, in the machine's order.
static std::array<int, 60> numberedHeader()
{
    std::array<int, 60> header;
    for (int i = 0; i < 60; ++i) header[size_t(i)] = 1001 + 4 * i;
    return header;
}

TEST(SegyRemapTable, TheShippedTablesReadTheirBytes)
{
    const struct {
        const char* file;
        std::map<std::string, int> bytes;
    } shipped[] = {
        {"revision-0",
         {{"TRACENO ", 1},
          {"FFID    ", 9},
          {"CHAN    ", 13},
          {"SOURCE  ", 17},
          {"SOU_SLOC", 17},
          {"CDP     ", 21},
          {"SEQNO   ", 25}}},
        {"revision-1",
         {{"FFID    ", 9},
          {"CHAN    ", 13},
          {"SOURCE  ", 17},
          {"CDP     ", 21},
          {"ILINE_NO", 189},
          {"XLINE_NO", 193},
          {"SOU_SLOC", 197}}},
        {"inline-at-9-crossline-at-13", {{"ILINE_NO", 9}, {"XLINE_NO", 13}}},
        {"inline-at-17-crossline-at-21", {{"ILINE_NO", 17}, {"XLINE_NO", 21}}},
        {"inline-at-221-crossline-at-25", {{"ILINE_NO", 221}, {"XLINE_NO", 25}}},
        {"inline-at-5-crossline-at-21", {{"ILINE_NO", 5}, {"XLINE_NO", 21}}},
        {"source-at-byte-17", {{"SOU_SLOC", 17}}},
    };
    std::array<int, 60> raw = numberedHeader();
    for (const auto& row : shipped) {
        SegyRemapTable table;
        QString error;
        ASSERT_TRUE(readRemapFile(QString(MERIDUNE_SOURCE_DIR "/resources/remap/") + row.file, &table, &error))
            << row.file;
        std::array<int, 60> words = {};
        SegyHeader header(words.data(), 60);
        header.setTreviaVersion(1);
        header.setSegyRawHeader(raw.data());
        header.performRemap(table, 0);
        std::map<std::string, int> read;
        for (int i = 0; i < 60; ++i)
            if (words[size_t(i)] != 0) read[header.OrvinHeaderIndexName(i).toStdString()] = words[size_t(i)] - 1000;
        EXPECT_EQ(read, row.bytes) << row.file;
    }
}
