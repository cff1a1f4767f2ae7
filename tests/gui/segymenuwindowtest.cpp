/// The SEG-Y menu and the seek dialog as the main window uses them.
#include "analysis/parmmenudialog.h"
#include "display/seismicdisplay.h"
#include "display/seismicplot.h"
#include "frame/mainwindow.h"
#include "frame/windowactions.h"
#include "host/globals.h"
#include "sources/menus/segyrecdialog.h"
#include "sources/menus/segyremapdialog.h"
#include "tests/gui/modalanswer.h"
#include "tests/gui/segymenufixture.h"
#include "tests/gui/windowfixture.h"
#include "tests/testdata.h"
#include "tracedata/menudefaults.h"
#include "tracedata/parmmenu.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTabWidget>
#include <QTemporaryDir>
#include <qwt_plot_grid.h>

#include <cstring>
#include <functional>

class SegyMenuWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void theMenuIsMadeOnceAndShownAgain();
    void withoutAFileTheMenuComesWithNothingFilledIn();
    void cancellingTheFirstMenuEndsTheProgram();
    void cancellingALaterMenuEndsNothing();
    void aFileOfTheCommandLineIsShownWithoutTheMenu();
    void openShowsTheFirstEnsemble();
    void aFailedLoadBringsTheMenuAgainWithItsFields();
    void aFailedLoadKeepsTheOldFileInTheTabs();
    void inAFlowTheMenuIsModalAndComesAgain();
    void besideADatasetSegyGetsAWindowOfItsOwn();
    void buildNowEnablesPreviousAndSeek();
    void theRemapTableIsInForceWhenTheFileOpens();
    void aRemapTableWithoutAUsableRowUnchecksItsBox();
    void aSecondFileFillsTheTabs();
    void aFileOpenedElsewhereIsShownInTheLoadTab();
    void seekShowsTheRecord();
    void seekInAnotherSortRebuildsTheSortFirst();
    void aNewSortIsInTheRunTimeRecord();
    void anotherSortLeavesThePictureAsItWasSet();
    void theTraceTabCountsInTheNewOrder();
    void aDismissedSeekChangesNothing();
    void anMsdosFileShowsItsTextAndHeaders();

private:
    QTemporaryDir _folder;
    QString _file;
};

/// A window with its SEG-Y menu.
struct SegyWindow : WindowFixture {
    using WindowFixture::WindowFixture;
    SegyMenuDialog* dialog() { return window->findChild<SegyMenuDialog*>("SegyMenuDialog"); }
    template <class T>
    T* find(const char* name)
    {
        T* control = dialog() ? dialog()->findChild<T*>(name) : nullptr;
        if (!control) qFatal("no control %s", name);
        return control;
    }
    QString text(const char* tab) { return find<QWidget>(tab)->findChild<QPlainTextEdit*>("textEdit")->toPlainText(); }
    void open(const QString& file, const QString& index = "No")
    {
        action("segyAct")->trigger();
        find<QLineEdit>("fileField")->setText(file);
        find<QComboBox>("indexBox")->setCurrentText(index);
        find<QPushButton>("openButton")->click();
    }
    /// Presses "seek" and does the rest in the dialog that comes.
    bool seek(const std::function<void(SegyRecDialog*)>& answer)
    {
        bool isAnswered = false;
        QTimer::singleShot(0, [&] {
            auto* seekDialog = qobject_cast<SegyRecDialog*>(QApplication::activeModalWidget());
            if (!seekDialog) return;
            isAnswered = true;
            answer(seekDialog);
        });
        action("seekAct")->trigger();
        return isAnswered;
    }
};

