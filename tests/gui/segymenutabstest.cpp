/// The tabs of the SEG-Y menu that show headers: text, reel and traces.
#include "sources/menus/segyebcdicmenu.h"
#include "sources/menus/segyheadertext.h"
#include "tests/gui/segymenufixture.h"
#include "tests/unit/sources/segybuilder.h"

#include <QLabel>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>

#include <cmath>
#include <cstring>

class SegyMenuTabsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void theTextHeaderIsFortyLinesOfEighty();
    void editTogglesReadOnly();
    void anEditedTextSurvivesTheBuildOfTheIndex();
    void loadOfATextFileDoesNotTouchTheReel();
    void saveWritesTheTextOfTheEditor();
    void aTextFileThatCannotBeReadOrWrittenIsTold();
    void theBinaryTabListsTheReel();
    void theTraceTabWithoutAnIndexWarnsAndTheSpinBoxStays();
    void theTraceTabShowsTheTraceAsked();
    void readingATraceHeaderKeepsTheNextEnsemble();
    void theFiveViewsShowTheSameBytes();
    void theViewsOfAHeaderHaveTheToldColumns();
    void theByteViewsShowTheBytesOfTheFile();
    void theStandardViewHasEightySevenLabels();

private:
    QTemporaryDir _folder;
    QString _file;
};

void SegyMenuTabsTest::initTestCase()
{
    QVERIFY(_folder.isValid());
    qputenv("HOME", _folder.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _folder.path());
    _file = writeSegy(_folder.path() + "/six.sgy");
}

void SegyMenuTabsTest::theTextHeaderIsFortyLinesOfEighty()
{
    MenuFixture menu;
    menu.open(_file);
    const QStringList lines = menu.text("segyebcdicmenu")->toPlainText().split('\n');
    QCOMPARE(lines.size(), 40);
    for (const QString& line : lines) QCOMPARE(line.size(), 80);
    QCOMPARE(lines[0].trimmed(), QString("C 1 line of text"));
    QCOMPARE(lines[39].trimmed(), QString("C40 line of text"));
    QByteArray bytes = segyBytes();
    bytes[5] = '\0';
    bytes[6] = '\x25';  // a line feed in EBCDIC
    menu.open(writeSegy(_folder.path() + "/odd.sgy", bytes));
    const QStringList odd = menu.text("segyebcdicmenu")->toPlainText().split('\n');
    QCOMPARE(odd.size(), 40);
    QCOMPARE(odd[0].trimmed(), QString("C 1 l  e of text"));
}

void SegyMenuTabsTest::editTogglesReadOnly()
{
    MenuFixture menu;
    menu.open(_file);
    menu.showTab(1);
    QPlainTextEdit* text = menu.text("segyebcdicmenu");
    QVERIFY(text->isReadOnly());
    menu.click("editButton");
    QVERIFY(!text->isReadOnly());
    QTest::keyClicks(text, "X");
    QVERIFY(text->toPlainText().startsWith("XC 1"));
    menu.click("editButton");
    QVERIFY(text->isReadOnly());
}

void SegyMenuTabsTest::anEditedTextSurvivesTheBuildOfTheIndex()
{
    MenuFixture menu;
    menu.open(_file);
    menu.showTab(1);
    menu.click("editButton");
    QTest::keyClicks(menu.text("segyebcdicmenu"), "X");
    menu.showTab(0);
    menu.click("buttonBuild");
    QTRY_VERIFY(menu.host.loader->isIndexBuilt());
    QVERIFY(menu.text("segyebcdicmenu")->toPlainText().startsWith("XC 1"));
    menu.open(_file);
    QVERIFY(menu.text("segyebcdicmenu")->toPlainText().startsWith("C 1"));
}

void SegyMenuTabsTest::loadOfATextFileDoesNotTouchTheReel()
{
    MenuFixture menu;
    menu.open(_file);
    menu.showTab(1);
    const QByteArray before = menu.host.loader->getEbcdic();
    QFile file(_folder.path() + "/header.txt");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("C 1 CLIENT: M\xc3\xb8rk\nC 2");
    file.close();
    BoxWatcher boxes;
    boxes.files = QStringList(file.fileName());
    menu.click("loadButton");
    QCOMPARE(boxes.titles, QStringList({"Load EBCDIC Header"}));
    QCOMPARE(boxes.folders, QStringList(QDir(_folder.path()).absolutePath()));
    QCOMPARE(menu.text("segyebcdicmenu")->toPlainText(), QString::fromUtf8("C 1 CLIENT: M\xc3\xb8rk\nC 2"));
    QCOMPARE(menu.host.loader->getEbcdic(), before);
    QFile segy(_file);
    QVERIFY(segy.open(QIODevice::ReadOnly));
    QCOMPARE(segy.readAll(), segyBytes());
}

