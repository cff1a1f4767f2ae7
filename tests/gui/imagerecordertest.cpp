/// Pictures of a display: when they are stored, what is in them, and how they are shown again.
#include "display/images/imagerecorder.h"
#include "tests/gui/imagefixture.h"

#include "display/seismicplot.h"
#include "display/zoom/recordaxisscaledraw.h"

#include <qwt_scale_div.h>

class ImageRecorderTest : public QObject
{
    Q_OBJECT

private slots:
    void thePictureHoldsWhatTheCanvasShows();
    void aZoomedPlotGivesTheWholeEnsembleAtItsScale();
    void aTimeWindowIsThePicturesTop();
    void aPictureBeyondTheLimitsIsSmallerAndSaysSo();
    void thePictureIsBuiltAnewOnlyAfterAChangeOfSize();
    void eachEnsembleIsStoredOnce();
    void aStoreThatIsOffStoresNothing();
    void aChangedViewReplacesTheStoredPicture();
    void anEndOfDataLeavesWhatIsStored();
    void saveExtraAddsASecondPictureOfTheEnsemble();
    void resaveAfterWalkingBackReplacesOnlyTheLast();
    void anEnsembleThatComesAgainKeepsItsPicture();
    void aDisplayReplacesItsOwnPicture();
    void aCollectionTakesAsManyAsItWasTold();
    void theKindFollowsTheDrawType_data();
    void theKindFollowsTheDrawType();
    void theFirstPicturePrintsItsSize();
    void aFullStoreStops();
    void aPictureStaysWhenNoOtherComesForIt();
    void aReplacedPictureOfTheLastCollectionIsNotCounted();
    void aReplacedPictureGivesItsRoom();
    void theWindowIsWrittenToNumberedFiles();
    void aFileThatCannotBeWrittenIsALine();
    void whatAFullDiskRefusedIsWrittenLater();
    void anOverlayIsPartOfThePicture();
    void anOverlaySwitchedWhileAPictureIsUpComesAfterIt();
    void aShownPictureComesWithItsAxisAndTitle();
    void theLabelsStayThePicturesWhateverTheMenusDo();
    void aPictureThatIsNotThereChangesNothing();
    void theAxesFollowThePicturesScale();
    void aSmallPictureLeavesWhite();
    void leavingShowsTheDataAsTheyWere();
    void aNewEnsembleEndsTheShow();
    void aPictureThatWasShownIsFreed();
    void aPictureStoredWhileAnotherIsUpHasTheDatasScale();
    void theReadOutHasNoAmplitude();
    void theMiddleButtonStepsThroughThePictures();
    void withControlTheMiddleButtonPans();
    void theWheelStepsThroughThePictures();
    void aListLimitsTheMouse();
    void withoutPicturesTheMouseIsAsBefore();
    void aZoomMovesToItsCorner();
    void aPickerKeepsItsMouse();
    void aResizedWindowShowsThePictureAgain();
};

void ImageRecorderTest::thePictureHoldsWhatTheCanvasShows()
{
    ImageFixture f;
    f.next();
    QCOMPARE(f.store.storeTotal(), 1);
    const QSizeF canvas = QSizeF(f[0]->canvas()->size() - QSize(1, 1)) * f[0]->devicePixelRatioF();
    QCOMPARE(f.stored(0).size(), QSize(int(canvas.width()), int(canvas.height())));
    QCOMPARE(f.stored(0), f.canvas(f[0]));
    const StoredPicture* picture = f.store.picture(0);
    QCOMPARE(picture->xMap.s1(), 0.0);
    QCOMPARE(picture->xMap.s2(), 21.0);  // traces + 1
    QCOMPARE(picture->yMap.s1(), 2000.0);
    QCOMPARE(picture->yMap.s2(), 0.0);
    QCOMPARE(picture->yMap.pDist(), double(f.stored(0).height()));
    QCOMPARE(picture->nTraces, 20);
    QCOMPARE(picture->axis[20], 120.0f);  // CHAN of the last trace
    QCOMPARE(picture->pri, 1.0f);
}

