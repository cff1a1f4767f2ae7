/// Pictures, documents and prints.
#include "tests/brokenplaces.h"
#include "widgets/pictureexport.h"
#include "widgets/wholefile.h"

#include <QPrinter>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

class ExportTest : public QObject
{
    Q_OBJECT

private slots:
    void aNameWithoutSuffixBecomesPng();
    void aPictureComesBackAsItWasWritten();
    void anUnknownFormatLeavesNoFile();
    void aFormatThatCannotBeWrittenIsRefusedByName();
    void aFolderThatIsNotThereIsNamed();
    void noFormatLosesAFileWhereItCannotWrite_data();
    void noFormatLosesAFileWhereItCannotWrite();
    void aFileTakesThePlaceOfTheFormerOne();
    void aDeviceIsNotReplaced();
    void aPrintIntoAFileIsADocument();
    void aPdfIsOneLandscapePage();
    void aPictureKeepsItsProportionsOnThePage();
};

static QPixmap twoColours()
{
    QPixmap picture(40, 20);
    picture.fill(Qt::red);
    QPainter(&picture).fillRect(20, 0, 20, 20, Qt::blue);
    return picture;
}

void ExportTest::aNameWithoutSuffixBecomesPng()
{
    QCOMPARE(withPictureSuffix("/a.b/shot"), QString("/a.b/shot.png"));
    QCOMPARE(withPictureSuffix("/a.b/shot.jpg"), QString("/a.b/shot.jpg"));
}

void ExportTest::aPictureComesBackAsItWasWritten()
{
    const QTemporaryDir folder;
    QString error;
    for (const char* suffix : {"png", "bmp", "tif", "TIFF"}) {
        const QString name = folder.filePath(QString("shot.") + suffix);
        QVERIFY2(savePicture(twoColours(), name, &error), qPrintable(error));
        const QImage back(name);
        QCOMPARE(back.size(), QSize(40, 20));
        QCOMPARE(back.pixelColor(5, 5), QColor(Qt::red));
        QCOMPARE(back.pixelColor(35, 5), QColor(Qt::blue));
    }
}

void ExportTest::anUnknownFormatLeavesNoFile()
{
    const QTemporaryDir folder;
    QString error;
    QVERIFY(!savePicture(twoColours(), folder.filePath("shot.xyz"), &error));
    QVERIFY(error.contains("shot.xyz"));
    QVERIFY(!QFile::exists(folder.filePath("shot.xyz")));
}

void ExportTest::aFormatThatCannotBeWrittenIsRefusedByName()
{
    QString error;
    QVERIFY(canWritePicture("/nowhere/shot.tif", &error));
    QVERIFY(error.isEmpty());
    QVERIFY(!canWritePicture("/tmp/shot.gif", &error));
    QVERIFY(error.contains("/tmp/shot.gif"));
    for (const char* format : {".png", ".jpg", ".tif", ".bmp"}) QVERIFY2(error.contains(format), qPrintable(error));
    QVERIFY(!canWritePicture("/tmp/shot", &error));
}

/// A document of the printer's page, written by name.
static bool printTo(const QString& name, QString* error)
{
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(name);
    return printPicture(twoColours(), &printer, error);
}

void ExportTest::noFormatLosesAFileWhereItCannotWrite_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"shot.png", "shot.jpg", "shot.jpeg", "shot.bmp", "shot.tif", "shot.pdf", "print.pdf"})
        QTest::newRow(name) << QString(name);
}

void ExportTest::noFormatLosesAFileWhereItCannotWrite()
{
    QFETCH(QString, name);
    const QString found = failureOfWrites(name, [&](const QString& path, QString* error) {
        return name == "print.pdf"     ? printTo(path, error)
               : name.endsWith(".pdf") ? savePdf(twoColours(), path, error)
                                       : savePicture(twoColours(), path, error);
    });
    QVERIFY2(found.isEmpty(), qPrintable(found));
}

void ExportTest::aFileTakesThePlaceOfTheFormerOne()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath("a.txt");
    QString error;
    for (const QByteArray& bytes : {QByteArray("a long first text"), QByteArray("second")}) {
        QVERIFY2(writeWhole(name, bytes, &error), qPrintable(error));
        QFile file(name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), bytes);
    }
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList("a.txt"));
}

void ExportTest::aDeviceIsNotReplaced()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath("pipe.png");
    QCOMPARE(mkfifo(qPrintable(name), 0600), 0);
    QString error;
    QVERIFY(!savePicture(twoColours(), name, &error));
    QVERIFY(error.contains("pipe.png"));
    QVERIFY(!QFileInfo(name).isFile());
}

void ExportTest::aPrintIntoAFileIsADocument()
{
    const QTemporaryDir folder;
    QString error;
    const QString name = folder.filePath("print.pdf");
    QVERIFY2(printTo(name, &error), qPrintable(error));
    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(bytes.startsWith("%PDF-"));
    QCOMPARE(bytes.count("/Type /Page\n"), 1);
}

void ExportTest::aFolderThatIsNotThereIsNamed()
{
    QString error;
    QVERIFY(!savePicture(twoColours(), "/nowhere/shot.png", &error));
    QVERIFY(error.contains("/nowhere/shot.png"));
    QVERIFY(!savePdf(twoColours(), "/nowhere/shot.pdf", &error));
    QVERIFY(error.contains("/nowhere/shot.pdf"));
}

void ExportTest::aPdfIsOneLandscapePage()
{
    const QTemporaryDir folder;
    QString error;
    const QString name = folder.filePath("shot.pdf");
    QVERIFY2(savePdf(twoColours(), name, &error), qPrintable(error));
    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(bytes.startsWith("%PDF-"));
    QCOMPARE(bytes.count("/Type /Page\n"), 1);
    const QRegularExpressionMatch box = QRegularExpression("/MediaBox \\[[0-9.]+ [0-9.]+ ([0-9.]+) ([0-9.]+)")
                                            .match(QString::fromLatin1(bytes.constData(), bytes.size()));
    QVERIFY(box.hasMatch());
    QVERIFY(box.captured(1).toDouble() > box.captured(2).toDouble());
    QVERIFY(bytes.contains(QByteArray("\0S\0e\0i\0s\0m\0i\0c", 14)));  // the creator, in two-byte characters
}

void ExportTest::aPictureKeepsItsProportionsOnThePage()
{
    QCOMPARE(fittedRect(QSize(400, 200), QRect(10, 20, 100, 100)), QRect(10, 20, 100, 50));
    QCOMPARE(fittedRect(QSize(200, 400), QRect(0, 0, 100, 100)), QRect(0, 0, 50, 100));
}

QTEST_MAIN(ExportTest)
#include "exporttest.moc"
