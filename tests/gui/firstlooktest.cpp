/// The bar above the screens: what it says of a misread file, what its buttons do, and that the window never waits.
#include "frame/firstlook.h"
#include "display/seismicplot.h"
#include "tests/gui/guitestdata.h"
#include "tests/gui/modalanswer.h"
#include "tests/gui/windowfixture.h"
#include "tests/unit/sources/segybuilder.h"

#include <QCheckBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSemaphore>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <atomic>

class FirstLookTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void aRightFileGetsNoBar();
    void aRefusedLittleEndianFileOpensByOnePress();
    void theBarOfARefusedFileIsInTheMenuThatCoversTheScreens();
    void aStackCutByTheReelsRoomOpensWhole();
    void notNowLeavesAllAsItIs();
    void detailsShowTheFactsAndChangeNothing();
    void alwaysIsOffAtFirstAndThenUsesTheSettingsUnasked();
    void alwaysChangesNothingUnderADialogThatWaits();
    void whatIsNoSegyFileSaysWhatItIsWithoutSettings();
    void theWindowGoesOnWhileTheGuessIsMade();
    void aResultThatComesAfterTheNextFileIsDropped();
    void closingTheWindowWaitsForTheGuessAndShowsNothing();
    void inAClosedWindowNothingIsOpenedUnasked();
    void wigglesOfMoreTracesThanPixelsOfferColor();
    void theOfferOfColorFollowsTheView();

private:
    QTemporaryDir _home;
};

namespace {

/// A window with its bar.
struct Looked : WindowFixture {
    QWidget* bar = window->findChild<QWidget*>("firstLookBar");
    QString text() { return bar->findChild<QLabel*>("textLabel")->text(); }
    QPushButton* button(const char* name) { return bar->findChild<QPushButton*>(name); }
    QCheckBox* always() { return bar->findChild<QCheckBox*>("alwaysBox"); }
    void press(const char* name) { QTest::mouseClick(button(name), Qt::LeftButton); }

    /// All that was being guessed has been heard of.
    bool isQuiet() { return window->firstLook()->findChildren<QThread*>().isEmpty(); }
    /// Opens a file whose refusal is answered.
    int openAnswered(const QString& name)
    {
        ModalAnswer answer([this](QDialog* box) {
            texts.append(static_cast<QMessageBox*>(box)->informativeText());
            box->accept();
        });
        return open(name);
    }
    QStringList texts;
};

/// A stack: one trace a CDP, one FFID, all in one ensemble.
QString writeLine(const QString& folder, int nTraces)
{
    SegyBuilder builder(4);
    for (int i = 0; i < nTraces; ++i) {
        builder.addTrace<float>({float(i % 5), 1.0f, -1.0f, 2.0f});
        builder.setHeader<int32_t>(size_t(i), 8, 7);
        builder.setHeader<int32_t>(size_t(i), 20, i + 1);
    }
    builder.put<int16_t>(3212, int16_t(nTraces));
    return QString::fromStdString(builder.save((folder + QString("/line%1.sgy").arg(nTraces)).toStdString()));
}

}  // namespace

void FirstLookTest::initTestCase()
{
    QVERIFY(_home.isValid());
    qputenv("TREVIA_HOME", _home.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _home.path());
}

void FirstLookTest::init()
{
    QSettings("Brenlake", "SEISMICDISPLAY").clear();
}

void FirstLookTest::aRightFileGetsNoBar()
{
    NEEDS_TEST_DATA();
    Looked fixture;
    QVERIFY(!fixture.bar->isVisible());
    for (const char* name :
         {"prestack-marine/viking_small.segy", "cdp-gathers/cdp601to605.sgy", "poststack-3d/f3.sgy"}) {
        QCOMPARE(fixture.open(dataFile(name)), 1);
        QVERIFY(!fixture.isQuiet());  // a guess is on its way
        QTRY_VERIFY(fixture.isQuiet());
        QVERIFY2(!fixture.bar->isVisible(), name);
    }
}

