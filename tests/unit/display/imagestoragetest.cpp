/// The store of pictures: what is kept with each, their order, the collection, files and the memory.
#include "display/images/imagestorage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QTemporaryDir>

#include <string>

using testing::ElementsAre;
using testing::HasSubstr;

/// Pixmaps want an application.
class ImageStorageTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        static int argc = 1;
        static char name[] = "unit_display";
        static char* argv[] = {name, nullptr};
        if (!qApp) new QGuiApplication(argc, argv);
    }

    static QImage grey(int level, int width = 8, int height = 6)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(QColor(level, level, level));
        return image;
    }
    void put(int level, const void* owner = nullptr)
    {
        store.putPixmap(QPixmap::fromImage(grey(level)), QwtScaleMap(), QwtScaleMap(), owner);
    }
    /// Grey level of each picture held.
    std::vector<int> levels() const
    {
        std::vector<int> found;
        for (int i = 0; i < store.storeTotal(); ++i) found.push_back(qGray(store.getPixmap(i)->toImage().pixel(2, 2)));
        return found;
    }

    ImageStorage store;
};

TEST_F(ImageStorageTest, KeepsAPictureWithItsMapsAndAxis)
{
    QwtScaleMap x, y;
    x.setScaleInterval(0.0, 4.0);
    x.setPaintInterval(0.0, 80.0);
    y.setScaleInterval(1000.0, 0.0);
    y.setPaintInterval(60.0, 0.0);
    store.putPixmap(QPixmap::fromImage(grey(90)), x, y);
    const float axis[] = {0.0f, 11.0f, 12.0f, 13.0f};
    store.putAxis(axis, 3, 7.0f, 2500.0f, "test a");

    EXPECT_EQ(store.storeTotal(), 1);
    EXPECT_EQ(store.count(), 1);
    ASSERT_TRUE(store.getPixmap(0));
    EXPECT_EQ(store.getPixmap(0)->toImage().pixel(3, 3), qRgb(90, 90, 90));
    EXPECT_EQ(store.getImage(0), nullptr);  // it is of another kind
    EXPECT_EQ(store.getBitmap(0), nullptr);
    EXPECT_EQ(store.getXMap(0).s2(), 4.0);
    EXPECT_EQ(store.getYMap(0).s1(), 1000.0);
    int n = 0;
    float pri = 0.0f, pan = 0.0f;
    QString parm;
    const float* held = store.getAxis(0, &n, &pri, &pan, &parm);
    ASSERT_TRUE(held);
    EXPECT_THAT(std::vector<float>(held + 1, held + 1 + n), ElementsAre(11.0f, 12.0f, 13.0f));
    EXPECT_EQ(pri, 7.0f);
    EXPECT_EQ(pan, 2500.0f);
    EXPECT_EQ(parm, "test a");
}

TEST_F(ImageStorageTest, EachKindComesBackAsItWasPut)
{
    store.putImage(grey(10), QwtScaleMap(), QwtScaleMap());
    store.putBitmap(QBitmap::fromImage(grey(0)), QwtScaleMap(), QwtScaleMap());
    ASSERT_TRUE(store.getImage(0));
    EXPECT_EQ(store.getImage(0)->pixel(1, 1), qRgb(10, 10, 10));
    ASSERT_TRUE(store.getBitmap(1));
    EXPECT_EQ(store.getBitmap(1)->depth(), 1);
    EXPECT_EQ(store.picture(1)->toImage().pixel(1, 1), qRgb(0, 0, 0));
    EXPECT_EQ(store.picture(1)->size(), QSize(8, 6));
}

TEST_F(ImageStorageTest, APictureThatIsNotThereGivesNothing)
{
    put(1);
    int n = -5;
    float pri = 0.0f, pan = 0.0f;
    QString parm;
    for (const int i : {-1, 1, 1000}) {
        EXPECT_EQ(store.getPixmap(i), nullptr);
        EXPECT_EQ(store.picture(i), nullptr);
        EXPECT_EQ(store.getXMap(i).sDist(), QwtScaleMap().sDist());
        EXPECT_EQ(store.getAxis(i, &n, &pri, &pan, &parm), nullptr);
    }
    EXPECT_EQ(n, -5);
}

