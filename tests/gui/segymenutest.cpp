/// The SEG-Y menu: its buttons, the load tab and the life of the tabs, by a stand-in for the window.
#include "sources/menus/segyremapdialog.h"
#include "tests/gui/segymenufixture.h"

#include <QCheckBox>
#include <QLabel>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>

class SegyMenuTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void theTabsAndButtonsStandInOrder();
    void eachTabEnablesItsButtons();
    void theLoadTabHasTheToldChoices();
    void everyControlHasATipAndItsPlaceInTheTabOrder();
    void emptyFieldsAreZeroArguments();
    void theFieldsReachTheLoader();
    void theFieldsStartWithWhatTheWindowSays();
    void aCommaAtTheEndOfTheListIsNotShown();
    void aWrongNumberIsRefusedAndTheOldTextComesBack_data();
    void aWrongNumberIsRefusedAndTheOldTextComesBack();
    void aWrongNumberKeepsTheMenuOpen();
    void withoutAFileNothingIsOpened();
    void returnInAFieldOpensNoFile();
    void browseJoinsTheNamesAndKeepsTheFolder();
    void aNameWithACommaIsRefused();
    void buildNowIsDisabledUntilAFileIsLoaded();
    void buildNowShowsTheLabelUntilTheIndexIsBuilt();
    void theRemapTableGoesToTheLoader();
    void aFailedLoadKeepsTheFields();
    void dismissClosesIt();
    void shownAgainTheKeysGoToTheTabInView();
    void theTabsFollowTheNewLoader();
    void theTabsOutliveTheirLoader();
    void aDialogMadeAfterTheFileShowsIt();

private:
    QTemporaryDir _folder;
    QString _file;
};

static QStringList items(const QComboBox* box)
{
    QStringList list;
    for (int i = 0; i < box->count(); ++i) list += box->itemText(i);
    return list;
}

void SegyMenuTest::initTestCase()
{
    QVERIFY(_folder.isValid());
    qputenv("HOME", _folder.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _folder.path());
    _file = writeSegy(_folder.path() + "/six.sgy");
}

void SegyMenuTest::theTabsAndButtonsStandInOrder()
{
    MenuFixture menu;
    QCOMPARE(menu.dialog->windowTitle(), QString("SEGY Menu"));
    auto* tabs = menu.find<QTabWidget>("tabWidget");
    QStringList names;
    for (int i = 0; i < tabs->count(); ++i) names += tabs->tabText(i);
    QCOMPARE(names, QStringList({"Load", "EBCDIC", "Binary", "Trace"}));
    const char* const buttons[] = {"openButton", "loadButton", "saveButton", "editButton", "dismissButton"};
    const char* const texts[] = {"&Open", "&Load", "&Save", "&Edit", "&Dismiss"};
    int left = -1;
    for (int i = 0; i < 5; ++i) {
        auto* button = menu.find<QPushButton>(buttons[i]);
        QCOMPARE(button->text(), QString(texts[i]));
        QVERIFY2(button->x() > left, texts[i]);
        left = button->x();
    }
}

void SegyMenuTest::eachTabEnablesItsButtons()
{
    MenuFixture menu;
    const struct {
        bool open, load, save, edit;
    } told[] = {{true, false, false, false},
                {false, true, true, true},
                {false, false, false, false},
                {false, false, false, false}};
    for (int round = 0; round < 2; ++round)
        for (int tab = 0; tab < 4; ++tab) {
            menu.showTab(tab);
            QCOMPARE(menu.find<QPushButton>("openButton")->isEnabled(), told[tab].open);
            QCOMPARE(menu.find<QPushButton>("loadButton")->isEnabled(), told[tab].load);
            QCOMPARE(menu.find<QPushButton>("saveButton")->isEnabled(), told[tab].save);
            QCOMPARE(menu.find<QPushButton>("editButton")->isEnabled(), told[tab].edit);
            QVERIFY(menu.find<QPushButton>("dismissButton")->isEnabled());
        }
}