void FirstLookTest::aRefusedLittleEndianFileOpensByOnePress()
{
    NEEDS_TEST_DATA();
    Looked fixture;
    QCOMPARE(fixture.openAnswered(dataFile("formats/Format1lsb.sgy")), 0);
    QCOMPARE(fixture.texts.size(), 2);  // the reel, and the load
    for (const QString& text : fixture.texts) QVERIFY(text.contains("\"Guess Settings\""));
    QTRY_VERIFY(fixture.bar->isVisible());
    QCOMPARE(fixture.text(),
             QString("Format1lsb.sgy: 414 traces of 75 samples, little-endian. Refused: read as big-endian."));
    QCOMPARE(fixture.traces(), 0);  // nothing by itself
    fixture.press("useButton");
    QCOMPARE(fixture.traces(), 18);  // the first of 23 inlines
    QCOMPARE(fixture.window->segyLoadParm().itype, 1);
    QVERIFY(!fixture.bar->isVisible());
    QTRY_VERIFY(fixture.isQuiet());
    QVERIFY(!fixture.bar->isVisible());
}

void FirstLookTest::theBarOfARefusedFileIsInTheMenuThatCoversTheScreens()
{
    NEEDS_TEST_DATA();
    Looked fixture;
    QVERIFY(qstrcpy(fixture.menu->cfile, qPrintable(dataFile("formats/Format5lsb.sgy"))));
    {
        ModalAnswer answer([](QDialog* box) {
            if (qobject_cast<QMessageBox*>(box)) box->accept();
        });
        fixture.window->showSegyMenu(true, false);
    }
    auto* menu = fixture.window->findChild<QDialog*>("SegyMenuDialog");
    QVERIFY(menu && menu->isVisible());
    QTRY_VERIFY(fixture.bar->isVisible());
    QCOMPARE(fixture.bar->window(), menu);
    fixture.press("useButton");
    QCOMPARE(fixture.traces(), 18);
    QVERIFY(!menu->isVisible());
    QVERIFY(fixture.window->isVisible());
    QCOMPARE(fixture.bar->window(), fixture.window.get());
    QVERIFY(!fixture.bar->isVisible());
    for (const QPushButton* button : fixture.bar->findChildren<QPushButton*>())
        QVERIFY(!button->autoDefault());  // Enter stays the menu's
    // Dismissing the menu brings the bar above the picture.
    fixture.openAnswered(dataFile("formats/Format8lsb.sgy"));
    fixture.window->segyMenu();
    QTRY_VERIFY(fixture.bar->isVisible());
    menu->reject();
    QCOMPARE(fixture.bar->window(), fixture.window.get());
    QVERIFY(fixture.bar->isVisible());
    QCOMPARE(fixture.traces(), 18);
}

void FirstLookTest::aStackCutByTheReelsRoomOpensWhole()
{
    NEEDS_TEST_DATA();
    Looked fixture;
    QCOMPARE(fixture.open(dataFile("poststack-2d/small_stack.sgy")), 1);
    QCOMPARE(fixture.traces(), 1);
    QTRY_VERIFY(fixture.bar->isVisible());
    QVERIFY2(fixture.text().contains("up to 20 traces are cut after 1"), qPrintable(fixture.text()));
    fixture.press("useButton");
    QCOMPARE(fixture.traces(), 20);
}

void FirstLookTest::notNowLeavesAllAsItIs()
{
    NEEDS_TEST_DATA();
    Looked fixture;
    fixture.open(dataFile("poststack-2d/small_stack.sgy"));
    QTRY_VERIFY(fixture.bar->isVisible());
    const SegyLoadParm before = fixture.window->segyLoadParm();
    fixture.press("notNowButton");
    QVERIFY(!fixture.bar->isVisible());
    QCOMPARE(fixture.traces(), 1);
    QCOMPARE(fixture.window->segyLoadParm().maxtr, before.maxtr);
    // The next file is looked at again.
    fixture.open(dataFile("odd-headers/small-2d.sgy"));
    QTRY_VERIFY(fixture.bar->isVisible());
    QVERIFY(fixture.text().startsWith("small-2d.sgy"));
    // A right one takes it away.
    fixture.open(dataFile("prestack-marine/viking_small.segy"));
    QVERIFY(!fixture.bar->isVisible());
}

