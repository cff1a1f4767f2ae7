/// The SEG-Y menu: each control of its four tabs, by a stand-in for the window.
#include "sources/menus/segyebcdicmenu.h"
#include "sources/menus/segyheadertext.h"
#include "sources/menus/segyremapdialog.h"
#include "tests/gui/segymenufixture.h"
#include "tests/testdata.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>

#include <cmath>
#include <cstring>

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
    void theStandardViewHasEightySevenLabels();
    void theTabsFollowTheNewLoader();
    void theTabsOutliveTheirLoader();
    void aDialogMadeAfterTheFileShowsIt();

private:
    QTemporaryDir _folder;
    QString _file;
};

/// A menu over a stand-in window, shown.
struct MenuFixture {
    MenuHost host;
    std::unique_ptr<SegyMenuDialog> dialog;

    explicit MenuFixture(const SegyLoadParm& start = SegyLoadParm())
    {
        host.start = start;
        makeDialog();
    }
    void makeDialog()
    {
        dialog = std::make_unique<SegyMenuDialog>(&host);
        host.dialog = dialog.get();
        dialog->show();
    }
    template <class T>
    T* find(const char* name)
    {
        T* control = dialog->findChild<T*>(name);
        if (!control) qFatal("no control %s", name);
        return control;
    }
    QPlainTextEdit* text(const char* tab) { return find<QWidget>(tab)->findChild<QPlainTextEdit*>("textEdit"); }
    QComboBox* box(const char* name) { return find<QComboBox>(name); }
    QLineEdit* edit(const char* name) { return find<QLineEdit>(name); }
    void click(const char* button) { find<QPushButton>(button)->click(); }
    void showTab(int i) { find<QTabWidget>("tabWidget")->setCurrentIndex(i); }
    void open(const QString& file, int indexbuilt = 0)
    {
        edit("fileField")->setText(file);
        box("indexBox")->setCurrentIndex(indexbuilt);
        click("openButton");
        dialog->show();
    }
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
    QCOMPARE(items(menu.box("formatBox")),
             QStringList({"Get From Data", "IEEE", "IBM", "Integer (4 byte)", "Integer (2 byte)", "Integer (1 byte)",
                          "Integer W/Gain"}));
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
    const char* const order[] = {"fileField", "browseButton", "sortBox", "typeBox",  "formatBox",
                                 "maxVal",    "nsampVal",     "srateVal", "variBox", "coorBox",
                                 "elevBox",   "indexBox",     "remapBox", "remapButton"};  // no index to build yet
    menu.dialog->activateWindow();  // the file is asked for first
    QTRY_VERIFY(menu.edit("fileField")->hasFocus());
    for (const char* name : order) {
        QCOMPARE(menu.dialog->focusWidget()->objectName(), QString(name));
        QVERIFY2(!menu.dialog->focusWidget()->toolTip().isEmpty(), name);
        QTest::keyClick(menu.dialog->focusWidget(), Qt::Key_Tab);
    }
    QVERIFY(menu.edit("srateVal")->toolTip().contains("Milliseconds"));
    for (const char* name : {"buttonBuild", "openButton", "loadButton", "saveButton", "editButton", "dismissButton"})
        QVERIFY2(!menu.find<QPushButton>(name)->toolTip().isEmpty(), name);
    for (const char* name : {"spinBox", "radio1", "radio2", "radio3", "radio4", "radio5"})
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
    QCOMPARE(menu.host.loader->currentSortKey(), 1);
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
    QCOMPARE(loader.currentSortKey(), 4);
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
    QTest::newRow("no traces") << "maxVal" << "0" << "24";
    QTest::newRow("a fraction of a trace") << "maxVal" << "2.5" << "24";
    QTest::newRow("letters") << "nsampVal" << "many" << "1501";
    QTest::newRow("less than no samples") << "nsampVal" << "-4" << "1501";
    QTest::newRow("more than an int holds") << "nsampVal" << "99999999999" << "1501";
    QTest::newRow("no rate") << "srateVal" << "0" << "4";
    QTest::newRow("below the least rate") << "srateVal" << "9e-8" << "1e-7";
    QTest::newRow("not a number") << "srateVal" << "nan" << "0.25";
    QTest::newRow("infinite") << "srateVal" << "inf" << "0.25";
    QTest::newRow("a decimal comma") << "srateVal" << "0,5" << "0.5";
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

void SegyMenuTest::theTextHeaderIsFortyLinesOfEighty()
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

void SegyMenuTest::editTogglesReadOnly()
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

void SegyMenuTest::anEditedTextSurvivesTheBuildOfTheIndex()
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

void SegyMenuTest::loadOfATextFileDoesNotTouchTheReel()
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

void SegyMenuTest::saveWritesTheTextOfTheEditor()
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

void SegyMenuTest::aTextFileThatCannotBeReadOrWrittenIsTold()
{
    MenuFixture menu;
    menu.open(_file);
    menu.showTab(1);
    const QString before = menu.text("segyebcdicmenu")->toPlainText();
    BoxWatcher boxes;
    const QString absent = _folder.path() + "/absent.txt";
    QCOMPARE(menu.find<SegyEbcdicMenu>("segyebcdicmenu")->loadText(absent), 0);
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

void SegyMenuTest::theBinaryTabListsTheReel()
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

void SegyMenuTest::theTraceTabWithoutAnIndexWarnsAndTheSpinBoxStays()
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

void SegyMenuTest::theTraceTabShowsTheTraceAsked()
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

void SegyMenuTest::readingATraceHeaderKeepsTheNextEnsemble()
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

void SegyMenuTest::theFiveViewsShowTheSameBytes()
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

void SegyMenuTest::theViewsOfAHeaderHaveTheToldColumns()
{
    if (!littleEndian()) QSKIP("the bytes below are those of the other order");
    unsigned char header[240] = {};
    const unsigned char bytes[] = {0xff, 0xfe, 0x02, 0x01, 0x00, 0x00, 0x10, 0x41, 'A', 'z', '~', 0x7f};
    std::memcpy(header, bytes, sizeof bytes);
    const auto rows = [](const QString& text) {
        QList<QStringList> list;
        for (const QString& row : text.split('\n')) list += row.simplified().split(' ');
        return list;
    };
    // 0xfeff and the reverse, 0xfffe.
    QCOMPARE(rows(buildShortHeader(header))[1], QStringList({"1", "-257", "65279", "-2", "65534"}));
    QCOMPARE(rows(buildShortHeader(header))[2], QStringList({"3", "258", "258", "513", "513"}));
    // 0x0102feff and the reverse, 0xfffe0201.
    QCOMPARE(rows(buildIntegerHeader(header))[1], QStringList({"1", "16973567", "16973567", "-130559", "4294836737"}));
    // 0x41100000: 9.0 as IEEE, 1.0 as IBM; the reverse is 0x00001041, a denormal: 4161 times 2 to the -149.
    const QStringList floats = rows(buildFloatHeader(header))[2];
    QCOMPARE(floats.mid(0, 3), QStringList({"5", "9", "1"}));
    QVERIFY(std::fabs(floats[3].toDouble() / std::ldexp(4161.0, -149) - 1.0) < 1e-6);
    const QStringList ascii = buildAsciiHeader(header).split('\n');
    QCOMPARE(ascii[1], QString("   1  ."));
    QCOMPARE(ascii[9], QString("   9  A"));
    QCOMPARE(ascii[10], QString("  10  z"));
    QCOMPARE(ascii[11], QString("  11  ~"));
    QCOMPARE(ascii[12], QString("  12  ."));
    QCOMPARE(ascii[240], QString(" 240  ."));
}

void SegyMenuTest::theStandardViewHasEightySevenLabels()
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
    QVERIFY(menu.text("segybinarymenu")->toPlainText().startsWith(QString("Job identification number:")
                                                                      .leftJustified(40) + "77\n"));
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