void ImageRecorderTest::aZoomedPlotGivesTheWholeEnsembleAtItsScale()
{
    ImageFixture f;
    f.next();
    f[0]->setZoomRect(QRectF(3.0, 500.0, 7.0, 1000.0));
    f[0]->replot1();
    f[0]->storeImage(false);
    const QSize canvas = f.canvas(f[0]).size();
    QCOMPARE(f.store.storeTotal(), 1);
    // A third of the 21 units, half of the 2000 ms.
    QCOMPARE(f.stored(0).size(), QSize(3 * canvas.width(), 2 * canvas.height()));
    // What the canvas shows is the part from 3 traces and 500 ms on.
    const QImage part = f.stored(0).copy(3 * canvas.width() / 7, canvas.height() / 2, canvas.width(), canvas.height());
    const QImage shown = f.canvas(f[0]);
    int nDifferent = 0;
    for (int y = 0; y < canvas.height(); ++y)
        for (int x = 0; x < canvas.width(); ++x)
            nDifferent += qAbs(qGray(part.pixel(x, y)) - qGray(shown.pixel(x, y))) > 64;
    // Rows and columns are rounded apart by at most one pixel, which only edges show.
    QVERIFY2(nDifferent < canvas.width() * canvas.height() / 50, qPrintable(QString::number(nDifferent)));
}

void ImageRecorderTest::aTimeWindowIsThePicturesTop()
{
    ImageFixture f;
    f.menu->stime = 400;
    f.menu->etime = 1600;
    f[0]->setMenu(f.menu.get());
    f.next();
    QCOMPARE(f.store.picture(0)->yMap.s1(), 1200.0);
    QCOMPARE(f.stored(0), f.canvas(f[0]));
    f[0]->showImage(0);
    QCOMPARE(f.stored(0), f.canvas(f[0]));
    QCOMPARE(f[0]->visibleRect().top(), 400.0);
}

void ImageRecorderTest::aPictureBeyondTheLimitsIsSmallerAndSaysSo()
{
    ImageFixture f;
    f.next();
    f[0]->setZoomRect(QRectF(3.0, 100.0, 0.1, 1900.0));
    f[0]->replot1();
    PrintedLines printed;
    f[0]->storeImage(false);
    const QString text = printed.text();
    QCOMPARE(f.stored(0).width(), 32767);
    QVERIFY2(text.contains("MERIDUNE: the image is too large for this scale, it is stored with 32767 by "),
             qPrintable(text));
    f[0]->showImage(0);
    // 21 units on 32767 pixels: the axis says so.
    QVERIFY(qAbs(f[0]->visibleRect().width() - 21.0 * f.canvas(f[0]).width() / 32767.0) < 1e-6);
}

void ImageRecorderTest::thePictureIsBuiltAnewOnlyAfterAChangeOfSize()
{
    ImageFixture f;
    f.store.setStored(false);
    f.next();
    f[0]->checkSavedImage();
    const qint64 first = f[0]->images().saveImage().cacheKey();
    QVERIFY(!f[0]->images().saveImage().isNull());
    f[0]->checkSavedImage();
    QCOMPARE(f[0]->images().saveImage().cacheKey(), first);
    f[0]->setZoomRect(QRectF(0.0, 0.0, 10.5, 2000.0));
    f[0]->checkSavedImage();
    QVERIFY(f[0]->images().saveImage().cacheKey() != first);
    QCOMPARE(f[0]->images().saveImage().width(), 2 * f.canvas(f[0]).width());
}

void ImageRecorderTest::eachEnsembleIsStoredOnce()
{
    ImageFixture f;
    f.next();
    f.next();
    f.next();
    f[0]->storeImage(false);  // as "next" does
    QCOMPARE(f.keys(), QVector<float>({1, 2, 3}));
}

void ImageRecorderTest::aStoreThatIsOffStoresNothing()
{
    ImageFixture f;
    f.store.setStored(false);
    f.next();
    f[0]->storeImage(false);
    f[0]->storeImage(true);
    QCOMPARE(f.store.storeTotal(), 0);
    f.store.setStored(true);
    f[0]->storeImage(false);  // "next" keeps what is on the screen
    f.next();
    QCOMPARE(f.keys(), QVector<float>({1, 2}));
}

void ImageRecorderTest::aChangedViewReplacesTheStoredPicture()
{
    ImageFixture f;
    f.next();
    f.next();
    const int width = f.stored(1).width();
    f[0]->setZoomRect(QRectF(0.0, 0.0, 10.5, 2000.0));
    f[0]->storeImage(false);
    QCOMPARE(f.keys(), QVector<float>({1, 2}));
    QCOMPARE(f.stored(0).width(), width);
    QCOMPARE(f.stored(1).width(), 2 * width);
    const QImage before = f.stored(1);
    f[0]->seismicPlot()->setGain(12.0f);
    f[0]->rebuildPlot();
    f[0]->storeImage(false);
    QCOMPARE(f.store.storeTotal(), 2);
    QVERIFY(f.stored(1) != before);
}

