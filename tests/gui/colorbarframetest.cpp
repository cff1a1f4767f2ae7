#include "display/colors/colorbarframe.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class ColorBarFrameTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void startsWithTheSeismicColoursOverZeroTo255();
    void paintsTheStripFromTheHighValueDown();
    void withoutColourIsSplitAtHalfTheHeight();
    void numbersStandAtSixStepsWithTheirSigns();
    void numbersMakeRoomForThemselvesAndAreAllVisible();
    void dataRangeOfZerosGivesOneAroundZero();
    void loadsAColourFile();
    void aFileOfOnlyAFirstLineKeepsTheStops();
    void aBrokenOrMissingFileLeavesTheColours();
    void theBackgroundGoesWithItsRgbValue();

private:
    QString write(const QByteArray& text);
    QRgb stripPixel(int y);

    std::unique_ptr<QTemporaryDir> _folder;
    std::unique_ptr<ColorBarFrame> _bar;
};

void ColorBarFrameTest::init()
{
    _folder = std::make_unique<QTemporaryDir>();
    _bar = std::make_unique<ColorBarFrame>();
}

QString ColorBarFrameTest::write(const QByteArray& text)
{
    QFile file(_folder->filePath("test.col"));
    if (!file.open(QIODevice::WriteOnly)) qFatal("no temporary file");
    file.write(text);
    return file.fileName();
}

QRgb ColorBarFrameTest::stripPixel(int y)
{
    return _bar->grab().toImage().pixel(7, y);
}

void ColorBarFrameTest::startsWithTheSeismicColoursOverZeroTo255()
{
    QCOMPARE(_bar->objectName(), QString("colorBarFrame"));
    QCOMPARE(_bar->minValue(), 0.0);
    QCOMPARE(_bar->maxValue(), 255.0);
    QCOMPARE(_bar->numColors(), 256);
    QCOMPARE(_bar->colorMode(), 1);
    QCOMPARE(_bar->colorType(), ColorNo);
    QCOMPARE(int(_bar->colorMap().colorStops().size()), 5);
    QCOMPARE(_bar->backGround(), QColor(Qt::white));
    QCOMPARE(_bar->colorFile(), QString());
    QCOMPARE(_bar->height(), 256);
    _bar->drawScale(false);
    QCOMPARE(_bar->size(), QSize(15, 256));
}

void ColorBarFrameTest::paintsTheStripFromTheHighValueDown()
{
    _bar->setColorType(ColorYes);
    QCOMPARE(stripPixel(0), qRgb(255, 255, 0));
    QCOMPARE(stripPixel(64), qRgb(255, 0, 0));
    QCOMPARE(stripPixel(128), qRgb(255, 255, 255));
    QCOMPARE(stripPixel(192), qRgb(0, 0, 255));
    QCOMPARE(stripPixel(255), qRgb(0, 0, 8));  // 2 of 256 steps above black, of 64 to blue
    _bar->setSeismicGrayScale();
    QCOMPARE(stripPixel(0), qRgb(0, 0, 0));
}

void ColorBarFrameTest::withoutColourIsSplitAtHalfTheHeight()
{
    QCOMPARE(stripPixel(0), qRgb(0, 0, 0));
    QCOMPARE(stripPixel(127), qRgb(0, 0, 0));
    QCOMPARE(stripPixel(128), qRgb(255, 255, 255));
    QCOMPARE(stripPixel(255), qRgb(255, 255, 255));
}

void ColorBarFrameTest::numbersStandAtSixStepsWithTheirSigns()
{
    const QVector<ColorBarNumber> numbers = colorBarNumbers(-3.0f, 3.0f, 256);
    const char* const texts[] = {"+3", "+2", "+1", "0", "-1", "-2", "-3"};
    QCOMPARE(numbers.size(), 7);
    for (int i = 0; i < 7; ++i) {
        QCOMPARE(numbers[i].text, QString(texts[i]));
        QCOMPARE(numbers[i].center, i * 42);  // 256 / 6, whole
    }
    QCOMPARE(colorBarNumbers(0.0f, 255.0f, 256)[0].text, QString("255"));
    QCOMPARE(colorBarNumbers(1500.0f, 5000.0f, 256)[6].text, QString("1500"));
}