void FirstLookTest::detailsShowTheFactsAndChangeNothing()
{
    NEEDS_TEST_DATA();
    Looked fixture;
    fixture.open(dataFile("poststack-2d/small_stack.sgy"));
    QTRY_VERIFY(fixture.bar->isVisible());
    fixture.press("detailsButton");
    auto* dialog = fixture.window->findChild<QDialog*>("SegyGuessDialog");
    QVERIFY(dialog && dialog->isVisible());
    QVERIFY(!dialog->findChild<QPushButton*>("restoreButton")->isVisible());
    QVERIFY(dialog->findChild<QLabel*>("summaryLabel")->text().contains("20 traces of 200 samples"));
    QCOMPARE(fixture.traces(), 1);
    QVERIFY(fixture.bar->isVisible());
}

void FirstLookTest::alwaysIsOffAtFirstAndThenUsesTheSettingsUnasked()
{
    NEEDS_TEST_DATA();
    {
        Looked fixture;
        QVERIFY(!fixture.always()->isChecked());
        fixture.open(dataFile("poststack-2d/small_stack.sgy"));
        QTRY_VERIFY(fixture.bar->isVisible());
        fixture.always()->setChecked(true);
        QCOMPARE(fixture.traces(), 1);  // from the next file on
    }
    Looked fixture;
    QVERIFY(fixture.always()->isChecked());  // kept
    fixture.open(dataFile("poststack-2d/small_stack.sgy"));
    QTRY_COMPARE(fixture.traces(), 20);
    QVERIFY(fixture.bar->isVisible());  // and it says so
    QVERIFY(fixture.text().contains("opened with the settings that were guessed"));
    QVERIFY(!fixture.button("useButton")->isVisible());
    QVERIFY(fixture.always()->isVisible());  // to switch it off again
    fixture.press("notNowButton");
    QVERIFY(!fixture.bar->isVisible());
}

void FirstLookTest::alwaysChangesNothingUnderADialogThatWaits()
{
    NEEDS_TEST_DATA();
    Looked fixture;
    fixture.always()->setChecked(true);
    fixture.open(dataFile("poststack-2d/small_stack.sgy"));
    QDialog waiting(fixture.window.get());
    waiting.setModal(true);
    waiting.show();
    QTRY_VERIFY(fixture.bar->isVisible());
    QCOMPARE(fixture.traces(), 1);
    QVERIFY(fixture.button("useButton")->isVisible());
}

void FirstLookTest::whatIsNoSegyFileSaysWhatItIsWithoutSettings()
{
    NEEDS_TEST_DATA();
    Looked fixture;
    const struct {
        const char* name;
        const char* words;
    } rows[] = {{"sps/TestZipper1.X", "This is a text file: SPS relation records"},
                {"first-breaks/Halfmile_shot20041590_seg005.json", "This is a text file: JSON"},
                {"not-segy/301.dat", "This is a SEG-2 record"},
                {"horizons/F3_Demo_0_FS4.dat", "This is a text file: a table of numbers"}};
    for (const auto& row : rows) {
        fixture.openAnswered(dataFile(row.name));
        QTRY_VERIFY(fixture.bar->isVisible());
        QVERIFY2(fixture.text().contains(row.words), qPrintable(fixture.text()));
        QVERIFY(!fixture.button("useButton")->isVisible());
        QVERIFY(fixture.button("detailsButton")->isVisible());
    }
}

void FirstLookTest::theWindowGoesOnWhileTheGuessIsMade()
{
    NEEDS_TEST_DATA();
    Looked fixture;
    QSemaphore mayGo;
    fixture.window->firstLook()->setGuess(
        [&](const std::string& path, const SegyLoadParm& before, SegyGuess* guess, std::string* error) {
            mayGo.acquire();
            return guessSegyFile(path, before, guess, error);
        });
    // The guess can't end before the file is shown and the window has taken a click: it waits for neither.
    QCOMPARE(fixture.open(dataFile("poststack-2d/small_stack.sgy")), 1);
    QCOMPARE(fixture.traces(), 1);
    fixture.action("forwardAct")->trigger();
    QCoreApplication::processEvents();
    QVERIFY(!fixture.isQuiet());
    QVERIFY(!fixture.bar->isVisible());
    mayGo.release();
    QTRY_VERIFY(fixture.bar->isVisible());
}

