/// What is said about the polarity of a file, as text and as kept from session to session.
#include "display/polarity.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

/// A folder with two files and the settings of a session.
struct PolarityFolder {
    QTemporaryDir folder;
    QString first = folder.filePath("a=1 [x].sgy"), second = folder.filePath("b.sgy");

    PolarityFolder()
    {
        for (const QString& name : {first, second}) {
            QFile file(name);
            if (!file.open(QIODevice::WriteOnly)) qFatal("no temporary file");
        }
    }
    QString settings() const { return folder.filePath("settings.ini"); }
    void write(const QString& files, const Polarity& polarity) const
    {
        QSettings session(settings(), QSettings::IniFormat);
        writePolarity(&session, files, polarity);
    }
    Polarity read(const QString& files) const
    {
        return readPolarity(QSettings(settings(), QSettings::IniFormat), files);
    }
};

TEST(Polarity, IsToldWithItsConvention)
{
    EXPECT_EQ(polarityText({}), "unknown");
    EXPECT_EQ(polarityText({Polarity::Unknown, "SEG"}), "unknown");
    EXPECT_EQ(polarityText({Polarity::Normal, "SEG"}), "normal (SEG)");
    EXPECT_EQ(polarityText({Polarity::Reversed, " European "}), "reversed (European)");
    EXPECT_EQ(polarityText({Polarity::Reversed, "  "}), "reversed (convention not told)");
}

TEST(Polarity, IsUnknownUntilToldAndThenFoundAgainInTheNextSession)
{
    const PolarityFolder data;
    EXPECT_EQ(data.read(data.first), Polarity());
    data.write(data.first, {Polarity::Reversed, "SEG, zero phase"});
    EXPECT_EQ(data.read(data.first), (Polarity{Polarity::Reversed, "SEG, zero phase"}));
    EXPECT_EQ(data.read(data.second), Polarity());
    EXPECT_EQ(data.read(data.first + "," + data.second), Polarity());
    data.write(data.first, {Polarity::Normal, ""});
    EXPECT_EQ(data.read(data.first), (Polarity{Polarity::Normal, ""}));
}

TEST(Polarity, FollowsTheFileNotThePathThatLeadsToIt)
{
    const PolarityFolder data;
    data.write(data.first, {Polarity::Normal, "SEG"});
    const QString link = data.folder.filePath("link.sgy");
    ASSERT_TRUE(QFile::link(data.first, link));
    EXPECT_EQ(data.read(link).sense, Polarity::Normal);
    EXPECT_EQ(data.read(data.folder.path() + "/./a=1 [x].sgy").sense, Polarity::Normal);
}

TEST(Polarity, UnknownForgetsWhatWasSaid)
{
    const PolarityFolder data;
    data.write(data.first, {Polarity::Normal, "SEG"});
    data.write(data.second, {Polarity::Reversed, "SEG"});
    data.write(data.first, {});
    EXPECT_EQ(data.read(data.first), Polarity());
    EXPECT_EQ(data.read(data.second).sense, Polarity::Reversed);
    EXPECT_EQ(QSettings(data.settings(), QSettings::IniFormat).allKeys().size(), 1);
}

TEST(Polarity, BrokenSettingsAreUnknown)
{
    const PolarityFolder data;
    data.write(data.first, {Polarity::Normal, "SEG"});
    QSettings settings(data.settings(), QSettings::IniFormat);
    const QString key = settings.allKeys().first();
    for (const QVariant& broken : {QVariant("normal"), QVariant(QStringList{"upside down", "SEG"}),
                                   QVariant(QStringList{"normal", "SEG", "SEG"}), QVariant(7)}) {
        settings.setValue(key, broken);
        EXPECT_EQ(readPolarity(settings, data.first), Polarity());
    }
}

TEST(Polarity, ALongConventionIsCut)
{
    const PolarityFolder data;
    data.write(data.first, {Polarity::Normal, QString(500, 'x')});
    EXPECT_EQ(data.read(data.first).convention, QString(40, 'x'));
}