void SegyMenuTest::theLoadTabHasTheToldChoices()
{
    MenuFixture menu;
    QCOMPARE(items(menu.box("sortBox")),
             QStringList({"Get From Data", "FFID", "Source", "Receiver", "CDP Gather", "Stack", "Offset",
                          "In-Line CDP Gather", "X-Line CDP Gather", "In-Line Stack", "X-Line Stack", "Trace Number"}));
    QCOMPARE(items(menu.box("typeBox")), QStringList({"Standard", "MSDOS"}));
    QCOMPARE(items(menu.box("formatBox")), QStringList({"Get From Data", "IEEE", "IBM", "Integer (4 byte)",
                                                        "Integer (2 byte)", "Integer (1 byte)", "Integer W/Gain"}));
    for (const char* name : {"variBox", "coorBox", "elevBox", "indexBox"})
        QCOMPARE(items(menu.box(name)), QStringList({"No", "Yes"}));
    QStringList labels;
    for (QLabel* label : menu.find<QWidget>("segyloadmenu")->findChildren<QLabel*>()) labels += label->text();
    for (const char* text :
         {"File(s) to load:", "Data sort order:", "SEGY file type:", "Data sample format:", "Max traces per ensemble:",
          "Num samples per trace:", "Input sample rate:", " msec", "Variable trace length?", "Apply coordinate scalar?",
          "Apply depth/elev scalar?", "Build index map?", "          Loading . . . ."})
        QVERIFY2(labels.contains(text), text);
    QCOMPARE(menu.find<QPushButton>("browseButton")->text(), QString("Browse"));
    QCOMPARE(menu.find<QPushButton>("buttonBuild")->text(), QString("Build Now"));
    QCOMPARE(menu.find<QCheckBox>("remapBox")->text(), QString("Re-map Headers"));
    QCOMPARE(menu.find<QPushButton>("remapButton")->text(), QString("Re-map Table"));
    QCOMPARE(menu.find<QLabel>("buildLabel")->palette().color(QPalette::WindowText), QColor(Qt::red));
    QVERIFY(!menu.find<QLabel>("buildLabel")->isVisible());
}

void SegyMenuTest::everyControlHasATipAndItsPlaceInTheTabOrder()
{
    MenuFixture menu;
    const char* const order[] = {"fileField", "browseButton", "sortBox",    "typeBox", "formatBox", "maxVal",
                                 "nsampVal",  "srateVal",     "variBox",    "coorBox", "elevBox",   "indexBox",
                                 "remapBox",  "remapButton",  "guessButton"};  // no index to build yet
    menu.dialog->activateWindow();                                             // the file is asked for first
    QTRY_VERIFY(menu.edit("fileField")->hasFocus());
    for (const char* name : order) {
        QCOMPARE(menu.dialog->focusWidget()->objectName(), QString(name));
        QVERIFY2(!menu.dialog->focusWidget()->toolTip().isEmpty(), name);
        QTest::keyClick(menu.dialog->focusWidget(), Qt::Key_Tab);
    }
    QVERIFY(menu.edit("srateVal")->toolTip().contains("Milliseconds"));
    for (const char* name : {"buttonBuild", "openButton", "loadButton", "saveButton", "editButton", "dismissButton"})
        QVERIFY2(!menu.find<QPushButton>(name)->toolTip().isEmpty(), name);
    for (const char* name : {"spinBox", "radio1", "radio2", "radio3", "radio4", "radio5", "radio6"})
        QVERIFY2(!menu.find<QWidget>(name)->toolTip().isEmpty(), name);
}

