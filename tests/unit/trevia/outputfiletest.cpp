#include "trevia/outputfile.h"
#include "tests/brokenplaces.h"

#include <gtest/gtest.h>

TEST(OutputFile, AFormerFileStaysWhereNothingCanBeWritten)
{
    const QString found = failureOfWrites("line.sgy", [](const QString& name, QString* error) {
        OutputFile file(name.toStdString());
        for (int i = 0; i < 100; ++i) file.write(std::string(1000, 'x'));
        std::string reason;
        const bool isWritten = file.commit(&reason);
        *error = QString::fromStdString(reason);
        return isWritten;
    });
    EXPECT_TRUE(found.isEmpty()) << found.toStdString();
}

TEST(OutputFile, AFileTakesThePlaceOfTheFormerOne)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath("a.txt");
    for (const std::string_view text : {"a long first text", "second"}) {
        OutputFile out(name.toStdString());
        out.write(text);
        std::string error;
        EXPECT_TRUE(out.commit(&error)) << error;
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll().toStdString(), text);
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("a.txt"));
}