void SegyMenuTabsTest::saveWritesTheTextOfTheEditor()
{
    MenuFixture menu;
    menu.open(_file);
    menu.showTab(1);
    BoxWatcher boxes;
    boxes.files = QStringList(_folder.path() + "/saved.txt");
    menu.click("saveButton");
    QCOMPARE(boxes.titles, QStringList({"Save EBCDIC Header"}));
    QFile file(boxes.files.first());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(file.readAll()), menu.text("segyebcdicmenu")->toPlainText());
}

void SegyMenuTabsTest::aTextFileThatCannotBeReadOrWrittenIsTold()
{
    MenuFixture menu;
    menu.open(_file);
    menu.showTab(1);
    const QString before = menu.text("segyebcdicmenu")->toPlainText();
    BoxWatcher boxes;
    const QString absent = _folder.path() + "/absent.txt";
    QVERIFY(!menu.find<SegyEbcdicMenu>("segyebcdicmenu")->loadText(absent));
    QCOMPARE(boxes.titles, QStringList({"EBCDIC"}));
    QCOMPARE(boxes.texts, QStringList("Cannot read file " + absent + ":\nNo such file or directory."));
    QCOMPARE(menu.text("segyebcdicmenu")->toPlainText(), before);
    boxes.files = QStringList(_folder.path() + "/absent/out.txt");
    menu.click("saveButton");
    QCOMPARE(boxes.titles.last(), QString("EBCDIC"));
    QVERIFY2(boxes.texts.last().startsWith("Cannot write file " + boxes.files.first() + ":\n"),
             qPrintable(boxes.texts.last()));
    QCOMPARE(menu.text("segyebcdicmenu")->toPlainText(), before);
}

void SegyMenuTabsTest::theBinaryTabListsTheReel()
{
    MenuFixture menu;
    menu.open(_file);
    const QStringList lines = menu.text("segybinarymenu")->toPlainText().split('\n');
    QCOMPARE(lines.size(), 29);
    QCOMPARE(lines[0], QString("Job identification number:").leftJustified(40) + "1");
    QCOMPARE(lines[3], QString("Number of data traces:").leftJustified(40) + "4");
    QCOMPARE(lines[5], QString("Sample interval (usec):").leftJustified(40) + "2000");
    QCOMPARE(lines[7], QString("Number of samples per trace:").leftJustified(40) + "4");
    QCOMPARE(lines[9], QString("Data sample format code:").leftJustified(40) + "5");
    // From here on field i holds i, but for the sort.
    for (int i : {11, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27})
        QCOMPARE(lines[i - 1].mid(40), QString::number(i));
    QVERIFY(lines[26].startsWith("Vibratory polarity code:"));
    QVERIFY(lines[27].startsWith("SEGY format revision number:"));
    QVERIFY(lines[28].startsWith("Fixed trace length flag:"));
}

void SegyMenuTabsTest::theTraceTabWithoutAnIndexWarnsAndTheSpinBoxStays()
{
    MenuFixture menu;
    menu.open(_file);
    auto* spin = menu.find<QSpinBox>("spinBox");
    const int before = spin->value();
    BoxWatcher boxes;
    menu.showTab(3);
    QCOMPARE(boxes.titles, QStringList({"Load Index Map"}));
    QCOMPARE(boxes.texts, QStringList({"Cannot show SEGY trace header data \nbecause the index map is not built.\n"
                                       "Return to the SEGY Load tab and \npress the 'Build Now' button in the menu."}));
    QCOMPARE(spin->value(), before);
    QVERIFY(menu.text("segyheadermenu")->toPlainText().isEmpty());
}

void SegyMenuTabsTest::theTraceTabShowsTheTraceAsked()
{
    MenuFixture menu;
    menu.open(_file, 1);
    menu.showTab(3);
    auto* spin = menu.find<QSpinBox>("spinBox");
    QCOMPARE(spin->minimum(), 1);
    QCOMPARE(spin->maximum(), 6);
    QCOMPARE(menu.find<QLabel>("trcLabel")->text(), QString("Total traces: 6"));
    const auto line = [&menu](int i) { return menu.text("segyheadermenu")->toPlainText().split('\n').value(i); };
    QVERIFY(line(0).startsWith("  1) Trace sequence number in line:"));
    QVERIFY(line(0).endsWith(" 1"));
    spin->setFocus();
    spin->selectAll();
    QTest::keyClicks(spin, "4");
    QTest::keyClick(spin, Qt::Key_Return);
    QVERIFY(line(0).endsWith(" 4"));
    QVERIFY(line(2).startsWith("  9) Original field record number:"));
    QVERIFY(line(2).endsWith(" 11"));
    QVERIFY(line(5).endsWith(" 104"));
    QTest::keyClick(spin, Qt::Key_Up);
    QVERIFY(line(0).endsWith(" 5"));
}

