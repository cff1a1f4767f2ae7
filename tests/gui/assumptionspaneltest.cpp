/// The badge of the status bar and the panel behind it: counts that go on, the delay by name, controls that exist.
#include "frame/assumptionspanel.h"
#include "sources/segyloader.h"
#include "tests/gui/guitestdata.h"
#include "tests/gui/modalanswer.h"
#include "tests/gui/windowfixture.h"

#include <QAbstractButton>
#include <QLabel>
#include <QSettings>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

class AssumptionsPanelTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void withoutAFileThereIsNoBadge();
    void theBadgeCountsTheKindsAndNamesTheDelay();
    void aClickOnTheBadgeShowsThePanel();
    void countsGoOnWhilePagingAndAChosenLineStaysChosen();
    void anotherFileStartsAnewAndARefusedOneLeavesThePanel();
    void eachRowNamesAControlOfTheMenu();

private:
    QTemporaryDir _home;
};

namespace {

struct Assumed : WindowFixture {
    QToolButton* badge = window->statusBar()->findChild<QToolButton*>("assumedBadge");
    AssumptionsPanel* panel = window->assumptionsPanel();
    QTreeWidget* lines = panel->findChild<QTreeWidget*>("lines");
    QString line(const QString& words)
    {
        for (int i = 0; i < lines->topLevelItemCount(); ++i)
            if (lines->topLevelItem(i)->text(0).contains(words)) return lines->topLevelItem(i)->text(0);
        return "none has " + words;
    }
};

}  // namespace

void AssumptionsPanelTest::initTestCase()
{
    QVERIFY(_home.isValid());
    qputenv("TREVIA_HOME", _home.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _home.path());
}

void AssumptionsPanelTest::withoutAFileThereIsNoBadge()
{
    Assumed fixture;
    QVERIFY(fixture.badge);
    QVERIFY(!fixture.badge->isVisible());
}

void AssumptionsPanelTest::theBadgeCountsTheKindsAndNamesTheDelay()
{
    NEEDS_TEST_DATA();
    Assumed fixture;
    fixture.open(dataFile("first-breaks/hammer_profile_a.sgy"));
    // delrt -200 ms in every trace, and nothing else is odd in this file.
    QVERIFY(fixture.badge->isVisible());
    QCOMPARE(fixture.badge->text(), QString("1 assumed: delay -200 ms not in the axis"));
    // An ASCII text, 41 traces with another trace id, and a delay of -183 ms.
    fixture.open(dataFile("prestack-synthetic/f11_02673_45Hz.segy"));
    QCOMPARE(fixture.badge->text(), QString("3 assumed: delay -183 ms not in the axis"));
    QVERIFY(fixture.badge->toolTip().contains("trace id other than 1"));
}

void AssumptionsPanelTest::aClickOnTheBadgeShowsThePanel()
{
    NEEDS_TEST_DATA();
    Assumed fixture;
    fixture.open(dataFile("first-breaks/hammer_profile_a.sgy"));
    QVERIFY(!fixture.panel->isVisible());
    QTest::mouseClick(fixture.badge, Qt::LeftButton);
    QVERIFY(fixture.panel->isVisible());
    QVERIFY(fixture.line("delay -200 ms not in the axis").contains("in 60 of 60 traces"));
    fixture.panel->close();
}

void AssumptionsPanelTest::countsGoOnWhilePagingAndAChosenLineStaysChosen()
{
    NEEDS_TEST_DATA();
    Assumed fixture;
    fixture.open(dataFile("first-breaks/hammer_profile_a.sgy"));  // 6 shots of 60 channels
    fixture.lines->topLevelItem(0)->setSelected(true);
    for (int nShots = 2; nShots <= 6; ++nShots) {
        fixture.action("forwardAct")->trigger();
        const QString count = QString("in %1 of %1 traces, first in trace 1 (-200)").arg(60 * nShots);
        QVERIFY2(fixture.line("delay").contains(count), qPrintable(fixture.line("delay")));
        QCOMPARE(fixture.badge->text(), QString("1 assumed: delay -200 ms not in the axis"));
    }
    QCOMPARE(fixture.panel->lineCount(), 1);
    QVERIFY(fixture.lines->topLevelItem(0)->isSelected());
}

void AssumptionsPanelTest::anotherFileStartsAnewAndARefusedOneLeavesThePanel()
{
    NEEDS_TEST_DATA();
    Assumed fixture;
    fixture.open(dataFile("first-breaks/hammer_profile_a.sgy"));
    const QString before = fixture.panel->text();
    ModalAnswer answer([](QDialog* box) { box->accept(); });
    QCOMPARE(fixture.open("/nowhere/none.sgy"), 0);
    QCOMPARE(fixture.panel->text(), before);
    QVERIFY(fixture.badge->isVisible());
    fixture.open(dataFile("odd-headers/small-traceheader-samplerate.sgy"));
    QVERIFY(!fixture.panel->text().contains("delay"));
    QVERIFY(fixture.line("no sample interval").contains("fixed sample rate from first trace header: 4000"));
}

void AssumptionsPanelTest::eachRowNamesAControlOfTheMenu()
{
    NEEDS_TEST_DATA();
    Assumed fixture;
    fixture.window->segyMenu();
    auto* menu = fixture.window->findChild<QWidget*>("segyloadmenu");
    QVERIFY(menu);
    QStringList controls{"none"};  // for the delay alone
    for (const QLabel* label : menu->findChildren<QLabel*>()) controls += label->text();
    for (const QAbstractButton* button : menu->findChildren<QAbstractButton*>()) controls += button->text().remove('&');
    int nRows = 0;
    for (const char* name :
         {"first-breaks/hammer_profile_a.sgy", "prestack-synthetic/f11_02673_45Hz.segy", "odd-headers/multi-text.sgy",
          "odd-headers/rotated-small-rev2.sgy", "odd-headers/small-traceheader-samplerate.sgy", "odd-headers/long.sgy",
          "prestack-marine/viking_small.segy", "formats/Format8msb.sgy", "poststack-2d/RIV6.segy"}) {
        SegyLoadParm parm;
        parm.files = dataFile(name);
        parm.icscale = parm.iescale = 1;
        QCOMPARE(fixture.window->loadSegyFile(parm), 1);
        for (int i = 0; i < fixture.lines->topLevelItemCount(); ++i, ++nRows) {
            const QTreeWidgetItem* item = fixture.lines->topLevelItem(i);
            QVERIFY2(controls.contains(item->text(1)), qPrintable(item->text(0) + " | " + item->text(1)));
            QCOMPARE(item->text(1) == "none", item->text(0).startsWith("delay"));
        }
    }
    QVERIFY(nRows > 12);
}

QTEST_MAIN(AssumptionsPanelTest)
#include "assumptionspaneltest.moc"
