/// "Guess Settings" with its panel, and the view "Varying" of the trace tab.
#include "sources/menus/segyguessdialog.h"
#include "sources/menus/segyremapdialog.h"
#include "sources/menus/segyvaryingview.h"
#include "tests/gui/segymenufixture.h"

#include <QCheckBox>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>
#include <QTableWidget>
#include <QTemporaryDir>

#include <sys/stat.h>

class SegyGuessTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void nothingIsGuessedWithoutThePress();
    void thePressFillsTheFieldsAndShowsWhy();
    void theGuessedSettingsOpenTheFile();
    void restoreBringsTheFormerSettingsBack();
    void restoreKeepsAFileThatWasTypedSince();
    void aFileThatCannotBeReadKeepsTheSettings_data();
    void aFileThatCannotBeReadKeepsTheSettings();
    void whatTheReaderCannotFollowIsSaidAndKeepsTheSettings();
    void theFirstFileOfAListIsLookedAt();
    void copyGivesTheTextWithTabs();
    void controlCCopiesTheSelection();
    void thePanelIsUsedAgain();
    void theButtonHasATipAndTheLastPlaceOfItsTab();
    void varyingRanksTheBytesOfTheFile();
    void varyingIsInFileOrderWhateverTheSort();
    void varyingOfALittleEndianFile();
    void aClickTakesARemapRow();
    void aFullRemapTableTakesNoRow();
    void theRowThatWasTakenIsReadFromThenOn();
    void varyingFollowsTheNextFile();
    void withoutAnIndexVaryingIsEmpty();

private:
    QString path(const char* name) const { return _folder.path() + "/" + name; }

    QTemporaryDir _folder;
    QString _file;
};

void SegyGuessTest::initTestCase()
{
    QVERIFY(_folder.isValid());
    qputenv("HOME", _folder.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _folder.path());
    _file = writeSegy(path("six.sgy"));
}

/// The same six traces, with the lowest byte first and "1" as the reel's count of traces.
static QByteArray littleEndianBytes()
{
    const QByteArray big = segyBytes();
    QByteArray little = big;
    const auto swap = [&little](int at, int n) { std::reverse(little.begin() + at, little.begin() + at + n); };
    put16(&little, 3212, 1);
    put16(&little, 3214, 0);
    for (int i = 0; i < 3; ++i) swap(3200 + 4 * i, 4);
    for (int i = 0; i < 24; ++i) swap(3212 + 2 * i, 2);
    for (int trace = 0; trace < 6; ++trace) {
        const int start = 3600 + 256 * trace;
        for (int byte : {0, 8, 12, 20}) swap(start + byte, 4);
        for (int byte : {28, 114, 116, 178}) swap(start + byte, 2);
    }
    return little;
}

static SegyGuessDialog* panelOf(MenuFixture* menu)
{
    return menu->dialog->findChild<SegyGuessDialog*>();
}

static QString cell(QTableWidget* table, const QString& first, int column)
{
    for (int row = 0; row < table->rowCount(); ++row)
        if (table->item(row, 0)->text() == first) return table->item(row, column)->text();
    return "no row " + first;
}

static QTableWidget* table(QWidget* parent, const char* name)
{
    auto* found = parent->findChild<QTableWidget*>(name);
    if (!found) qFatal("no table %s", name);
    return found;
}

void SegyGuessTest::nothingIsGuessedWithoutThePress()
{
    MenuFixture menu;
    menu.edit("fileField")->setText(_file);
    QTest::keyClick(menu.edit("fileField"), Qt::Key_Return);
    menu.click("openButton");
    QCOMPARE(menu.host.asked.first().nsamp, 0);
    QCOMPARE(menu.host.asked.first().isort, 0);
    QVERIFY(!panelOf(&menu));
}