void SegyMenuTest::emptyFieldsAreZeroArguments()
{
    MenuFixture menu;
    menu.open(_file);
    QCOMPARE(menu.host.asked.size(), 1);
    const SegyLoadParm& asked = menu.host.asked.first();
    QCOMPARE(asked.files, _file);
    QCOMPARE(asked.nsamp, 0);
    QCOMPARE(asked.maxtr, 0);
    QCOMPARE(asked.srate, 0.0f);
    QCOMPARE(asked.isort, 0);
    QCOMPARE(asked.indexbuilt, 0);
    // What the reel says: 4 samples, 2 ms, sort code 1; 4 data traces and 5 auxiliary ones.
    QCOMPARE(menu.host.loader->numSamples(), 4);
    QCOMPARE(menu.host.loader->sampleRate(), 2.0f);
    QCOMPARE(menu.host.loader->currentSortKey(), SortCode(1));
    QCOMPARE(menu.host.loader->maxTraces(), 9);
}

void SegyMenuTest::theFieldsReachTheLoader()
{
    MenuFixture menu;
    menu.edit("fileField")->setText(_file);
    menu.box("sortBox")->setCurrentText("CDP Gather");
    menu.box("formatBox")->setCurrentText("Integer (4 byte)");
    menu.box("coorBox")->setCurrentText("Yes");
    menu.box("elevBox")->setCurrentText("Yes");
    menu.box("indexBox")->setCurrentText("Yes");
    QTest::keyClicks(menu.edit("maxVal"), "33");
    QTest::keyClicks(menu.edit("nsampVal"), "3");
    QTest::keyClicks(menu.edit("srateVal"), "0.5");  // not yet ended by Return: opening takes it too
    menu.click("openButton");
    QCOMPARE(menu.host.asked.size(), 1);
    const SegyLoader& loader = *menu.host.loader;
    QCOMPARE(loader.currentSortKey(), SortCode(4));
    QCOMPARE(int(loader.getReelHeader()->format), 2);
    QCOMPARE(loader.applyCoorScale(), 1);
    QCOMPARE(loader.applyElevScale(), 1);
    QCOMPARE(loader.maxTraces(), 38);  // and the 5 auxiliary ones
    QCOMPARE(loader.numSamples(), 3);
    QCOMPARE(loader.sampleRate(), 0.5f);
    QVERIFY(loader.isIndexBuilt());
    QCOMPARE(menu.host.asked.first().itype, 0);
    QCOMPARE(menu.host.asked.first().ivariable, 0);
    QVERIFY(!menu.dialog->isVisible());
    menu.dialog->show();
    menu.box("typeBox")->setCurrentText("MSDOS");
    menu.box("variBox")->setCurrentText("Yes");
    QCOMPARE(menu.dialog->loadParm().itype, 1);
    QCOMPARE(menu.dialog->loadParm().ivariable, 1);
}

void SegyMenuTest::theFieldsStartWithWhatTheWindowSays()
{
    SegyLoadParm start;
    start.files = "/data/a.sgy,/data/b.sgy";
    start.isort = 5;
    start.itype = 1;
    start.iformat = 6;
    start.ivariable = start.icscale = start.iescale = start.indexbuilt = 1;
    start.nsamp = 40000;
    start.maxtr = 120;
    start.srate = 0.3f;
    MenuFixture menu(start);
    QCOMPARE(menu.edit("fileField")->text(), start.files);
    QCOMPARE(menu.box("sortBox")->currentText(), QString("Stack"));
    QCOMPARE(menu.box("typeBox")->currentText(), QString("MSDOS"));
    QCOMPARE(menu.box("formatBox")->currentText(), QString("Integer W/Gain"));
    QCOMPARE(menu.edit("nsampVal")->text(), QString("40000"));
    QCOMPARE(menu.edit("maxVal")->text(), QString("120"));
    QCOMPARE(menu.edit("srateVal")->text(), QString("0.3"));
    for (const char* name : {"variBox", "coorBox", "elevBox", "indexBox"})
        QCOMPARE(menu.box(name)->currentText(), QString("Yes"));
    QCOMPARE(menu.dialog->loadParm().srate, 0.3f);
}

void SegyMenuTest::aCommaAtTheEndOfTheListIsNotShown()
{
    SegyLoadParm start;
    start.files = "/data/a.sgy,";
    MenuFixture menu(start);
    QCOMPARE(menu.edit("fileField")->text(), QString("/data/a.sgy"));
}