void ImageRecorderTest::anEndOfDataLeavesWhatIsStored()
{
    ImageFixture f;
    f.next();
    f[0]->loadSeismicData(nullptr, nullptr, 0, true);
    QVERIFY(f[0]->lastEnsemble());
    f[0]->storeImage(false);
    f[0]->storeImage(true);
    QCOMPARE(f.keys(), QVector<float>({1}));
}

void ImageRecorderTest::saveExtraAddsASecondPictureOfTheEnsemble()
{
    ImageFixture f;
    f.next();
    f[0]->storeImage(true);
    QCOMPARE(f.keys(), QVector<float>({1, 1}));
    f[0]->storeImage(false);  // still stored
    QCOMPARE(f.store.storeTotal(), 2);
}

void ImageRecorderTest::anEnsembleThatComesAgainKeepsItsPicture()
{
    ImageFixture f;
    f.next();
    f.nLoads = 0;
    f.next();  // the same traces and headers
    QVERIFY(f[0]->isRepeated());
    QCOMPARE(f.keys(), QVector<float>({1.0f}));
    f[0]->setZoomRect(QRectF(0.0, 400.0, 21.0, 800.0));  // another view takes the place of the first
    f.nLoads = 0;
    f.next();
    QCOMPARE(f.keys(), QVector<float>({1.0f}));
    f.next();
    QVERIFY(!f[0]->isRepeated());
    QCOMPARE(f.keys(), QVector<float>({1.0f, 2.0f}));
}

void ImageRecorderTest::resaveAfterWalkingBackReplacesOnlyTheLast()
{
    ImageFixture f;
    f.next();
    f.next();
    f.nLoads = 0;
    f.next();  // back to the first
    QCOMPARE(f.keys(), QVector<float>({1, 2, 1}));
    const QImage first = f.stored(0), second = f.stored(1);
    f[0]->setZoomRect(QRectF(0.0, 0.0, 10.5, 2000.0));
    f[0]->setImageStored(false);
    f[0]->storeImage(false);
    QCOMPARE(f.keys(), QVector<float>({1, 2, 1}));
    QCOMPARE(f.stored(0), first);
    QCOMPARE(f.stored(1), second);
    QCOMPARE(f.stored(2).width(), 2 * first.width());
}

void ImageRecorderTest::aDisplayReplacesItsOwnPicture()
{
    ImageFixture f(2);
    f.next(0);
    f.next(1);
    const QImage second = f.stored(1);
    f[0]->seismicPlot()->setGain(12.0f);
    f[0]->rebuildPlot();
    for (SeismicDisplay* display : f.displays) display->storeImage(false);
    QCOMPARE(f.keys(), QVector<float>({1, 2}));
    QCOMPARE(f.stored(1), second);
}

void ImageRecorderTest::aCollectionTakesAsManyAsItWasTold()
{
    ImageFixture f;
    f.store.setStored(false);
    f.store.setCollect(true);
    f.store.setCollectTotal(4);
    int nCollected = 0;
    connect(&f.store, &ImageStorage::collected, this, [&] {
        ++nCollected;
        f.store.setCollect(false);  // who asked for it decides whether it starts anew
    });
    QVERIFY(QTest::qWaitForWindowExposed(f[0]));
    const int renders = f[0]->myCanvas()->renderCount();
    for (int i = 0; i < 6; ++i) f.next();
    QCOMPARE(f.keys(), QVector<float>({1, 2, 3, 4}));
    QCOMPARE(nCollected, 1);
    QCOMPARE(f.store.count(), 0);
    // Each was painted at once, without an event loop.
    QVERIFY(f[0]->myCanvas()->renderCount() - renders >= 4);
}

void ImageRecorderTest::theKindFollowsTheDrawType_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("image") << 0;
    QTest::newRow("pixmap") << 1;
    QTest::newRow("bitmap") << 2;
}

void ImageRecorderTest::theKindFollowsTheDrawType()
{
    QFETCH(int, type);
    ImageFixture f;
    f[0]->images().setDrawType(ImageRecorder::DrawType(type));
    f.next();
    const QImage data = f.canvas(f[0]);
    f.next();
    QCOMPARE(f.store.getImage(0) != nullptr, type == 0);
    QCOMPARE(f.store.getPixmap(0) != nullptr, type == 1);
    QCOMPARE(f.store.getBitmap(0) != nullptr, type == 2);
    f[0]->showImage(0);
    QCOMPARE(f.canvas(f[0]), data);  // black and white, so that a bitmap loses nothing
    f[0]->rePlot();                  // painted by the plot
    QCOMPARE(f.canvas(f[0]), data);
}