void SegyGuessTest::thePressFillsTheFieldsAndShowsWhy()
{
    MenuFixture menu;
    menu.edit("fileField")->setText(writeSegy(path("little.sgy"), littleEndianBytes()));
    menu.click("guessButton");
    QCOMPARE(menu.box("typeBox")->currentText(), QString("MSDOS"));
    QCOMPARE(menu.box("formatBox")->currentText(), QString("IEEE"));
    QCOMPARE(menu.box("sortBox")->currentText(), QString("FFID"));
    QCOMPARE(menu.edit("maxVal")->text(), QString("2"));
    QCOMPARE(menu.edit("nsampVal")->text(), QString("4"));
    QCOMPARE(menu.edit("srateVal")->text(), QString("2"));
    QCOMPARE(menu.box("variBox")->currentText(), QString("No"));
    SegyGuessDialog* panel = panelOf(&menu);
    QVERIFY(panel && panel->isVisible());
    QCOMPARE(panel->windowTitle(), QString("Guess Settings"));
    QTableWidget* facts = table(panel, "factTable");
    QCOMPARE(facts->horizontalHeaderItem(1)->text(), QString("Evidence"));
    QCOMPARE(cell(facts, "Byte order", 2), QString("little-endian: SEGY file type MSDOS"));
    QVERIFY(cell(facts, "Byte order", 1).startsWith("format code 1280 (unknown) big-endian, 5 little-endian"));
    QCOMPARE(cell(facts, "Traces per ensemble", 2), QString("2: by the reel an ensemble would end after 1 trace"));
    QTableWidget* settings = table(panel, "settingTable");
    QCOMPARE(cell(settings, "SEGY file type", 1), QString("Standard"));
    QCOMPARE(cell(settings, "SEGY file type", 2), QString("MSDOS"));
    QVERIFY(panel->findChild<QLabel*>("summaryLabel")
                ->text()
                .endsWith("little.sgy\n6 traces of 4 samples, little-endian."));
}

void SegyGuessTest::theGuessedSettingsOpenTheFile()
{
    MenuFixture menu;
    menu.edit("fileField")->setText(writeSegy(path("little.sgy"), littleEndianBytes()));
    menu.click("guessButton");
    menu.box("indexBox")->setCurrentIndex(1);
    menu.click("openButton");
    QVERIFY(menu.host.loader);
    QCOMPARE(menu.host.loader->getTotalTraces(), 6);
    QCOMPARE(menu.host.loader->numSamples(), 4);
    menu.host.loader->loadNextEnsemble(0);
    QCOMPARE(menu.host.loader->numTraces(), 2);
}

void SegyGuessTest::restoreBringsTheFormerSettingsBack()
{
    MenuFixture menu;
    menu.edit("fileField")->setText(_file);
    menu.box("sortBox")->setCurrentText("Offset");
    menu.box("elevBox")->setCurrentText("Yes");
    QTest::keyClicks(menu.edit("nsampVal"), "77");
    QTest::keyClick(menu.edit("nsampVal"), Qt::Key_Return);
    menu.click("guessButton");
    QCOMPARE(menu.edit("nsampVal")->text(), QString("4"));
    QCOMPARE(menu.box("elevBox")->currentText(), QString("No"));
    auto* restore = panelOf(&menu)->findChild<QPushButton*>("restoreButton");
    QVERIFY(restore->isEnabled());
    restore->click();
    QCOMPARE(menu.box("sortBox")->currentText(), QString("Offset"));
    QCOMPARE(menu.box("elevBox")->currentText(), QString("Yes"));
    QCOMPARE(menu.edit("nsampVal")->text(), QString("77"));
    QCOMPARE(menu.box("formatBox")->currentText(), QString("Get From Data"));
    QCOMPARE(menu.dialog->loadParm().nsamp, 77);
    QVERIFY(!restore->isEnabled());
}

void SegyGuessTest::restoreKeepsAFileThatWasTypedSince()
{
    MenuFixture menu;
    menu.edit("fileField")->setText(_file);
    menu.click("guessButton");
    menu.edit("fileField")->setText("other.sgy");
    panelOf(&menu)->findChild<QPushButton*>("restoreButton")->click();
    QCOMPARE(menu.edit("fileField")->text(), QString("other.sgy"));
    QCOMPARE(menu.edit("nsampVal")->text(), QString());
}

void SegyGuessTest::aFileThatCannotBeReadKeepsTheSettings_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("box");
    QTest::newRow("none named") << " "
                                << "No file to look at is named.";
    QTest::newRow("absent") << path("absent.sgy")
                            << "Cannot read file " + path("absent.sgy") + ":\nNo such file or directory.";
    QTest::newRow("a folder") << _folder.path() << "Cannot read file " + _folder.path() + ":\nIs a directory.";
    // None of these ever ends, or begins.
    const QString pipe = path("pipe");
    if (!QFile::exists(pipe)) QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (const QString& file : {pipe, QString("/dev/zero"), QString("/dev/null")})
        QTest::newRow(qPrintable(file)) << file << "Cannot read file " + file + ":\nNot a regular file.";
    QTest::newRow("a failing disk") << "/proc/self/mem"
                                    << "Cannot read file /proc/self/mem:\nInput/output error.";
}