void SegyMenuTest::aWrongNumberIsRefusedAndTheOldTextComesBack_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("wrong");
    QTest::addColumn<QString>("right");
    QTest::newRow("no traces") << "maxVal"
                               << "0"
                               << "24";
    QTest::newRow("a fraction of a trace") << "maxVal"
                                           << "2.5"
                                           << "24";
    QTest::newRow("letters") << "nsampVal"
                             << "many"
                             << "1501";
    QTest::newRow("less than no samples") << "nsampVal"
                                          << "-4"
                                          << "1501";
    QTest::newRow("more than an int holds") << "nsampVal"
                                            << "99999999999"
                                            << "1501";
    QTest::newRow("no rate") << "srateVal"
                             << "0"
                             << "4";
    QTest::newRow("below the least rate") << "srateVal"
                                          << "9e-8"
                                          << "1e-7";
    QTest::newRow("not a number") << "srateVal"
                                  << "nan"
                                  << "0.25";
    QTest::newRow("infinite") << "srateVal"
                              << "inf"
                              << "0.25";
    QTest::newRow("a decimal comma") << "srateVal"
                                     << "0,5"
                                     << "0.5";
}

void SegyMenuTest::aWrongNumberIsRefusedAndTheOldTextComesBack()
{
    QFETCH(QString, field);
    QFETCH(QString, wrong);
    QFETCH(QString, right);
    MenuFixture menu;
    QLineEdit* edit = menu.edit(field.toLatin1());
    BoxWatcher boxes;
    QTest::keyClicks(edit, right);
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(boxes.titles, QStringList());
    edit->clear();
    QTest::keyClicks(edit, wrong);
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(boxes.titles, QStringList({"SEGY Menu"}));
    QCOMPARE(edit->text(), right);
}

void SegyMenuTest::aWrongNumberKeepsTheMenuOpen()
{
    MenuFixture menu;
    BoxWatcher boxes;
    menu.edit("fileField")->setText(_file);
    QTest::keyClicks(menu.edit("nsampVal"), "x");
    menu.click("openButton");
    QCOMPARE(boxes.titles.size(), 1);
    QVERIFY(menu.dialog->isVisible());
    QCOMPARE(menu.host.asked.size(), 0);
}

void SegyMenuTest::withoutAFileNothingIsOpened()
{
    MenuFixture menu;
    BoxWatcher boxes;
    menu.edit("fileField")->setText("  ");
    menu.click("openButton");
    QCOMPARE(boxes.texts, QStringList({"No file to load is named."}));
    QVERIFY(menu.dialog->isVisible());
    QCOMPARE(menu.host.asked.size(), 0);
}

void SegyMenuTest::returnInAFieldOpensNoFile()
{
    MenuFixture menu;
    menu.edit("fileField")->setText(_file);
    QTest::keyClicks(menu.edit("maxVal"), "7");
    QTest::keyClick(menu.edit("maxVal"), Qt::Key_Return);
    QCOMPARE(menu.host.asked.size(), 0);
    QCOMPARE(menu.dialog->loadParm().maxtr, 7);
}

void SegyMenuTest::browseJoinsTheNamesAndKeepsTheFolder()
{
    QSettings("Brenlake", "SEISMICDISPLAY").remove("lastfolder");
    QDir().mkpath(_folder.path() + "/lines");
    const QString a = writeSegy(_folder.path() + "/lines/a.sgy"), b = writeSegy(_folder.path() + "/lines/b.sgy");
    MenuFixture menu;
    BoxWatcher boxes;
    boxes.files = QStringList({a, b});
    menu.click("browseButton");
    QCOMPARE(boxes.titles, QStringList({"SEGY File Loader"}));
    QCOMPARE(boxes.folders, QStringList({QDir(_folder.path()).absolutePath()}));  // the home directory at first
    QCOMPARE(menu.edit("fileField")->text(), a + "," + b);
    boxes.files = QStringList(b);
    menu.click("browseButton");
    QCOMPARE(boxes.folders.last(), _folder.path() + "/lines");
    QCOMPARE(menu.edit("fileField")->text(), b);
    MenuFixture later;
    later.click("browseButton");
    QCOMPARE(boxes.folders.last(), _folder.path() + "/lines");
}