void SegyMenuWindowTest::initTestCase()
{
    QVERIFY(_folder.isValid());
    qputenv("TREVIA_HOME", _folder.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", _folder.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _folder.path());
    _file = writeSegy(_folder.path() + "/six.sgy");
}

void SegyMenuWindowTest::theMenuIsMadeOnceAndShownAgain()
{
    SegyWindow fixture;
    QVERIFY(!fixture.dialog());
    fixture.action("segyAct")->trigger();
    SegyMenuDialog* made = fixture.dialog();
    QVERIFY(made && made->isVisible() && !made->isModal());
    fixture.find<QLineEdit>("maxVal")->setText("12");
    fixture.find<QPushButton>("dismissButton")->click();
    QVERIFY(!made->isVisible());
    fixture.action("segyAct")->trigger();
    QCOMPARE(fixture.dialog(), made);
    QVERIFY(made->isVisible());
    QCOMPARE(fixture.find<QLineEdit>("maxVal")->text(), QString("12"));
    QCOMPARE(fixture.window->findChildren<SegyMenuDialog*>().size(), 1);
}

void SegyMenuWindowTest::withoutAFileTheMenuComesWithNothingFilledIn()
{
    SegyWindow fixture;
    QCOMPARE(fixture.window->showSegyMenu(true, false), 1);
    QVERIFY(fixture.dialog() && fixture.dialog()->isVisible());
    for (const char* name : {"fileField", "maxVal", "nsampVal", "srateVal"})
        QCOMPARE(fixture.find<QLineEdit>(name)->text(), QString());
    for (const char* name : {"sortBox", "typeBox", "formatBox", "variBox", "coorBox", "elevBox", "indexBox"})
        QCOMPARE(fixture.find<QComboBox>(name)->currentIndex(), 0);
    QVERIFY(!fixture.find<QPushButton>("buttonBuild")->isEnabled());
    QVERIFY(!fixture.find<QCheckBox>("remapBox")->isChecked());
}

void SegyMenuWindowTest::cancellingTheFirstMenuEndsTheProgram()
{
    {
        SegyWindow fixture;
        fixture.window->showSegyMenu(true, false);
        fixture.find<QPushButton>("dismissButton")->click();
        QVERIFY(!fixture.window->isVisible() && fixture.window->atExit());
    }
    {
        SegyWindow fixture;
        std::strcpy(fixture.menu->cfile, "/nowhere/lost.sgy,");
        ModalAnswer answer([](QDialog* box) { box->accept(); });
        fixture.window->showSegyMenu(true, false);
        QVERIFY(answer.count > 0);
        QVERIFY(fixture.window->isVisible() && fixture.dialog() && fixture.dialog()->isVisible());
        QCOMPARE(fixture.find<QLineEdit>("fileField")->text(), QString("/nowhere/lost.sgy"));
        fixture.find<QPushButton>("openButton")->click();  // fails once more
        QVERIFY(fixture.window->isVisible() && fixture.dialog()->isVisible());
        QTest::keyClick(fixture.dialog(), Qt::Key_Escape);
        QVERIFY(!fixture.window->isVisible());
    }
}

void SegyMenuWindowTest::cancellingALaterMenuEndsNothing()
{
    {
        SegyWindow fixture;
        fixture.window->showSegyMenu(true, false);
        QCOMPARE(fixture.WindowFixture::open(_file), 1);  // as a file that is dropped
        fixture.find<QPushButton>("dismissButton")->click();
        QVERIFY(fixture.window->isVisible());
    }
    SegyWindow fixture(1);
    fixture.window->showSegyMenu(false, false);
    fixture.window->segyMenu();
    QVERIFY(fixture.window->isVisible());
}

void SegyMenuWindowTest::aFileOfTheCommandLineIsShownWithoutTheMenu()
{
    SegyWindow fixture;
    std::strcpy(fixture.menu->cfile, (_file + ",").toLocal8Bit());
    fixture.menu->segysort = 4;
    fixture.menu->segymaxtr = 3;
    fixture.menu->segysamprat = 0.5f;
    QCOMPARE(fixture.window->showSegyMenu(true, false), 1);
    QVERIFY(!fixture.dialog());
    QCOMPARE(fixture.shownKey(), QString("CDP :101"));
    fixture.action("segyAct")->trigger();
    QCOMPARE(fixture.find<QLineEdit>("fileField")->text(), _file);
    QCOMPARE(fixture.find<QComboBox>("sortBox")->currentText(), QString("CDP Gather"));
    QCOMPARE(fixture.find<QLineEdit>("maxVal")->text(), QString("3"));
    QCOMPARE(fixture.find<QLineEdit>("srateVal")->text(), QString("0.5"));
    QVERIFY(fixture.find<QPushButton>("buttonBuild")->isEnabled());
    QVERIFY(fixture.text("segyebcdicmenu").startsWith("C 1 line of text"));
    QVERIFY(fixture.text("segybinarymenu").startsWith("Job identification number:"));
}

void SegyMenuWindowTest::openShowsTheFirstEnsemble()
{
    SegyWindow fixture;
    fixture.open(_file);
    QVERIFY(!fixture.dialog()->isVisible());
    QCOMPARE(fixture.shownKey(), QString("FFID :10"));
    QCOMPARE(fixture.window->display()->traceCount(), 2);
    QVERIFY(!fixture.action("seekAct")->isEnabled());
    fixture.action("segyAct")->trigger();
    QVERIFY(fixture.find<QPushButton>("buttonBuild")->isEnabled());
}

void SegyMenuWindowTest::aFailedLoadBringsTheMenuAgainWithItsFields()
{
    SegyWindow fixture;
    BoxWatcher boxes;
    fixture.action("segyAct")->trigger();
    fixture.find<QLineEdit>("nsampVal")->setText("250");
    fixture.find<QComboBox>("typeBox")->setCurrentText("MSDOS");
    fixture.open("/nowhere/none.sgy");
    QCOMPARE(boxes.titles, QStringList({"SEGY Load Error"}));
    QCOMPARE(boxes.texts, QStringList({"Error while open or read from file: /nowhere/none.sgy"}));
    QVERIFY(fixture.dialog()->isVisible());
    QCOMPARE(fixture.find<QLineEdit>("fileField")->text(), QString("/nowhere/none.sgy"));
    QCOMPARE(fixture.find<QLineEdit>("nsampVal")->text(), QString("250"));
    QCOMPARE(fixture.find<QComboBox>("typeBox")->currentText(), QString("MSDOS"));
    QVERIFY(!fixture.find<QPushButton>("buttonBuild")->isEnabled());
}

void SegyMenuWindowTest::aFailedLoadKeepsTheOldFileInTheTabs()
{
    SegyWindow fixture;
    fixture.open(_file, "Yes");
    BoxWatcher boxes;
    fixture.open("/nowhere/none.sgy");
    QCOMPARE(boxes.titles, QStringList({"SEGY Load Error"}));
    fixture.find<QTabWidget>("tabWidget")->setCurrentIndex(3);
    QCOMPARE(fixture.find<QLabel>("trcLabel")->text(), QString("Total traces: 6"));
    fixture.find<QSpinBox>("spinBox")->setValue(6);
    QVERIFY(fixture.text("segyheadermenu").split('\n')[0].endsWith(" 6"));
    fixture.action("forwardAct")->trigger();
    QCOMPARE(fixture.shownKey(), QString("FFID :11"));
}

void SegyMenuWindowTest::inAFlowTheMenuIsModalAndComesAgain()
{
    SegyWindow fixture;
    QStringList seen;
    BoxWatcher boxes;
    QTimer answers;
    connect(&answers, &QTimer::timeout, this, [&] {
        auto* dialog = qobject_cast<SegyMenuDialog*>(QApplication::activeModalWidget());
        if (!dialog) return;
        auto* field = dialog->findChild<QLineEdit*>("fileField");
        seen += field->text();
        field->setText(seen.size() == 1 ? "/nowhere/none.sgy" : _file);
        dialog->findChild<QPushButton*>("openButton")->click();
    });
    answers.start(5);
    QCOMPARE(fixture.window->showSegyMenu(true, true), 1);  // returns when the menu is done
    answers.stop();
    QCOMPARE(seen, QStringList({"", "/nowhere/none.sgy"}));
    QCOMPARE(boxes.titles, QStringList({"SEGY Load Error"}));
    QCOMPARE(fixture.shownKey(), QString("FFID :10"));
    QVERIFY(!fixture.window->isStandAlone());
}

void SegyMenuWindowTest::besideADatasetSegyGetsAWindowOfItsOwn()
{
    SegyWindow fixture;
    fixture.menu->dotrevia = 2;
    fixture.action("segyAct")->trigger();
    auto* second = fixture.window->findChild<MainWindow*>();
    QVERIFY(second && second->isVisible() && second->isWindow());
    auto* dialog = second->findChild<SegyMenuDialog*>();
    QVERIFY(dialog && dialog->isVisible());
    dialog->findChild<QLineEdit*>("fileField")->setText(_file);
    dialog->findChild<QPushButton*>("openButton")->click();
    QCOMPARE(second->display()->traceCount(), 2);
    QVERIFY(second->isSegy());
    QCOMPARE(fixture.window->display()->traceCount(), 0);
    QVERIFY(!fixture.window->isSegy());
    QPointer<MainWindow> closed(second);
    second->close();
    QTRY_VERIFY(!closed);
}

void SegyMenuWindowTest::buildNowEnablesPreviousAndSeek()
{
    SegyWindow fixture;
    fixture.open(_file);
    fixture.window->nextRecord();
    QVERIFY(!fixture.action("backAct")->isEnabled());
    QVERIFY(!fixture.action("seekAct")->isEnabled());
    fixture.action("segyAct")->trigger();
    fixture.find<QPushButton>("buttonBuild")->click();
    QVERIFY(fixture.find<QLabel>("buildLabel")->isVisible());
    QTRY_VERIFY(fixture.action("backAct")->isEnabled());
    QVERIFY(fixture.action("seekAct")->isEnabled());
    QTRY_VERIFY(!fixture.find<QLabel>("buildLabel")->isVisible());
    fixture.action("backAct")->trigger();
    QCOMPARE(fixture.shownKey(), QString("FFID :10"));
}

void SegyMenuWindowTest::theRemapTableIsInForceWhenTheFileOpens()
{
    SegyWindow fixture;
    fixture.action("segyAct")->trigger();
    fixture.find<QPushButton>("remapButton")->click();
    SegyRemapTable remap;
    remap.cells[0] = {"FFID", "4I", "IEEE", "21"};  // the CDP: 101 to 106
    fixture.find<SegyRemapDialog>("SegyRemapDialog")->setTable(remap);
    fixture.find<QComboBox>("sortBox")->setCurrentText("FFID");
    fixture.open(_file, "Yes");
    QCOMPARE(fixture.window->segyLoader()->applyRemap(), 1);
    QVERIFY(fixture.window->segyLoader()->remapTable() == remap);
    QCOMPARE(fixture.window->segyLoader()->priList(), QStringList({"101", "102", "103", "104", "105", "106"}));
    QVERIFY(fixture.find<QCheckBox>("remapBox")->isChecked());
}

void SegyMenuWindowTest::aRemapTableWithoutAUsableRowUnchecksItsBox()
{
    SegyWindow fixture;
    fixture.action("segyAct")->trigger();
    fixture.find<QCheckBox>("remapBox")->click();
    fixture.open(_file, "Yes");
    QCOMPARE(fixture.window->segyLoader()->applyRemap(), 0);
    QVERIFY(!fixture.find<QCheckBox>("remapBox")->isChecked());
}

void SegyMenuWindowTest::aSecondFileFillsTheTabs()
{
    SegyWindow fixture;
    fixture.open(_file, "Yes");
    QByteArray bytes = segyBytes(2);
    put32(&bytes, 3200, 77);
    const QString second = writeSegy(_folder.path() + "/second.sgy", bytes);
    fixture.open(second, "Yes");
    QVERIFY(fixture.text("segybinarymenu").split('\n')[0].endsWith(" 77"));
    fixture.find<QTabWidget>("tabWidget")->setCurrentIndex(3);
    QCOMPARE(fixture.find<QLabel>("trcLabel")->text(), QString("Total traces: 2"));
}

void SegyMenuWindowTest::aFileOpenedElsewhereIsShownInTheLoadTab()
{
    SegyWindow fixture;
    fixture.open(_file);
    SegyLoadParm parm;
    parm.files = writeSegy(_folder.path() + "/dropped.sgy");
    parm.isort = 4;
    parm.nsamp = 3;
    QCOMPARE(fixture.window->loadSegyFile(parm), 1);
    QCOMPARE(fixture.find<QLineEdit>("fileField")->text(), parm.files);
    QCOMPARE(fixture.find<QComboBox>("sortBox")->currentText(), QString("CDP Gather"));
    QCOMPARE(fixture.find<QLineEdit>("nsampVal")->text(), QString("3"));
}

void SegyMenuWindowTest::seekShowsTheRecord()
{
    SegyWindow fixture;
    fixture.open(_file, "Yes");
    for (int i = 0; i < 4; ++i) fixture.window->nextRecord();
    QVERIFY(fixture.seek([](SegyRecDialog* dialog) {
        dialog->findChild<QSpinBox*>("seekSpin")->setValue(11);
        dialog->accept();
    }));
    QCOMPARE(fixture.shownKey(), QString("FFID :11"));
    QVERIFY(fixture.action("forwardAct")->isEnabled());
    fixture.action("forwardAct")->trigger();
    QCOMPARE(fixture.shownKey(), QString("FFID :12"));
}

void SegyMenuWindowTest::aNewSortIsInTheRunTimeRecord()
{
    SegyWindow fixture;
    fixture.open(_file, "Yes");
    const auto record = [&] {
        const orvinRuntimeStruct& own = fixture.menu->_orvinruntime;
        return QVector<int>({own.ipsort, own.idtyp, globalRuntime.ipsort, globalRuntime.idtyp});
    };
    QCOMPARE(record(), QVector<int>({2, 0, 2, 0}));  // FFID
    const auto seek = [&](const char* sort, int value) {
        return fixture.seek([=](SegyRecDialog* dialog) {
            dialog->findChild<QComboBox*>("seekPriBox")->setCurrentText(sort);
            dialog->findChild<QSpinBox*>("seekSpin")->setValue(value);
            dialog->accept();
        });
    };
    QVERIFY(seek("In-Line Stack", 0));
    QCOMPARE(record(), QVector<int>({7, 7, 7, 7}));
    QVERIFY(fixture.window->segyLoader()->isStacked());
    QVERIFY(seek("CDP Gather", 104));
    QCOMPARE(record(), QVector<int>({1, 0, 1, 0}));
    QVERIFY(!fixture.window->segyLoader()->isStacked());
}

void SegyMenuWindowTest::seekInAnotherSortRebuildsTheSortFirst()
{
    SegyWindow fixture;
    fixture.open(_file, "Yes");
    QCOMPARE(fixture.window->numberOfRecords(), 3);
    QVERIFY(fixture.seek([](SegyRecDialog* dialog) {
        dialog->findChild<QComboBox*>("seekPriBox")->setCurrentText("CDP Gather");
        dialog->findChild<QSpinBox*>("seekSpin")->setValue(104);
        dialog->accept();
    }));
    QCOMPARE(fixture.window->segyLoader()->currentSortKey(), SortCode(4));
    QCOMPARE(fixture.window->numberOfRecords(), 6);
    QCOMPARE(fixture.shownKey(), QString("CDP :104"));
    QCOMPARE(fixture.window->display()->traceCount(), 1);
    QCOMPARE(fixture.menu->ipkey, fixture.window->segyLoader()->priEKey().value);
    QCOMPARE(fixture.menu->iskeyreal, fixture.window->segyLoader()->secEKey().value);
    fixture.action("backAct")->trigger();
    QCOMPARE(fixture.shownKey(), QString("CDP :103"));
}

/// All that the user can have set on a display, but for its keys.
static QStringList settingsOf(const SeismicDisplay& display)
{
    const SeismicPlot& p = *display.seismicPlot();
    const TraceConditioner& c = p.conditioner();
    QStringList all;
    for (const double v : {double(p.displayType()),
                           double(p.normalization()),
                           double(p.plotDirection()),
                           double(p.clip()),
                           double(p.gain()),
                           double(p.rangeMin()),
                           double(p.rangeMax()),
                           double(p.isAutoGain()),
                           double(p.bias()),
                           double(p.isApplyBias()),
                           double(p.traceSpacing()),
                           double(p.isAutoTraceSpacing()),
                           double(p.isAutoSampleSpacing()),
                           double(c.isAGC()),
                           double(c.agcWindow()),
                           double(c.isPhase()),
                           double(c.phaseAngle()),
                           double(c.isFilter()),
                           double(display.grid()->yEnabled()),
                           double(display.timeIncrement())})
        all.append(QString::number(v));
    return all;
}

void SegyMenuWindowTest::anotherSortLeavesThePictureAsItWasSet()
{
    SegyWindow fixture;
    fixture.open(_file, "Yes");
    SeismicDisplay* display = fixture.window->display();
    SeismicPlot* plot = display->seismicPlot();
    plot->setDisplayType(ColorWiggle);
    plot->setNormalization(Normalize::None);
    plot->setAutoGain(false);
    plot->setRange(-7.0f, 5.0f);
    plot->setGain(9.5f);
    plot->setClip(3.25f);
    plot->setBias(0.5f);
    plot->setApplyBias(true);
    plot->setAutoTraceSpacing(false);
    plot->setTraceSpacing(4.0f);
    plot->applyAGC(true, 320);
    plot->applyPhase(true, 40);
    display->setPlotDirection(RightToLeft);
    display->setTimeIncrement(2.0f);
    display->grid()->enableY(true);
    fixture.window->parameterMenu();
    fixture.window->parmMenuDialog()->updateAll();
    const QStringList before = settingsOf(*display);
    const auto shown = [&] {
        QStringList texts;
        for (const char* name : {"gainEdit", "clipEdit", "lminEdit", "lmaxEdit", "agcEdit", "phseEdit", "biasEdit"})
            texts.append(fixture.window->parmMenuDialog()->findChild<QLineEdit*>(name)->text());
        return texts;
    };
    const QStringList texts = shown();
    QCOMPARE(texts, QStringList({"9.5", "3.25", "-7", "5", "320", "40", "0.5"}));
    QVERIFY(fixture.seek([](SegyRecDialog* dialog) {
        dialog->findChild<QComboBox*>("seekPriBox")->setCurrentText("CDP Gather");
        dialog->findChild<QSpinBox*>("seekSpin")->setValue(104);
        dialog->accept();
    }));
    QCOMPARE(fixture.shownKey(), QString("CDP :104"));
    QCOMPARE(settingsOf(*display), before);
    QCOMPARE(shown(), texts);
}

void SegyMenuWindowTest::theTraceTabCountsInTheNewOrder()
{
    SegyWindow fixture;
    fixture.open(_file, "Yes");
    fixture.action("segyAct")->trigger();
    fixture.find<QTabWidget>("tabWidget")->setCurrentIndex(3);
    fixture.find<QSpinBox>("spinBox")->setValue(2);
    const auto channel = [&fixture] { return fixture.text("segyheadermenu").split('\n')[3].mid(46).toInt(); };
    QCOMPARE(channel(), 2);
    QVERIFY(fixture.seek([](SegyRecDialog* dialog) {
        dialog->findChild<QComboBox*>("seekPriBox")->setCurrentText("Offset");  // in truth by channel: 1 1 1 2 2 2
        dialog->accept();
    }));
    QCOMPARE(fixture.find<QSpinBox>("spinBox")->value(), 2);
    QCOMPARE(channel(), 1);
}

void SegyMenuWindowTest::aDismissedSeekChangesNothing()
{
    SegyWindow fixture;
    fixture.open(_file, "Yes");
    QVERIFY(fixture.seek([](SegyRecDialog* dialog) {
        dialog->findChild<QComboBox*>("seekPriBox")->setCurrentText("CDP Gather");
        dialog->reject();
    }));
    QCOMPARE(fixture.window->segyLoader()->currentSortKey(), SortCode(1));
    QCOMPARE(fixture.shownKey(), QString("FFID :10"));
}

void SegyMenuWindowTest::anMsdosFileShowsItsTextAndHeaders()
{
    if (!hasTestData()) QSKIP("no real data files");
    SegyWindow fixture;
    fixture.action("segyAct")->trigger();
    fixture.find<QComboBox>("typeBox")->setCurrentText("MSDOS");
    fixture.find<QComboBox>("sortBox")->setCurrentText("In-Line Stack");
    fixture.open(QString::fromStdString(testDataFile("poststack-3d/f3-lsb.sgy")), "Yes");
    QCOMPARE(fixture.window->segyLoader()->isOpen(), true);
    const QStringList reel = fixture.text("segybinarymenu").split('\n');
    QCOMPARE(reel[7], QString("Number of samples per trace:").leftJustified(40) + "75");
    fixture.find<QTabWidget>("tabWidget")->setCurrentIndex(3);
    QCOMPARE(fixture.find<QLabel>("trcLabel")->text(), QString("Total traces: 414"));
    QVERIFY(fixture.text("segyheadermenu").contains(QRegularExpression("189\\) 3-D in-line number: +111\n")));
    QVERIFY(fixture.text("segyheadermenu").contains(QRegularExpression("193\\) 3-D cross-line number: +875\n")));
}

QTEST_MAIN(SegyMenuWindowTest)
#include "segymenuwindowtest.moc"