void ImageRecorderTest::theFirstPicturePrintsItsSize()
{
    ImageFixture f;
    PrintedLines printed;
    f.next();
    f.next();
    const QSize size = f.stored(0).size();
    // The size counts bits: width times height times 32, over 1048576.
    const QString expected = QString("\n\nMERIDUNE: Image Storage statistics\n"
                                     "     screen depth: 32   pixel width: %1   pixel height: %2\n"
                                     "     file size: %3 mbytes\n\n\n")
                                 .arg(size.width())
                                 .arg(size.height())
                                 .arg(size.width() * size.height() * 32 / 1048576.0, 0, 'f', 6);
    QCOMPARE(printed.text(), expected);
}

void ImageRecorderTest::aFullStoreStops()
{
    ImageFixture f;
    f.next();
    f.store.setLimit(storedBytes(f.stored(0).size()) * 2);
    bool isFull = false;
    connect(&f.store, &ImageStorage::full, this, [&] { isFull = true; });
    f.next();
    QVERIFY(!isFull);
    f.next();
    QVERIFY(isFull);
    QVERIFY(!f.store.isStored());
    QCOMPARE(f.keys(), QVector<float>({1, 2}));
    QCOMPARE(f.title(f[0]).simplified(), QString("FFID :3"));
}

void ImageRecorderTest::aPictureStaysWhenNoOtherComesForIt()
{
    {
        ImageFixture f;
        f.store.setStored(false);
        f.store.setCollect(true);
        f.store.setCollectTotal(2);
        connect(&f.store, &ImageStorage::collected, this, [&] { f.store.setCollect(false); });
        f.next();
        f.next();
        f[0]->rebuildPlot();      // another look, after the collection
        f[0]->storeImage(false);  // "next"
        QCOMPARE(f.keys(), QVector<float>({1, 2}));
    }
    ImageFixture f;
    f.next();
    f.next();
    f.store.setLimit(storedBytes(f.stored(0).size()) * 2);
    f[0]->setZoomRect(QRectF(0.0, 0.0, 10.5, 2000.0));
    f[0]->storeImage(false);  // twice as wide
    QVERIFY(!f.store.isStored());
    QCOMPARE(f.keys(), QVector<float>({1, 2}));
}

void ImageRecorderTest::aReplacedPictureOfTheLastCollectionIsNotCounted()
{
    ImageFixture f;
    f.store.setStored(false);
    f.store.setCollect(true);
    f.store.setCollectTotal(2);
    f.next();
    f.next();
    QCOMPARE(f.store.count(), 0);  // the next one starts
    f[0]->rebuildPlot();
    f[0]->storeImage(false);
    QCOMPARE(f.store.count(), 0);
    QCOMPARE(f.keys(), QVector<float>({1, 2}));
    f.next();
    f[0]->rebuildPlot();
    f[0]->storeImage(false);
    QCOMPARE(f.store.count(), 1);
    QCOMPARE(f.keys(), QVector<float>({1, 2, 3}));
}

void ImageRecorderTest::aReplacedPictureGivesItsRoom()
{
    ImageFixture f;
    f.next();
    const QImage before = f.stored(0);
    f.store.setLimit(storedBytes(before.size()));
    f[0]->seismicPlot()->setGain(12.0f);
    f[0]->rebuildPlot();
    f[0]->storeImage(false);
    QVERIFY(f.store.isStored());
    QCOMPARE(f.store.storeTotal(), 1);
    QVERIFY(f.stored(0) != before);
}

void ImageRecorderTest::theWindowIsWrittenToNumberedFiles()
{
    const QTemporaryDir folder;
    ImageFixture f;
    f.store.setSaved(true);
    f.store.setSavedFile(folder.filePath("shot.png"));
    f.next();
    f.next();
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList({"shot-001.png", "shot-002.png"}));
    const QImage window(folder.filePath("shot-002.png"));
    QCOMPARE(f.pixels(window), f.pixels(f[0]->grab().toImage()));
    f[0]->seismicPlot()->setGain(12.0f);
    f[0]->rebuildPlot();
    f[0]->storeImage(false);  // replaces the second, and its file
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 2);
    QVERIFY(QImage(folder.filePath("shot-002.png")) != window);
}

void ImageRecorderTest::aFileThatCannotBeWrittenIsALine()
{
    ImageFixture f;
    f.next();
    f.store.setSaved(true);
    f.store.setSavedFile("/nowhere/shot.tif");
    PrintedLines printed;
    f[0]->saveToFile(f.store.savedFile(), true);
    QCOMPARE(printed.text(), QString("Seismic Display: Error while writing pixmap file: /nowhere/shot-001.tif\n"));
    QVERIFY(!f.store.picture(0)->isSaved);
}