void SegyGuessTest::aFileThatCannotBeReadKeepsTheSettings()
{
    QFETCH(QString, file);
    QFETCH(QString, box);
    MenuFixture menu;
    menu.edit("fileField")->setText(file);
    menu.box("formatBox")->setCurrentText("Integer W/Gain");
    BoxWatcher boxes;
    menu.click("guessButton");
    QCOMPARE(boxes.titles, QStringList("Guess Settings"));
    QCOMPARE(boxes.texts, QStringList(box));
    QCOMPARE(menu.box("formatBox")->currentText(), QString("Integer W/Gain"));
    QVERIFY(!panelOf(&menu));
    QVERIFY(!QApplication::overrideCursor());
    menu.click("openButton");
    QVERIFY(!menu.host.loader);
}

void SegyGuessTest::whatTheReaderCannotFollowIsSaidAndKeepsTheSettings()
{
    QByteArray bytes = segyBytes();
    put16(&bytes, 3216, 0);  // the interval, and those of the traces
    for (int at = 3600; at < bytes.size(); at += (bytes.size() - 3600) / 6) put16(&bytes, at + 116, 0);
    MenuFixture menu;
    menu.edit("fileField")->setText(writeSegy(path("nointerval.sgy"), bytes));
    menu.box("sortBox")->setCurrentText("Offset");
    menu.click("guessButton");
    SegyGuessDialog* panel = panelOf(&menu);
    QVERIFY(panel);
    QVERIFY(panel->findChild<QLabel*>("summaryLabel")
                ->text()
                .contains("The reader can't follow this file: its sample interval is told nowhere; type it as "
                          "\"Input sample rate\" and open the file. Nothing is set."));
    QCOMPARE(menu.box("sortBox")->currentText(), QString("Offset"));
    QCOMPARE(menu.edit("nsampVal")->text(), QString());
    QVERIFY(!panel->findChild<QPushButton*>("restoreButton")->isEnabled());
    QVERIFY(!table(panel, "settingTable")->isVisible());
}

void SegyGuessTest::theFirstFileOfAListIsLookedAt()
{
    MenuFixture menu;
    menu.edit("fileField")->setText(_file + "," + path("absent.sgy"));
    menu.click("guessButton");
    QCOMPARE(cell(table(panelOf(&menu), "factTable"), "File", 2), QString("SEG-Y; the first one of the list"));
    QCOMPARE(menu.edit("nsampVal")->text(), QString());
    QCOMPARE(menu.edit("fileField")->text(), _file + "," + path("absent.sgy"));
    QCOMPARE(menu.box("formatBox")->currentText(), QString("IEEE"));
}

void SegyGuessTest::copyGivesTheTextWithTabs()
{
    MenuFixture menu;
    menu.edit("fileField")->setText(_file);
    menu.click("guessButton");
    panelOf(&menu)->findChild<QPushButton*>("copyButton")->click();
    const QString text = QApplication::clipboard()->text();
    QVERIFY(text.startsWith(_file + "\n6 traces of 4 samples, big-endian.\n\nFact\tEvidence\tChoice\n"));
    QVERIFY(text.contains("\nData sort order\tGet From Data\tFFID\n"));
    for (const QString& line : text.split('\n').mid(3))
        if (!line.isEmpty()) QCOMPARE(line.count('\t'), 2);
}

void SegyGuessTest::controlCCopiesTheSelection()
{
    MenuFixture menu;
    menu.edit("fileField")->setText(_file);
    menu.click("guessButton");
    SegyGuessDialog* panel = panelOf(&menu);
    QTableWidget* facts = table(panel, "factTable");
    QTest::keyClick(panel, Qt::Key_C, Qt::ControlModifier);
    QVERIFY(QApplication::clipboard()->text().startsWith(_file + "\n"));
    facts->setRangeSelected(QTableWidgetSelectionRange(0, 0, 1, 2), true);
    QTest::keyClick(facts, Qt::Key_C, Qt::ControlModifier);
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines[0], QString("File\t%1 bytes\tSEG-Y").arg(segyBytes().size()));
    QVERIFY(lines[1].startsWith("Byte order\tformat code 5 big-endian"));
}

void SegyGuessTest::thePanelIsUsedAgain()
{
    MenuFixture menu;
    menu.edit("fileField")->setText(_file);
    menu.click("guessButton");
    SegyGuessDialog* panel = panelOf(&menu);
    panel->findChild<QPushButton*>("restoreButton")->click();
    panel->findChild<QPushButton*>("dismissButton")->click();
    QVERIFY(!panel->isVisible());
    menu.edit("fileField")->setText(writeSegy(path("little.sgy"), littleEndianBytes()));
    menu.click("guessButton");
    QCOMPARE(panelOf(&menu), panel);
    QVERIFY(panel->isVisible());
    QVERIFY(panel->findChild<QPushButton*>("restoreButton")->isEnabled());
    QCOMPARE(cell(table(panel, "settingTable"), "SEGY file type", 2), QString("MSDOS"));
}