void ColorBarFrameTest::numbersMakeRoomForThemselvesAndAreAllVisible()
{
    _bar->setDataMinMaxValue(-1.0, 1.0);
    const int narrow = _bar->width();
    QVERIFY(narrow > 19);
    _bar->setDataMinMaxValue(-123456.0, 123456.0);
    QVERIFY(_bar->width() > narrow);
    const QImage image = _bar->grab().toImage();
    const QRgb paper = image.pixel(17, 100);
    for (int i = 0; i < 7; ++i) {  // ink near each number's place, the outer two inside the widget
        const int center = qBound(5, i * 42, 250);
        bool hasInk = false;
        for (int y = qMax(0, center - 6); y <= qMin(255, center + 6); ++y)
            for (int x = 19; x < image.width(); ++x) hasInk = hasInk || image.pixel(x, y) != paper;
        QVERIFY2(hasInk, qPrintable(QString::number(i)));
    }
}

void ColorBarFrameTest::dataRangeOfZerosGivesOneAroundZero()
{
    _bar->setDataMinMaxValue(0.0, 0.0);
    QCOMPARE(_bar->dataMinValue(), -1.0f);
    QCOMPARE(_bar->dataMaxValue(), 1.0f);
    _bar->setMinMaxValue(0.0, 0.0);
    QCOMPARE(_bar->minValue(), -1.0);
    QCOMPARE(_bar->maxValue(), 1.0);
}

void ColorBarFrameTest::loadsAColourFile()
{
    const QString name = write("2,0\n0,4278190335\n0.5,4278255360\n1,4294901760\n");  // blue, green, red
    QString error;
    QVERIFY2(_bar->loadColorMapFile(name, &error), qPrintable(error));
    _bar->setColorType(ColorYes);
    QCOMPARE(_bar->colorFile(), name);
    QCOMPARE(_bar->numColors(), 2);
    QCOMPARE(_bar->colorMode(), 0);
    QCOMPARE(_bar->getColorRGB2(255.0), qRgb(255, 0, 0));
    QCOMPARE(_bar->getColorRGB2(0.0), qRgb(0, 255, 0));  // two colours: at 255 and at 127.5
    QCOMPARE(_bar->getColorRGB(10.0), qRgb(0, 0, 255));
    QCOMPARE(_bar->getColorValue2(255.0), QColor(Qt::red));
}

void ColorBarFrameTest::aFileOfOnlyAFirstLineKeepsTheStops()
{
    QVERIFY(_bar->loadColorMapFile(write("32,0\n")));
    QCOMPARE(_bar->numColors(), 32);
    QCOMPARE(_bar->colorMode(), 0);
    QCOMPARE(int(_bar->colorMap().colorStops().size()), 5);
    QCOMPARE(_bar->colorMap().color2(), qRgb(255, 255, 0));
}

void ColorBarFrameTest::aBrokenOrMissingFileLeavesTheColours()
{
    QString error;
    const QString name = write("32,0\n0.5,green\n");
    QVERIFY(!_bar->loadColorMapFile(name, &error));
    QCOMPARE(error, name + ", line 2: color: \"green\" is not the number of a color");
    QVERIFY(!_bar->loadColorMapFile(_folder->filePath("none.col"), &error));
    QVERIFY(error.startsWith(_folder->filePath("none.col")));
    QCOMPARE(_bar->numColors(), 256);
    QCOMPARE(_bar->colorMode(), 1);
    QCOMPARE(int(_bar->colorMap().colorStops().size()), 5);
}

void ColorBarFrameTest::theBackgroundGoesWithItsRgbValue()
{
    _bar->setBackGround(QColor(1, 2, 3));
    QCOMPARE(_bar->backGround(), QColor(1, 2, 3));
    QCOMPARE(_bar->backRGB(), qRgb(1, 2, 3));
}

QTEST_MAIN(ColorBarFrameTest)
#include "colorbarframetest.moc"