void ImageRecorderTest::whatAFullDiskRefusedIsWrittenLater()
{
    const QTemporaryDir folder;
    ImageFixture f;
    f.store.setSaved(true);
    f.store.setSavedFile(folder.filePath("gone/shot.png"));
    {
        PrintedLines printed;
        f.next();
    }
    QDir(folder.path()).mkdir("gone");
    f.next();
    QCOMPARE(QDir(folder.filePath("gone")).entryList(QDir::Files), QStringList({"shot-001.png", "shot-002.png"}));
    // The first is made of its picture, for the window has gone on.
    QCOMPARE(f.pixels(QImage(folder.filePath("gone/shot-001.png"))), f.stored(0));
    QCOMPARE(f.pixels(QImage(folder.filePath("gone/shot-002.png"))), f.pixels(f[0]->grab().toImage()));
    QVERIFY(f.store.picture(0)->isSaved && f.store.picture(1)->isSaved);
}

void ImageRecorderTest::anOverlayIsPartOfThePicture()
{
    ImageFixture f;
    f.next();
    f[0]->setOverlayMode(true);
    f.next();  // over the first
    QVERIFY(f[0]->overlayPlot() && f[0]->overlayPlot()->isVisible());
    f[0]->storeImage(false);
    QCOMPARE(f.store.storeTotal(), 2);
    const QImage both = f.canvas(f[0]);
    QCOMPARE(f.stored(1), both);
    QVERIFY(f.stored(0) != both);
    f[0]->showImage(0);
    QCOMPARE(f.canvas(f[0]), f.stored(0));  // another picture isn't overlaid
    f[0]->setShowImage(false);
    QVERIFY(f[0]->overlayPlot()->isVisible());
    QCOMPARE(f.canvas(f[0]), both);
}

void ImageRecorderTest::anOverlaySwitchedWhileAPictureIsUpComesAfterIt()
{
    ImageFixture f;
    f.next();
    f[0]->setOverlayMode(true);
    f.next();
    f[0]->showImage(0);
    f[0]->setOverlayMode(false);
    f[0]->setShowImage(false);
    QVERIFY(!f[0]->overlayPlot()->isVisible());
    f[0]->showImage(0);
    f[0]->setOverlayMode(true);
    QCOMPARE(f.canvas(f[0]), f.stored(0));  // not over the picture
    f[0]->setShowImage(false);
    QVERIFY(f[0]->overlayPlot()->isVisible());
}

void ImageRecorderTest::aShownPictureComesWithItsAxisAndTitle()
{
    ImageFixture f;
    f.next();
    f.next();
    const QString name = f[0]->headerAxis().pri().name;
    f[0]->showImage(0);
    QCOMPARE(f.title(f[0]), "Image:   1               " + name + ":1    ");
    QCOMPARE(f[0]->axisScaleDraw(QwtPlot::xTop)->label(5.0).text(), QString("105"));
    QCOMPARE(f.canvas(f[0]), f.stored(0));
    f[0]->showImage(1);
    QCOMPARE(f.title(f[0]), "Image:   2               " + name + ":2    ");
    QCOMPARE(f[0]->axisScaleDraw(QwtPlot::xTop)->label(5.0).text(), QString("205"));
    QCOMPARE(f.canvas(f[0]), f.stored(1));
    QVERIFY(f.stored(0) != f.stored(1));
}

void ImageRecorderTest::theLabelsStayThePicturesWhateverTheMenusDo()
{
    ImageFixture f;
    f.next();
    f.next();
    f[0]->showImage(0);
    f[0]->setSecKey(WordFrom0(standardWordIndex("FFID    ")));  // of the data, which are not in view
    QTRY_VERIFY(f.title(f[0]).startsWith("Image:   1 "));
    QCOMPARE(f[0]->axisScaleDraw(QwtPlot::xTop)->label(5.0).text(), QString("105"));
    f[0]->setShowImage(false);
    QCOMPARE(f[0]->axisScaleDraw(QwtPlot::xTop)->label(5.0).text(), QString("2"));
    f[0]->showImage(0);
    QCOMPARE(f[0]->axisScaleDraw(QwtPlot::xTop)->label(5.0).text(), QString("105"));
}