void SegyMenuTest::aNameWithACommaIsRefused()
{
    MenuFixture menu;
    menu.edit("fileField")->setText("before.sgy");
    BoxWatcher boxes;
    boxes.files = QStringList(writeSegy(_folder.path() + "/one,two.sgy"));
    menu.click("browseButton");
    QCOMPARE(boxes.texts.size(), 1);
    QVERIFY(boxes.texts.first().contains("comma"));
    QVERIFY(boxes.texts.first().contains("one,two.sgy"));
    QCOMPARE(menu.edit("fileField")->text(), QString("before.sgy"));
}

void SegyMenuTest::buildNowIsDisabledUntilAFileIsLoaded()
{
    MenuFixture menu;
    QVERIFY(!menu.find<QPushButton>("buttonBuild")->isEnabled());
    menu.open(_file);
    QVERIFY(menu.find<QPushButton>("buttonBuild")->isEnabled());
}

void SegyMenuTest::buildNowShowsTheLabelUntilTheIndexIsBuilt()
{
    MenuFixture menu;
    menu.open(_file);
    QCOMPARE(menu.box("indexBox")->currentText(), QString("No"));
    menu.click("buttonBuild");
    QCOMPARE(menu.box("indexBox")->currentText(), QString("Yes"));
    QCOMPARE(menu.dialog->loadParm().indexbuilt, 1);
    QVERIFY(menu.find<QLabel>("buildLabel")->isVisible());
    QVERIFY(!menu.find<QPushButton>("buttonBuild")->isEnabled());
    QTRY_VERIFY(menu.host.loader->isIndexBuilt());
    QTRY_VERIFY(!menu.find<QLabel>("buildLabel")->isVisible());
    QVERIFY(menu.find<QPushButton>("buttonBuild")->isEnabled());
    QVERIFY(menu.host.loader->canSeek());
    menu.showTab(3);
    QCOMPARE(menu.find<QLabel>("trcLabel")->text(), QString("Total traces: 6"));
}

void SegyMenuTest::theRemapTableGoesToTheLoader()
{
    MenuFixture menu;
    menu.open(_file);
    QVERIFY(!menu.dialog->findChild<SegyRemapDialog*>());
    menu.click("remapButton");
    auto* table = menu.dialog->findChild<SegyRemapDialog*>();
    QVERIFY(table && table->isVisible());
    QVERIFY(menu.find<QCheckBox>("remapBox")->isChecked());
    QCOMPARE(menu.host.loader->applyRemap(), 1);
    SegyRemapTable remap;
    remap.cells[0] = {"SOU_SLOC", "4I", "IEEE", "21"};
    table->setTable(remap);
    QVERIFY(menu.host.loader->remapTable() == remap);
    // The word at byte 21 is the CDP, 101 in the first trace.
    menu.host.loader->loadNextEnsemble(1);
    const int word = menu.host.loader->segyHeader()->OrvinHeaderIndex("SOU_SLOC");
    QCOMPARE(menu.host.loader->getHeaders()[0][word], 101);
    table->close();
    menu.click("remapButton");
    QVERIFY(table->isVisible());
    QVERIFY(table->table() == remap);
    menu.find<QCheckBox>("remapBox")->click();
    QCOMPARE(menu.host.loader->applyRemap(), 0);
    menu.find<QCheckBox>("remapBox")->click();
    menu.open(_file, 1);
    QCOMPARE(menu.host.asked.last().iremap, 1);
    QVERIFY(menu.host.loader->remapTable() == remap);
    QCOMPARE(menu.host.loader->getMapArray()[0].item[1], 101.0f);
}

