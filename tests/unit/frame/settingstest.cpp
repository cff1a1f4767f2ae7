/// Window settings, recent files, menu defaults and the installation's folder.
#include "frame/windowsettings.h"
#include "host/home.h"
#include "tracedata/menudefaults.h"
#include "tracedata/parmmenu.h"
#include "widgets/recentfiles.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>

TEST(WindowSettings, TheDefaultIsNineTenthsOfTheScreen)
{
    const WindowSettings window = defaultWindowSettings(QRect(0, 0, 1280, 1000));
    EXPECT_EQ(window.size, QSize(1152, 900));
    EXPECT_EQ(window.pos, QPoint(32, 25));  // a quarter of 128 and of 100
}

TEST(WindowSettings, AScreenWiderThanTwoThousandPixelsIsTwoMonitors)
{
    EXPECT_EQ(defaultWindowSettings(QRect(0, 0, 3840, 1000)).size, QSize(1728, 900));
    EXPECT_EQ(defaultWindowSettings(QRect(0, 0, 2000, 1000)).size, QSize(1800, 900));
}

TEST(WindowSettings, StoredValuesWinUnlessAResetIsAskedFor)
{
    const QTemporaryDir folder;
    QSettings settings(folder.filePath("s.ini"), QSettings::IniFormat);
    writeWindowSettings(&settings, {QPoint(7, 8), QSize(500, 400), "blue.col", "bars"});
    const QRect screen(0, 0, 1000, 1000);
    EXPECT_EQ(readWindowSettings(&settings, screen, false).size, QSize(500, 400));
    EXPECT_EQ(readWindowSettings(&settings, screen, false).pos, QPoint(7, 8));
    EXPECT_EQ(readWindowSettings(&settings, screen, false).state, QByteArray("bars"));
    EXPECT_EQ(readWindowSettings(&settings, screen, true).size, QSize(900, 900));
    EXPECT_EQ(readWindowSettings(&settings, screen, true).colormap, "blue.col");
}

TEST(RecentFiles, TheNewestStandsFirstAndOnce)
{
    EXPECT_EQ(withRecentFile({"a", "b"}, "b"), (QStringList{"b", "a"}));
    EXPECT_EQ(withRecentFile({"a", "b"}, "c", 2), (QStringList{"c", "a"}));
    const QTemporaryDir folder;
    QSettings settings(folder.filePath("s.ini"), QSettings::IniFormat);
    writeRecentFiles(&settings, {"x, y.sgy", "z.sgy"});
    EXPECT_EQ(readRecentFiles(&settings), (QStringList{"x, y.sgy", "z.sgy"}));
}

TEST(MenuDefaults, TheDisplayStartsAsWiggleWithTheFileLeftAlone)
{
    auto menu = std::make_unique<parmmenu>();
    menu->segymaxtr = 48;
    menu->cfile[0] = 'x';
    menu->idisplay = 3;
    setDisplayDefaults(menu.get());
    EXPECT_EQ(menu->idisplay, 0);
    EXPECT_EQ(menu->clip, 2.0f);
    EXPECT_EQ(menu->iskeyinc, 25);
    EXPECT_EQ(menu->iskeymod, 2);
    EXPECT_EQ(menu->minrange, -3.0f);
    EXPECT_EQ(menu->maxrange, 3.0f);
    EXPECT_EQ(menu->irange, 1);
    EXPECT_EQ(menu->iscale, 1);
    EXPECT_EQ(menu->iplotheader, -1);
    EXPECT_EQ(menu->icollect, 10);
    EXPECT_EQ(menu->ipkey, 2);
    EXPECT_EQ(menu->iskey, 1);
    EXPECT_EQ(menu->_orvinruntime.samprat, 2.0f);
    EXPECT_EQ(menu->_orvinruntime.numsmp, 2000);
    EXPECT_EQ(menu->_orvinruntime.maxdtr, 1001);
    EXPECT_EQ(menu->_orvinruntime.nth, 60);
    EXPECT_EQ(menu->_orvinruntime.ipkey, 1);
    EXPECT_EQ(menu->_orvinruntime.iskey, 0);
    EXPECT_EQ(menu->segymaxtr, 48);
    EXPECT_EQ(menu->cfile[0], 'x');
}

TEST(Home, TheVariableNamesTheFolderAndItIsFilled)
{
    const QTemporaryDir folder;
    qputenv("TREVIA_HOME", (folder.path() + "/home/").toLocal8Bit());
    EXPECT_EQ(QString(GetHome()), folder.path() + "/home");
    EXPECT_TRUE(makeHome());
    EXPECT_TRUE(QDir(folder.path() + "/home/port/db/segy").exists());
    qunsetenv("TREVIA_HOME");
    qputenv("XDG_DATA_HOME", folder.path().toLocal8Bit());
    EXPECT_EQ(QString(GetHome()), folder.path() + "/trevia");
    qunsetenv("XDG_DATA_HOME");
}