void ImageRecorderTest::aPictureThatIsNotThereChangesNothing()
{
    ImageFixture f;
    f.next();
    const QString title = f.title(f[0]);
    for (const int i : {-1, 1, 100}) f[0]->showImage(i);
    QVERIFY(!f[0]->images().isShown());
    QCOMPARE(f.title(f[0]), title);
    f[0]->setShowImage(true);  // before a picture is chosen the data stay
    QCOMPARE(f.canvas(f[0]), f.stored(0));
    QVERIFY(f[0]->readoutAt(QPoint(50, 50)).contains("Amp"));
}

void ImageRecorderTest::theAxesFollowThePicturesScale()
{
    ImageFixture f;
    f.next(0, 20);
    f.next(0, 41);
    QCOMPARE(f[0]->visibleRect().width(), 42.0);
    f[0]->showImage(0);
    QVERIFY(qAbs(f[0]->visibleRect().width() - 21.0) < 0.05);
    QCOMPARE(f.canvas(f[0]), f.stored(0));
    f[0]->showImage(1);
    QVERIFY(qAbs(f[0]->visibleRect().width() - 42.0) < 0.05);
    QCOMPARE(f.canvas(f[0]), f.stored(1));
}

void ImageRecorderTest::aSmallPictureLeavesWhite()
{
    ImageFixture f;
    f.next();
    QImage small(40, 30, QImage::Format_RGB32);
    small.fill(Qt::black);
    const double ratio = f[0]->devicePixelRatioF();
    small.setDevicePixelRatio(ratio);
    QwtScaleMap x, y;
    x.setScaleInterval(0.0, 3.0);
    x.setPaintInterval(0.0, 40.0);
    y.setScaleInterval(300.0, 0.0);
    y.setPaintInterval(30.0, 0.0);
    f.store.putImage(small, x, y);
    const float axis[] = {0.0f, 8.0f, 9.0f};
    f.store.putAxis(axis, 2, 4.0f, 0.0f, QString());
    f[0]->showImage(1);
    const QImage canvas = f.canvas(f[0]);
    QCOMPARE(canvas.pixelColor(20, 20), QColor(Qt::black));
    QCOMPARE(canvas.pixelColor(39, 29), QColor(Qt::black));
    QCOMPARE(canvas.pixelColor(40, 20), QColor(Qt::white));
    QCOMPARE(canvas.pixelColor(20, 30), QColor(Qt::white));
    QCOMPARE(f[0]->visibleRect().topLeft(), QPointF(0.0, 0.0));
    QCOMPARE(f[0]->canvasMap(QwtPlot::yLeft).invTransform(30.0 / ratio), 300.0);
}

void ImageRecorderTest::leavingShowsTheDataAsTheyWere()
{
    ImageFixture f;
    f.next(0, 41);
    f.next(0, 20);
    f[0]->setZoomRect(QRectF(3.0, 500.0, 7.0, 1000.0));
    f[0]->replot1();
    const QImage before = f.canvas(f[0]);
    const QString title = f.title(f[0]);
    const QRectF view = f[0]->visibleRect();
    f[0]->setShowImage(true);
    f[0]->showImage(0);
    QVERIFY(f.canvas(f[0]) != before);
    f[0]->setShowImage(false);
    QCOMPARE(f[0]->visibleRect(), view);
    QCOMPARE(f.title(f[0]), title);
    QCOMPARE(f.canvas(f[0]), before);
    QVERIFY(f[0]->readoutAt(QPoint(50, 50)).contains("Amp"));
    QVERIFY(f[0]->images().isImageStored() == false);  // the zoom is still to be stored
}

void ImageRecorderTest::aNewEnsembleEndsTheShow()
{
    ImageFixture f;
    f.next();
    f.next();
    f[0]->showImage(0);
    f.next();
    QVERIFY(!f[0]->images().isShown());
    QCOMPARE(f.canvas(f[0]), f.stored(2));
    QCOMPARE(f.title(f[0]).simplified(), QString("FFID :3"));
    QCOMPARE(f.control.currentMessage().left(8), QString("MB1 down"));
}

void ImageRecorderTest::aPictureThatWasShownIsFreed()
{
    ImageFixture f;
    f.next();
    std::vector<uchar> pixels(40 * 30 * 4, 90);
    int nFreed = 0;
    const auto count = [](void* freed) { ++*static_cast<int*>(freed); };
    f.store.putImage(QImage(pixels.data(), 40, 30, QImage::Format_RGB32, count, &nFreed), QwtScaleMap(), QwtScaleMap());
    f[0]->showImage(1);
    f[0]->setShowImage(false);
    QCOMPARE(nFreed, 0);
    f.store.removeAll();
    QCOMPARE(nFreed, 1);
    f[0]->images().forgetStored();
    QVERIFY(f[0]->images().saveImage().isNull());
}