TEST_F(ImageStorageTest, TheLastPictureIsRemoved)
{
    for (const int level : {10, 20, 30}) put(level);
    store.removeLastImage();
    EXPECT_THAT(levels(), ElementsAre(10, 20));
    store.removeLastImage();
    store.removeLastImage();
    store.removeLastImage();  // of none
    EXPECT_EQ(store.storeTotal(), 0);
    EXPECT_EQ(store.count(), 0);
}

TEST_F(ImageStorageTest, APictureOfTwoDisplaysIsReplacedInItsPlace)
{
    int a = 0, b = 0;  // the owners
    put(10, &a);
    put(20, &b);
    store.removeLastImage(&a);
    put(11, &a);
    EXPECT_THAT(levels(), ElementsAre(11, 20));
    store.removeLastImage(&b);
    put(21, &b);
    EXPECT_THAT(levels(), ElementsAre(11, 21));
    put(30, &a);  // nothing was removed before this one
    EXPECT_THAT(levels(), ElementsAre(11, 21, 30));
}

TEST_F(ImageStorageTest, TheAxisGoesWithAPictureThatWasReplaced)
{
    int a = 0, b = 0;
    put(10, &a);
    put(20, &b);
    store.removeLastImage(&a);
    put(11, &a);
    const float axis[] = {0.0f, 5.0f};
    store.putAxis(axis, 1, 3.0f, 0.0f, QString());
    EXPECT_EQ(store.picture(0)->pri, 3.0f);
    EXPECT_EQ(store.picture(1)->pri, 0.0f);
}

TEST_F(ImageStorageTest, ClearAllLeavesNothing)
{
    for (const int level : {10, 20}) put(level);
    store.removeAll();
    EXPECT_EQ(store.storeTotal(), 0);
    EXPECT_EQ(store.count(), 0);
    EXPECT_TRUE(store.hasRoom(1));
    put(30);
    EXPECT_THAT(levels(), ElementsAre(30));
}

TEST_F(ImageStorageTest, OnlyTheFirstPicturesAreKept)
{
    for (const int level : {10, 20, 30}) put(level);
    store.setStoreTotal(2);
    EXPECT_THAT(levels(), ElementsAre(10, 20));
    store.setStoreTotal(-1);
    EXPECT_EQ(store.storeTotal(), 0);
}

TEST_F(ImageStorageTest, TheCountOfACollectionStartsAnew)
{
    put(10);
    put(20);
    store.setCount(0);
    EXPECT_EQ(store.count(), 0);
    EXPECT_EQ(store.storeTotal(), 2);
    put(30);
    EXPECT_EQ(store.count(), 1);
}

TEST_F(ImageStorageTest, TheMemoryIsCountedAndTheStoreStopsWhenItIsFull)
{
    bool isFull = false, isStored = true;
    QObject::connect(&store, &ImageStorage::full, [&] { isFull = true; });
    QObject::connect(&store, &ImageStorage::storedChanged, [&](bool on) { isStored = on; });
    store.setStored(true);
    store.setCollect(true);
    const int64_t one = storedBytes(QSize(8, 6));
    EXPECT_EQ(one, 8 * 6 * 4);  // without an X server there is one copy
    store.setLimit(2 * one);
    put(10);
    EXPECT_TRUE(store.hasRoom(one));
    put(20);
    EXPECT_FALSE(store.hasRoom(one));
    store.removeLastImage();
    EXPECT_TRUE(store.hasRoom(one));
    store.stop();
    EXPECT_TRUE(isFull);
    EXPECT_FALSE(isStored);
    EXPECT_FALSE(store.isStored());
    EXPECT_FALSE(store.isCollecting());
    EXPECT_EQ(store.storeTotal(), 1);  // what is held stays
}