void SegyMenuTest::aFailedLoadKeepsTheFields()
{
    MenuFixture menu;
    menu.open(_file);
    SegyLoader* old = menu.host.loader.get();
    QTest::keyClicks(menu.edit("maxVal"), "55");
    menu.open("/nowhere/none.sgy");
    QVERIFY(menu.dialog->isLoadFailed());
    QCOMPARE(menu.edit("fileField")->text(), QString("/nowhere/none.sgy"));
    QCOMPARE(menu.edit("maxVal")->text(), QString("55"));
    QCOMPARE(menu.host.loader.get(), old);
    QVERIFY(menu.text("segybinarymenu")->toPlainText().contains("2000"));
}

void SegyMenuTest::dismissClosesIt()
{
    MenuFixture menu;
    menu.open(_file);
    QVERIFY(menu.dialog->isOpen());
    menu.click("dismissButton");
    QVERIFY(!menu.dialog->isVisible());
    QVERIFY(!menu.dialog->isOpen());
    menu.dialog->show();
    QTest::keyClick(menu.dialog.get(), Qt::Key_Escape);
    QVERIFY(!menu.dialog->isVisible());
    QCOMPARE(menu.host.asked.size(), 1);
}

void SegyMenuTest::shownAgainTheKeysGoToTheTabInView()
{
    MenuFixture menu;
    menu.find<QPushButton>("dismissButton")->setFocus();
    menu.click("dismissButton");
    menu.dialog->show();
    menu.dialog->activateWindow();
    QTRY_VERIFY(menu.edit("fileField")->hasFocus());
    QTest::keyClick(menu.dialog->focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(menu.find<QTabWidget>("tabWidget")->currentIndex(), 1);
}

void SegyMenuTest::theTabsFollowTheNewLoader()
{
    MenuFixture menu;
    menu.open(_file, 1);
    menu.showTab(3);
    menu.find<QSpinBox>("spinBox")->setValue(5);
    QByteArray bytes = segyBytes(2);
    bytes[80 + 1] = bytes[0];
    put32(&bytes, 3200, 77);
    menu.showTab(0);
    menu.open(writeSegy(_folder.path() + "/two.sgy", bytes), 1);
    QVERIFY(menu.text("segybinarymenu")
                ->toPlainText()
                .startsWith(QString("Job identification number:").leftJustified(40) + "77\n"));
    QVERIFY(menu.text("segyebcdicmenu")->toPlainText().split('\n')[1].startsWith("CC"));
    QCOMPARE(menu.find<QSpinBox>("spinBox")->value(), 1);
    QCOMPARE(menu.find<QSpinBox>("spinBox")->maximum(), 2);
    QCOMPARE(menu.find<QLabel>("trcLabel")->text(), QString("Total traces: 2"));
    QVERIFY(menu.text("segyheadermenu")->toPlainText().split('\n')[0].endsWith(" 1"));
}

void SegyMenuTest::theTabsOutliveTheirLoader()
{
    MenuFixture menu;
    menu.open(_file, 1);
    menu.showTab(3);
    menu.host.loader.reset();
    menu.find<QSpinBox>("spinBox")->setValue(3);
    QVERIFY(menu.text("segyheadermenu")->toPlainText().isEmpty());
    menu.find<QCheckBox>("remapBox")->click();
    menu.click("buttonBuild");
    QVERIFY(!menu.find<QLabel>("buildLabel")->isVisible());
}

void SegyMenuTest::aDialogMadeAfterTheFileShowsIt()
{
    MenuFixture menu;
    menu.open(_file, 1);
    menu.host.start = menu.host.asked.last();
    menu.makeDialog();
    QCOMPARE(menu.edit("fileField")->text(), _file);
    QVERIFY(menu.find<QPushButton>("buttonBuild")->isEnabled());
    QVERIFY(menu.text("segyebcdicmenu")->toPlainText().startsWith("C 1 line of text"));
    QCOMPARE(menu.text("segybinarymenu")->toPlainText().split('\n').size(), 29);
    menu.showTab(3);
    QCOMPARE(menu.find<QSpinBox>("spinBox")->maximum(), 6);
}

QTEST_MAIN(SegyMenuTest)
#include "segymenutest.moc"