void ImageRecorderTest::aPictureStoredWhileAnotherIsUpHasTheDatasScale()
{
    ImageFixture f;
    f.next(0, 20);
    f.next(0, 41);
    f[0]->setZoomRect(QRectF(0.0, 0.0, 21.0, 1000.0));
    f[0]->replot1();
    f[0]->storeImage(false);
    const QSize size = f.stored(1).size();
    QCOMPARE(size.width(), 2 * f.canvas(f[0]).width());
    f[0]->showImage(0);
    f[0]->setImageStored(false);
    f[0]->storeImage(false);
    QCOMPARE(f.stored(1).size(), size);
}

void ImageRecorderTest::theReadOutHasNoAmplitude()
{
    ImageFixture f;
    f.next();
    f.next();
    f[0]->showImage(0);
    const QPoint at(int(f[0]->canvasMap(QwtPlot::xTop).transform(5.0)), 90);
    const int sample = int(90.0 * f[0]->devicePixelRatioF() / f.stored(0).height() * 500.0);  // from the top, at 4 ms
    QCOMPARE(f[0]->readoutAt(at).simplified(), QString("FFID : 1 CHAN : 105 Time (msec): %1").arg(4 * sample));
}

void ImageRecorderTest::theMiddleButtonStepsThroughThePictures()
{
    ImageFixture f;
    for (int i = 0; i < 4; ++i) f.next();
    f[0]->showImage(0);
    QVector<int> told;
    connect(f[0], &SeismicDisplay::imageShown, this, [&](int number) { told.append(number); });
    QWidget* canvas = f[0]->canvas();
    dragMouse(canvas, QPoint(100, 100), QPoint(140, 100), Qt::MiddleButton);  // two moves to the right
    QCOMPARE(told, QVector<int>({2, 3}));
    dragMouse(canvas, QPoint(100, 100), QPoint(160, 100), Qt::MiddleButton);
    QCOMPARE(f[0]->images().number(), 3);  // the last
    dragMouse(canvas, QPoint(100, 100), QPoint(60, 100), Qt::MiddleButton);
    QCOMPARE(f[0]->images().number(), 1);
    dragMouse(canvas, QPoint(100, 100), QPoint(100, 180), Qt::MiddleButton);  // neither left nor right
    QCOMPARE(f[0]->images().number(), 1);
    for (int i = 0; i < 3; ++i) dragMouse(canvas, QPoint(100, 100), QPoint(60, 100), Qt::MiddleButton);
    QCOMPARE(f[0]->images().number(), 0);
    dragMouse(canvas, QPoint(100, 100), QPoint(140, 100), Qt::LeftButton);
    QCOMPARE(f[0]->images().number(), 0);
    QVERIFY(!f[0]->isZoomed());
    QCOMPARE(f.canvas(f[0]), f.stored(0));
}

void ImageRecorderTest::withControlTheMiddleButtonPans()
{
    ImageFixture f;
    f.next();
    f[0]->setZoomRect(QRectF(0.0, 0.0, 10.5, 1000.0));
    f[0]->replot1();
    f[0]->storeImage(false);
    f[0]->showImage(0);
    QApplication::processEvents();  // the scroll bars find their place
    const QRectF before = f[0]->visibleRect();
    dragMouse(f[0]->canvas(), QPoint(100, 200), QPoint(40, 140), Qt::MiddleButton, Qt::ControlModifier);
    QApplication::processEvents();
    const QRectF after = f[0]->visibleRect();
    QCOMPARE(f[0]->images().number(), 0);
    QVERIFY2(after.left() > before.left() && after.top() > before.top(), "nothing has moved");
    // The picture has moved along: its part from there on is in view.
    const QSize size = f.canvas(f[0]).size();
    const QRect part(qRound(after.left() / 21.0 * f.stored(0).width()),
                     qRound(after.top() / 2000.0 * f.stored(0).height()), size.width(), size.height());
    QCOMPARE(f.canvas(f[0]), f.stored(0).copy(part));
    f[0]->showImage(0);  // and stays there for the next picture
    QCOMPARE(f[0]->visibleRect(), after);
}