void SegyGuessTest::theButtonHasATipAndTheLastPlaceOfItsTab()
{
    MenuFixture menu;
    auto* button = menu.find<QPushButton>("guessButton");
    QCOMPARE(button->text(), QString("Guess Settings"));
    QVERIFY(!button->toolTip().isEmpty());
    menu.dialog->activateWindow();
    QTRY_VERIFY(menu.edit("fileField")->hasFocus());
    menu.find<QPushButton>("remapButton")->setFocus();
    QTest::keyClick(menu.dialog->focusWidget(), Qt::Key_Tab);
    QVERIFY(button->hasFocus());
    menu.edit("fileField")->setText(_file);
    menu.click("guessButton");
    for (const char* name : {"copyButton", "restoreButton", "dismissButton"})
        QVERIFY(!panelOf(&menu)->findChild<QPushButton*>(name)->toolTip().isEmpty());
}

/// Opens with an index, shows the trace tab and its last view.
static QTableWidget* showVarying(MenuFixture* menu, const QString& file)
{
    menu->open(file, 1);
    menu->showTab(3);
    menu->find<QRadioButton>("radio6")->click();
    return menu->find<QTableWidget>("varyingTable");
}

static QStringList row(QTableWidget* table, int i)
{
    QStringList texts;
    for (int column = 0; column < table->columnCount(); ++column) texts += table->item(i, column)->text();
    return texts;
}

void SegyGuessTest::varyingRanksTheBytesOfTheFile()
{
    MenuFixture menu;
    QTableWidget* ranking = showVarying(&menu, _file);
    QCOMPARE(menu.find<QRadioButton>("radio6")->text(), QString("Varying"));
    QVERIFY(ranking->isVisible());
    QVERIFY(!menu.text("segyheadermenu")->isVisible());
    QVERIFY(!menu.find<QSpinBox>("spinBox")->isEnabled());
    QVERIFY(menu.find<QLabel>("aboutLabel")->text().startsWith("6 of 6 trace headers."));
    QStringList titles;
    for (int i = 0; i < ranking->columnCount(); ++i) titles += ranking->horizontalHeaderItem(i)->text();
    QCOMPARE(titles, QStringList({"Byte", "Width", "Standard field", "Behaviour", "Values", "Evidence"}));
    QCOMPARE(row(ranking, 0),
             QStringList({"9", "4", "Field record", "repeats by ensemble", "10 to 12", "3 values of 2 traces"}));
    QCOMPARE(row(ranking, 1), QStringList({"1", "4", "Trace in line", "counts up", "1 to 6", "steps of 1"}));
    QCOMPARE(row(ranking, 2), QStringList({"21", "4", "CMP ensemble", "counts up", "101 to 106", "steps of 1"}));
    QStringList constants;
    for (int i = 0; i < ranking->rowCount(); ++i)
        if (row(ranking, i)[3] == "constant") constants += row(ranking, i)[0];
    QCOMPARE(constants, QStringList({"29", "115", "117", "179"}));
    menu.find<QRadioButton>("radio1")->click();
    QVERIFY(menu.text("segyheadermenu")->isVisible());
    QVERIFY(menu.find<QSpinBox>("spinBox")->isEnabled());
    QVERIFY(menu.text("segyheadermenu")->toPlainText().startsWith("  1) Trace sequence"));
}

void SegyGuessTest::varyingIsInFileOrderWhateverTheSort()
{
    QByteArray bytes = segyBytes();
    for (int i = 0; i < 6; ++i) put32(&bytes, 3600 + 256 * i + 8, 20 - i / 2);  // FFID falls
    MenuFixture menu;
    QTableWidget* ranking = showVarying(&menu, writeSegy(path("falling.sgy"), bytes));
    QCOMPARE(menu.host.loader->getMapArray()[0].itrace, 4u);  // sorted
    QCOMPARE(row(ranking, 1), QStringList({"1", "4", "Trace in line", "counts up", "1 to 6", "steps of 1"}));
}

void SegyGuessTest::varyingOfALittleEndianFile()
{
    MenuFixture menu;
    menu.box("typeBox")->setCurrentText("MSDOS");
    QTableWidget* ranking = showVarying(&menu, writeSegy(path("little.sgy"), littleEndianBytes()));
    QCOMPARE(row(ranking, 0).mid(0, 5), QStringList({"9", "4", "Field record", "repeats by ensemble", "10 to 12"}));
}

