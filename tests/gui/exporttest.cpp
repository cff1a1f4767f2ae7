/// Pictures, documents and prints.
#include "widgets/pictureexport.h"

#include <QPrinter>
#include <QTemporaryDir>
#include <QtTest>

class ExportTest : public QObject
{
    Q_OBJECT

private slots:
    void aNameWithoutSuffixBecomesPng();
    void aPictureComesBackAsItWasWritten();
    void anUnknownFormatLeavesNoFile();
    void aFolderThatIsNotThereIsNamed();
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
    for (const char* suffix : {"png", "bmp", "tif"}) {
        const QString name = folder.filePath(QString("shot.") + suffix);
        if (!savePicture(twoColours(), name, &error)) {
            QVERIFY2(QString(suffix) == "tif", qPrintable(error));  // that one is a plug-in
            continue;
        }
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
    const QRegularExpressionMatch box =
        QRegularExpression("/MediaBox \\[[0-9.]+ [0-9.]+ ([0-9.]+) ([0-9.]+)").match(QString::fromLatin1(bytes.constData(), bytes.size()));
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