void ImageRecorderTest::theWheelStepsThroughThePictures()
{
    ImageFixture f;
    for (int i = 0; i < 4; ++i) f.next();
    f[0]->showImage(0);
    const QRectF view = f[0]->visibleRect();
    f.wheel(f[0], 240);
    QCOMPARE(f[0]->images().number(), 2);
    f.wheel(f[0], -120);
    QCOMPARE(f[0]->images().number(), 1);
    QCOMPARE(f.status.currentMessage().simplified().left(8), QString("FFID : 2"));
    f.wheel(f[0], -1200);
    QCOMPARE(f[0]->images().number(), 0);
    QCOMPARE(f[0]->visibleRect(), view);  // nothing is magnified
}

void ImageRecorderTest::aListLimitsTheMouse()
{
    ImageFixture f;
    for (int i = 0; i < 5; ++i) f.next();
    f[0]->showImage(0);
    f[0]->setShowImageList(true, {1, 4, 2, 77});
    f.wheel(f[0], 120);
    QCOMPARE(f[0]->images().number(), 3);
    f.wheel(f[0], 120);
    QCOMPARE(f[0]->images().number(), 1);
    f.wheel(f[0], 120);
    QCOMPARE(f[0]->images().number(), 1);  // there is no 77th
    f[0]->setShowImageList(true, {});
    f.wheel(f[0], 120);
    f.wheel(f[0], -240);
    QCOMPARE(f[0]->images().number(), 1);
    f[0]->setShowImageList(false, {});
    f.wheel(f[0], 120);
    QVERIFY(f[0]->images().number() != 1);
}

void ImageRecorderTest::withoutPicturesTheMouseIsAsBefore()
{
    ImageFixture f;
    f.next();
    const QRectF view = f[0]->visibleRect();
    f.wheel(f[0], 120);
    QVERIFY(f[0]->visibleRect().width() > view.width() * 1.05);
    QVERIFY(!f[0]->images().isShown());
}

void ImageRecorderTest::aZoomMovesToItsCorner()
{
    ImageFixture f;
    f.next();
    f[0]->setZoomRect(QRectF(0.0, 0.0, 7.0, 500.0));
    f[0]->replot1();
    f[0]->storeImage(false);
    f[0]->showImage(0);
    f[0]->setZoomRect(QRectF(5.0, 300.0, 2.0, 100.0));
    // A picture has one scale: the corner is that of the zoom, the extent is what fits at that scale.
    QTRY_VERIFY(qAbs(f[0]->visibleRect().width() - 7.0) < 0.05);
    QVERIFY(qAbs(f[0]->visibleRect().left() - 5.0) < 0.05);
    QVERIFY(qAbs(f[0]->visibleRect().top() - 300.0) < 2.0);
    QCOMPARE(f[0]->axisScaleDiv(QwtPlot::xBottom).lowerBound(), f[0]->axisScaleDiv(QwtPlot::xTop).lowerBound());
    QCOMPARE(f[0]->axisScaleDiv(QwtPlot::yRight).lowerBound(), f[0]->axisScaleDiv(QwtPlot::yLeft).lowerBound());
}

void ImageRecorderTest::aPickerKeepsItsMouse()
{
    ImageFixture f;
    f.next();
    f[0]->setFBPicker(true);
    f[0]->showImage(0);
    QVERIFY(f[0]->tool() == &f[0]->pickers()[Picker::FirstBreaks]);
    f[0]->setShowImage(false);
    QVERIFY(f.control.currentMessage().startsWith("CTRL MB1"));  // the plain buttons pick, as before
    f[0]->setFBPicker(false);
    QVERIFY(f.control.currentMessage().startsWith("MB1"));
    f[0]->showImage(0);
    QVERIFY(f.control.currentMessage().startsWith("CTRL MB1"));
    QVERIFY(f.control.currentMessage().contains("MB2 down and drag or wheel: change image"));
}

void ImageRecorderTest::aResizedWindowShowsThePictureAgain()
{
    ImageFixture f;
    f.next();
    f.next();
    f[0]->showImage(0);
    f[0]->resize(720, 560);
    QTRY_VERIFY(f[0]->canvas()->width() * f[0]->devicePixelRatioF() > f.stored(0).width() + 100);
    QTRY_VERIFY(f[0]->visibleRect().width() > 22.0);  // the picture's scale on a wider canvas
    QTRY_COMPARE(f.canvas(f[0]).copy(QRect(QPoint(0, 0), f.stored(0).size())), f.stored(0));
    f[0]->setShowImage(false);
    QVERIFY(qAbs(f[0]->visibleRect().width() - 21.0) < 1e-3);
    QCOMPARE(f.title(f[0]).simplified(), QString("FFID :2"));
}

QTEST_MAIN(ImageRecorderTest)
#include "imagerecordertest.moc"