void SegyGuessTest::aClickTakesARemapRow()
{
    MenuFixture menu;
    QTableWidget* ranking = showVarying(&menu, _file);
    auto* take = menu.find<QPushButton>("takeButton");
    QVERIFY(!take->isEnabled());
    QVERIFY(!menu.find<QCheckBox>("remapBox")->isChecked());
    QTest::mouseClick(ranking->viewport(), Qt::LeftButton, {}, ranking->visualItemRect(ranking->item(2, 1)).center());
    QVERIFY(take->isEnabled());
    QCOMPARE(menu.box("wordBox")->count(), 60);
    QCOMPARE(menu.box("wordBox")->currentText(), QString("CHAN"));  // it counts up
    menu.box("wordBox")->setCurrentText("FFID");
    QTest::mouseClick(take, Qt::LeftButton);
    QCOMPARE(menu.dialog->remapTable().cells[0], (std::array<QString, 4>{"FFID", "4I", "IEEE", "21"}));
    QVERIFY(menu.find<QCheckBox>("remapBox")->isChecked());
    QVERIFY(menu.find<QLabel>("answerLabel")->text().startsWith("Row 1 of the remap table: FFID, 4I, byte 21."));
    // The short constant at byte 179 goes behind it.
    for (int i = 0; i < ranking->rowCount(); ++i)
        if (row(ranking, i)[0] == "179") ranking->selectRow(i);
    menu.box("wordBox")->setCurrentText("SRF_SLOC");
    QTest::mouseClick(take, Qt::LeftButton);
    QCOMPARE(menu.dialog->remapTable().cells[1], (std::array<QString, 4>{"SRF_SLOC", "2I", "IEEE", "179"}));
    QVERIFY(menu.dialog->remapTable().cells[2][0].isEmpty());
}

void SegyGuessTest::aFullRemapTableTakesNoRow()
{
    MenuFixture menu;
    menu.click("remapButton");
    auto* editor = menu.dialog->findChild<SegyRemapDialog*>();
    SegyRemapTable full;
    for (int i = 0; i < 25; ++i) full.cells[size_t(i)] = {QString("W%1").arg(i), "4I", "IEEE", "9"};
    editor->setTable(full);
    QTableWidget* ranking = showVarying(&menu, _file);
    ranking->selectRow(0);
    menu.click("takeButton");
    QCOMPARE(menu.find<QLabel>("answerLabel")->text(), QString("The remap table has no row left; nothing was taken."));
    QVERIFY(menu.dialog->remapTable() == full);
}

void SegyGuessTest::theRowThatWasTakenIsReadFromThenOn()
{
    MenuFixture menu;
    QTableWidget* ranking = showVarying(&menu, _file);
    menu.host.loader->loadNextEnsemble(0);
    const int word = menu.host.loader->segyHeader()->OrvinHeaderIndex("SOURCE  ");
    QCOMPARE(menu.host.loader->getHeaders()[0][word], 0);
    ranking->selectRow(2);  // the CMP number
    menu.box("wordBox")->setCurrentText("SOURCE");
    menu.click("takeButton");
    menu.host.loader->loadNextEnsemble(0);
    QCOMPARE(menu.host.loader->getHeaders()[0][word], 101);
    QCOMPARE(menu.host.loader->getHeaders()[1][word], 102);
}

void SegyGuessTest::varyingFollowsTheNextFile()
{
    MenuFixture menu;
    QTableWidget* ranking = showVarying(&menu, _file);
    QCOMPARE(row(ranking, 0)[4], QString("10 to 12"));
    menu.showTab(0);
    menu.open(writeSegy(path("eight.sgy"), segyBytes(8)), 1);
    menu.showTab(3);
    QCOMPARE(row(ranking, 0)[4], QString("10 to 13"));
    QVERIFY(menu.find<QLabel>("aboutLabel")->text().startsWith("8 of 8 trace headers."));
}

void SegyGuessTest::withoutAnIndexVaryingIsEmpty()
{
    MenuFixture menu;
    menu.open(_file);
    BoxWatcher boxes;
    menu.showTab(3);
    QCOMPARE(boxes.titles, QStringList("Load Index Map"));
    menu.find<QRadioButton>("radio6")->click();
    QCOMPARE(menu.find<QTableWidget>("varyingTable")->rowCount(), 0);
    QVERIFY(!menu.find<QPushButton>("takeButton")->isEnabled());
    menu.showTab(0);
    menu.click("buttonBuild");
    QTRY_COMPARE(menu.find<QTableWidget>("varyingTable")->item(0, 0) != nullptr, true);
}

QTEST_MAIN(SegyGuessTest)
#include "segyguesstest.moc"