void FirstLookTest::aResultThatComesAfterTheNextFileIsDropped()
{
    NEEDS_TEST_DATA();
    Looked fixture;
    QSemaphore mayGo;
    fixture.window->firstLook()->setGuess(
        [&](const std::string& path, const SegyLoadParm& before, SegyGuess* guess, std::string* error) {
            if (path.find("small_stack") != std::string::npos) mayGo.acquire();
            return guessSegyFile(path, before, guess, error);
        });
    fixture.open(dataFile("poststack-2d/small_stack.sgy"));
    fixture.open(dataFile("prestack-marine/viking_small.segy"));
    mayGo.release();
    QTRY_VERIFY(fixture.isQuiet());
    QVERIFY(!fixture.bar->isVisible());
    QCOMPARE(fixture.traces(), 120);
}

void FirstLookTest::closingTheWindowWaitsForTheGuessAndShowsNothing()
{
    NEEDS_TEST_DATA();
    std::atomic<bool> hasBegun = false, hasEnded = false;
    {
        Looked fixture;
        fixture.window->firstLook()->setGuess(
            [&](const std::string& path, const SegyLoadParm& before, SegyGuess* guess, std::string* error) {
                hasBegun = true;
                const bool isRead = guessSegyFile(path, before, guess, error);
                hasEnded = true;
                return isRead;
            });
        fixture.open(dataFile("poststack-2d/small_stack.sgy"));
        fixture.window->close();
    }
    QCOMPARE(hasBegun.load(), hasEnded.load());
}

void FirstLookTest::inAClosedWindowNothingIsOpenedUnasked()
{
    NEEDS_TEST_DATA();
    Looked fixture;
    fixture.always()->setChecked(true);
    QSemaphore mayGo;
    fixture.window->firstLook()->setGuess(
        [&](const std::string& path, const SegyLoadParm& before, SegyGuess* guess, std::string* error) {
            mayGo.acquire();
            return guessSegyFile(path, before, guess, error);
        });
    fixture.open(dataFile("poststack-2d/small_stack.sgy"));
    fixture.window->close();
    mayGo.release();
    QTRY_VERIFY(fixture.isQuiet());
    QCOMPARE(fixture.traces(), 1);
}

void FirstLookTest::wigglesOfMoreTracesThanPixelsOfferColor()
{
    Looked fixture;
    fixture.window->resize(500, 600);
    QCOMPARE(fixture.open(writeLine(_home.path(), 900)), 1);
    QCOMPARE(fixture.traces(), 900);
    QTRY_VERIFY(fixture.bar->isVisible());
    QVERIFY(fixture.button("densityButton")->isVisible());
    QCOMPARE(fixture.text(), QString("More traces than pixels: colours show them all."));
    QVERIFY(!fixture.always()->isVisible());
    QCOMPARE(fixture.window->display()->seismicPlot()->displayType(), WiggleVA);
    fixture.press("densityButton");
    QCOMPARE(fixture.window->display()->seismicPlot()->displayType(), ColorB);
    QTRY_VERIFY(!fixture.bar->isVisible());
}

void FirstLookTest::theOfferOfColorFollowsTheView()
{
    Looked fixture;
    fixture.window->resize(500, 600);
    fixture.open(writeLine(_home.path(), 100));  // fewer than pixels
    QTRY_VERIFY(fixture.isQuiet());
    QTRY_COMPARE(fixture.window->display()->traceCount(), 100);
    QVERIFY(!fixture.bar->isVisible());
    fixture.open(writeLine(_home.path(), 900));
    QTRY_VERIFY(fixture.bar->isVisible());
    fixture.press("notNowButton");
    QVERIFY(!fixture.bar->isVisible());
    fixture.window->resize(520, 600);  // painted anew
    QVERIFY(!fixture.bar->isVisible());
    QCOMPARE(fixture.window->display()->seismicPlot()->displayType(), WiggleVA);
}

QTEST_MAIN(FirstLookTest)
#include "firstlooktest.moc"