void SegyMenuTabsTest::readingATraceHeaderKeepsTheNextEnsemble()
{
    MenuFixture menu;
    menu.open(_file, 1);
    menu.host.loader->loadNextEnsemble(1);
    const uint64_t position = menu.host.loader->SegyData()->getPos();
    menu.showTab(3);
    menu.find<QSpinBox>("spinBox")->setValue(6);
    QCOMPARE(menu.host.loader->SegyData()->getPos(), position);
    menu.host.loader->loadNextEnsemble(1);
    QCOMPARE(menu.host.loader->priCurValue(), 11);
}

void SegyMenuTabsTest::theFiveViewsShowTheSameBytes()
{
    MenuFixture menu;
    menu.open(_file, 1);
    menu.showTab(3);
    const QString firstLines[] = {"  1) Trace sequence number in line:", "Byte Short uShort Short(swap) uShort(swap)",
                                  "Byte Integer uInteger Integer(swap) uInteger(swap)",
                                  "Byte IEEE IBM IEEE(swap) IBM(swap)", "Byte Ascii"};
    const int counts[] = {87, 121, 61, 61, 241};
    const char* const labels[] = {"Standard", "Short", "Integer", "Float", "Ascii"};
    for (int i = 0; i < 5; ++i) {
        auto* radio = menu.find<QRadioButton>(qPrintable(QString("radio%1").arg(i + 1)));
        QCOMPARE(radio->text(), QString(labels[i]));
        radio->click();
        const QStringList lines = menu.text("segyheadermenu")->toPlainText().split('\n');
        QCOMPARE(lines.size(), counts[i]);
        QVERIFY2(lines[0].simplified().startsWith(firstLines[i].simplified()), qPrintable(lines[0]));
    }
    const QFont font = menu.text("segyheadermenu")->font();
    QCOMPARE(font.family(), QString("Courier"));
}

void SegyMenuTabsTest::theViewsOfAHeaderHaveTheToldColumns()
{
    unsigned char header[240] = {};
    const unsigned char bytes[] = {0xff, 0xfe, 0x02, 0x01, 0x00, 0x00, 0x10, 0x41, 'A', 'z', '~', 0x7f};
    std::memcpy(header, bytes, sizeof bytes);
    const auto rows = [](const QString& text) {
        QList<QStringList> list;
        for (const QString& row : text.split('\n')) list += row.simplified().split(' ');
        return list;
    };
    // 0xfeff and the reverse, 0xfffe.
    QCOMPARE(rows(buildShortHeader(header, false))[1], QStringList({"1", "-257", "65279", "-2", "65534"}));
    QCOMPARE(rows(buildShortHeader(header, false))[2], QStringList({"3", "258", "258", "513", "513"}));
    QCOMPARE(rows(buildShortHeader(header, true))[1], QStringList({"1", "-2", "65534", "-257", "65279"}));
    // 0x0102feff and the reverse, 0xfffe0201.
    QCOMPARE(rows(buildIntegerHeader(header, false))[1],
             QStringList({"1", "16973567", "16973567", "-130559", "4294836737"}));
    QCOMPARE(rows(buildIntegerHeader(header, true))[1],
             QStringList({"1", "-130559", "4294836737", "16973567", "16973567"}));
    // 0x41100000: 9.0 as IEEE, 1.0 as IBM; the reverse is 0x00001041, a denormal: 4161 times 2 to the -149.
    const QStringList floats = rows(buildFloatHeader(header, false))[2];
    QCOMPARE(floats.mid(0, 3), QStringList({"5", "9", "1"}));
    QVERIFY(std::fabs(floats[3].toDouble() / std::ldexp(4161.0, -149) - 1.0) < 1e-6);
    const QStringList otherFloats = rows(buildFloatHeader(header, true))[2];
    QCOMPARE(otherFloats.mid(3, 2), QStringList({"9", "1"}));
    const QStringList ascii = buildAsciiHeader(header, false).split('\n');
    QCOMPARE(ascii[1], QString("   1  ."));
    QCOMPARE(ascii[9], QString("   9  A"));
    QCOMPARE(ascii[10], QString("  10  z"));
    QCOMPARE(ascii[11], QString("  11  ~"));
    QCOMPARE(ascii[12], QString("  12  ."));
    QCOMPARE(ascii[240], QString(" 240  ."));
}