TEST_F(ImageStorageTest, FilesAreNumberedBehindTheName)
{
    EXPECT_EQ(numberedName("a.tif", 1), "a-001.tif");
    EXPECT_EQ(numberedName("a", 1), "a-001.png");
    EXPECT_EQ(numberedName("name.gif", 12), "name-012.gif");
    EXPECT_EQ(numberedName("a.b.jpg", 123), "a.b-123.jpg");
    EXPECT_EQ(numberedName("", 3), "junk-003.png");
    EXPECT_EQ(numberedName("a.", 3), "a-003.png");
    EXPECT_EQ(numberedName("/x.y/a", 3), "/x.y/a-003.png");
    EXPECT_EQ(numberedName("/x/.a", 3), "/x/.a-003.png");
    EXPECT_EQ(numberedName("%1.png", 4), "%1-004.png");
    EXPECT_EQ(numberedName("a.png", 1000), "a1000.png");
    EXPECT_EQ(numberedName("a.png", 12345), "a12345.png");
}

TEST_F(ImageStorageTest, TheFirstPictureNotYetWrittenIsNext)
{
    for (const int level : {10, 20}) put(level);
    EXPECT_EQ(store.performSaveFile(true), -1);  // writing is off
    store.setSaved(true);
    EXPECT_EQ(store.performSaveFile(true), -1);  // no name
    store.setSavedFile("a.png");
    EXPECT_EQ(store.performSaveFile(true), 0);
    EXPECT_EQ(store.performSaveFile(true), 1);
    EXPECT_EQ(store.performSaveFile(true), -1);
    store.setSavedClear();
    store.setSaved(false);
    EXPECT_EQ(store.performSaveFile(false), 0);  // unasked
}

TEST_F(ImageStorageTest, AllPicturesHeldAreWrittenOnce)
{
    const QTemporaryDir folder;
    store.putImage(grey(10), QwtScaleMap(), QwtScaleMap());
    for (const int level : {20, 30}) put(level);
    store.setSavedFile(folder.filePath("shot.png"));
    store.performSaveFile2();  // writing is off
    EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files).isEmpty());
    store.setSaved(true);
    store.performSaveFile2(1);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList({"shot-001.png", "shot-002.png"}));
    EXPECT_EQ(QImage(folder.filePath("shot-001.png")).pixel(4, 4), qRgb(10, 10, 10));
    EXPECT_EQ(QImage(folder.filePath("shot-002.png")).pixel(4, 4), qRgb(20, 20, 20));
    QFile::remove(folder.filePath("shot-001.png"));
    store.performSaveFile2();
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList({"shot-002.png", "shot-003.png"}));
}

TEST_F(ImageStorageTest, APictureCountsAsWrittenOnlyWhenItsFileStands)
{
    put(10);
    store.setSaved(true);
    testing::internal::CaptureStdout();
    store.setSavedFile("/nowhere/shot.png");
    store.performSaveFile2();
    testing::internal::GetCapturedStdout();
    EXPECT_FALSE(store.picture(0)->isSaved);
    const QTemporaryDir folder;
    store.setSavedFile(folder.filePath("shot.png"));
    store.performSaveFile2();
    EXPECT_TRUE(store.picture(0)->isSaved);
    EXPECT_TRUE(QFile::exists(folder.filePath("shot-001.png")));
    store.setUnsaved(0);
    EXPECT_EQ(store.performSaveFile(true), 0);
}

TEST_F(ImageStorageTest, AFailureToWriteIsALine)
{
    put(10);
    store.setSaved(true);
    store.setSavedFile("/nowhere/shot.png");
    testing::internal::CaptureStdout();
    store.performSaveFile2();
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Seismic Display: Error while writing pixmap file: /nowhere/shot-001.png\n");
}
