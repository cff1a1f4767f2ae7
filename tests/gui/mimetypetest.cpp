/// What a desktop takes for SEG-Y, by the description that is installed with the program.
#include "tests/testdata.h"

#include <QDir>
#include <QDirIterator>
#include <QMimeDatabase>
#include <QTemporaryDir>
#include <QtTest>

class MimeTypeTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void firstCardsTell_data();
    void firstCardsTell();
    void namesTell_data();
    void namesTell();
    void everyRealFileIsKnown();

private:
    QTemporaryDir _data;
};

/// The database reads its folders at the first question, so that they must be named before any.
void MimeTypeTest::initTestCase()
{
    QVERIFY(QDir().mkpath(_data.path() + "/mime/packages"));
    QVERIFY(QFile::copy(MERIDUNE_SOURCE_DIR "/resources/desktop/meridune-segy.xml",
                        _data.path() + "/mime/packages/meridune-segy.xml"));
    qputenv("XDG_DATA_DIRS", _data.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", (_data.path() + "/none").toLocal8Bit());
}

/// A file's first two cards, in ASCII or in EBCDIC, where "C" is C3, blank 40, and the digits F0 to F9.
static QByteArray cards(const char* first, const char* second, bool ebcdic)
{
    QByteArray text = QByteArray(first).leftJustified(80) + QByteArray(second).leftJustified(80);
    if (!ebcdic) return text;
    for (char& c : text) c = c == 'C' ? '\xc3' : c == ' ' ? '\x40' : char(0xf0 + (c - '0'));
    return text;
}

void MimeTypeTest::firstCardsTell_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isSegy");
    QTest::newRow("EBCDIC, C 1") << cards("C 1", "C 2", true) << true;
    QTest::newRow("EBCDIC, C01") << cards("C01", "C02", true) << true;
    QTest::newRow("EBCDIC, C1") << cards("C1 ", "C2 ", true) << true;
    QTest::newRow("ASCII, C 1") << cards("C 1", "C 2", false) << true;
    QTest::newRow("ASCII, C01") << cards("C01", "C02", false) << true;
    QTest::newRow("ASCII, C1") << cards("C1 ", "C2 ", false) << true;
    QTest::newRow("one card alone is text") << cards("C 1", "", false) << false;
    QTest::newRow("another letter") << cards("C 7", "C 8", true) << false;
}

void MimeTypeTest::firstCardsTell()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, isSegy);
    QCOMPARE(QMimeDatabase().mimeTypeForData(bytes).name() == "application/x-segy", isSegy);
}

void MimeTypeTest::namesTell_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isSegy");
    QTest::newRow("sgy") << "line.sgy" << true;
    QTest::newRow("segy") << "line.segy" << true;
    QTest::newRow("SGY") << "LINE.SGY" << true;
    QTest::newRow("seg-y") << "line.seg-y" << true;
    QTest::newRow("su") << "line.su" << false;
}

void MimeTypeTest::namesTell()
{
    QFETCH(QString, name);
    QFETCH(bool, isSegy);
    const QMimeType type = QMimeDatabase().mimeTypeForFile(name, QMimeDatabase::MatchExtension);
    QCOMPARE(type.name() == "application/x-segy", isSegy);
}

void MimeTypeTest::everyRealFileIsKnown()
{
    const QString folder = QString::fromStdString(testDataFolder());
    if (!QDir(folder).exists()) QSKIP("the folder of real files is missing");
    // Text headers of blanks, of NULs, or without card numbers say nothing: there the name must do.
    const QStringList silent = {"329.sgy",
                                "real_gather.sgy",
                                "1_first_trace.sgy",
                                "f11_02673_45Hz.segy",
                                "shot_record_250.0_0.0_20.0.segy",
                                "unit_test_shot_records_1.segy",
                                "RIV6.segy"};
    int nFiles = 0, nSilent = 0;
    QDirIterator files(folder, {"*.sgy", "*.segy"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        const QString name = files.fileName();
        QVERIFY(file.open(QIODevice::ReadOnly));
        const bool isSegy = QMimeDatabase().mimeTypeForData(file.read(3600)).name() == "application/x-segy";
        QVERIFY2(isSegy != silent.contains(name), qPrintable(name));
        QCOMPARE(QMimeDatabase().mimeTypeForFile(file.fileName()).name(), QString("application/x-segy"));
        ++nFiles;
        nSilent += silent.contains(name);
    }
    QVERIFY(nFiles >= 40);
    QCOMPARE(nSilent, silent.size());
}

QTEST_GUILESS_MAIN(MimeTypeTest)
#include "mimetypetest.moc"