/// The shapes that a reader sees of known bytes, in a file of either order.
void SegyMenuTabsTest::theByteViewsShowTheBytesOfTheFile()
{
    for (const bool isBigEndian : {true, false}) {
        SegyBuilder file(2, 5, isBigEndian);
        for (int i = 0; i < 2; ++i) {
            file.addTrace<float>({1.0f, 2.0f});
            file.setHeader<int32_t>(size_t(i), 8, 7);
            file.setHeader<int32_t>(size_t(i), 20, 0x00010002);  // halves of 1 and 2, highest first
            file.setHeader<int16_t>(size_t(i), 28, 1);
            file.setHeader<float>(size_t(i), 228, 1.5f);  // behind the fields that have names
        }
        for (int i = 0; i < 2; ++i) std::memcpy(file.bytes.data() + file.traceStarts[size_t(i)] + 232, "ABCD", 4);
        std::memcpy(file.bytes.data() + file.traceStarts[0] + 36, "EFGH", 4);  // in a field of 4 bytes
        MenuFixture menu;
        menu.box("typeBox")->setCurrentIndex(isBigEndian ? 0 : 1);
        menu.open(QString::fromStdString(file.save((_folder.path() + "/bytes.sgy").toStdString())), 1);
        menu.showTab(3);
        const auto row = [&menu](int view, int byte, int width) {
            menu.find<QRadioButton>(qPrintable(QString("radio%1").arg(view + 1)))->click();
            return menu.text("segyheadermenu")
                ->toPlainText()
                .split('\n')[(byte - 1) / width + 1]
                .simplified()
                .split(' ');
        };
        // In the file's order the halves stand highest first, or lowest first; 256 and 512 are 1 and 2 turned over.
        const QStringList high{"1", "1", "256", "256"}, low{"2", "2", "512", "512"};
        QCOMPARE(row(1, 21, 2), QStringList{"21"} + (isBigEndian ? high : low));
        QCOMPARE(row(1, 23, 2), QStringList{"23"} + (isBigEndian ? low : high));
        QCOMPARE(row(2, 21, 4), QStringList({"21", "65538", "65538", "33554688", "33554688"}));  // 0x02000100
        QCOMPARE(row(2, 9, 4).mid(0, 2), QStringList({"9", "7"}));
        QCOMPARE(row(3, 229, 4).mid(0, 2), QStringList({"229", "1.5"}));
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(row(4, 233 + i, 1), QStringList({QString::number(233 + i), QString("ABCD"[i])}));
            QCOMPARE(row(4, 37 + i, 1), QStringList({QString::number(37 + i), QString("EFGH"[i])}));
        }
        // The named fields stay in machine order.
        menu.find<QRadioButton>("radio1")->click();
        QVERIFY(menu.text("segyheadermenu")->toPlainText().split('\n')[5].endsWith(" 65538"));
    }
}

void SegyMenuTabsTest::theStandardViewHasEightySevenLabels()
{
    // Each 2 bytes hold their own number, so that a wrong place or width shows.
    unsigned char header[240];
    for (int i = 0; i < 240; i += 2) {
        const int16_t number = int16_t(i + 1);
        std::memcpy(header + i, &number, 2);
    }
    const QStringList lines = buildStandardHeader(header).split('\n');
    QCOMPARE(lines.size(), 87);
    int last = -1;
    for (const QString& line : lines) {
        QCOMPARE(line.mid(3, 2), QString(") "));
        QCOMPARE(line[45], QChar(' '));
        const int byte = line.left(3).toInt();
        QVERIFY(byte > last);
        last = byte;
        QCOMPARE(line.mid(46).toInt() & 0xffff, byte);
    }
    const auto valueOf = [&lines](const QString& label) {
        for (const QString& line : lines)
            if (line.startsWith(label)) return line.mid(46).toInt();
        return -1;
    };
    QCOMPARE(valueOf(" 29) Trace identifiction code:"), 29);
    QCOMPARE(valueOf("179) Over travel for taper at line:"), 179);
    QCOMPARE(valueOf("225) Source measurement units:"), 225);
    const int wide = littleEndian() ? 189 + (191 << 16) : 191 + (189 << 16);
    QCOMPARE(valueOf("189) 3-D in-line number:"), wide);
}

QTEST_MAIN(SegyMenuTabsTest)
#include "segymenutabstest.moc"
