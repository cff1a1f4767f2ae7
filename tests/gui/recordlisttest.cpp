/// Where among the records one is: "n of m", the list of records, and the bar that offers and shows an index.
#include "frame/recordlist.h"
#include "frame/indexbar.h"
#include "sources/segyloader.h"
#include "tests/gui/segymenufixture.h"
#include "tests/gui/windowfixture.h"
#include "tests/testdata.h"
#include "tests/unit/frame/standinsource.h"

#include <QPointer>
#include <QProgressBar>
#include <QSettings>
#include <QStatusBar>
#include <QTableView>
#include <QTemporaryDir>

class RecordListTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void nextAndPreviousTellWhichOfHowMany();
    void severalScreensTellTheirRange();
    void theListHasValueAndTracesOfEachRecord();
    void aRowBringsItsRecord();
    void anotherSortListsItsOwnRecords();
    void marksAreKeptFromSessionToSession();
    void withoutAnIndexTheEndOffersOne();
    void aBuildShowsItsShareAndIsListedWhenDone();
    void aBuildCanBeStopped();
    void aBuildEndsWithItsFile();
    void whateverTheSourceItsIndexIsOfferedAndShown();

private:
    std::unique_ptr<QTemporaryDir> _home;
};

static QString viking()
{
    return QString::fromStdString(testDataFile("prestack-marine/viking_small.segy"));
}

void RecordListTest::init()
{
    _home = std::make_unique<QTemporaryDir>();
    qputenv("TREVIA_HOME", _home->path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", _home->path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _home->path());
    if (!hasTestData()) QSKIP("no real data files");
}

/// A window with the list beside the picture.
struct ListFixture : WindowFixture {
    explicit ListFixture(const QString& file = viking(), int indexbuilt = 1)
    {
        open(file, 0, indexbuilt);
        if (!list()->isVisible()) window->findChild<QAction*>("recordsAct")->trigger();
    }
    RecordList* list() { return window->findChild<RecordList*>("RecordList"); }
    QTableView* table() { return list()->findChild<QTableView*>("table"); }
    QString told() { return window->statusBar()->currentMessage(); }
    QString cell(int row, int column) { return table()->model()->index(row, column).data().toString(); }
    template <typename Control>
    Control* inBar(const char* name)
    {
        return window->findChild<QFrame*>("indexBar")->findChild<Control*>(name);
    }
    bool isBarUp() { return window->findChild<QFrame*>("indexBar")->isVisible(); }
};

void RecordListTest::nextAndPreviousTellWhichOfHowMany()
{
    ListFixture f;
    QCOMPARE(f.told(), QString("Record 1 of 4"));
    f.window->nextRecord();
    f.window->nextRecord();
    QCOMPARE(f.told(), QString("Record 3 of 4"));
    f.window->previousRecord();
    QCOMPARE(f.told(), QString("Record 2 of 4"));
    QCOMPARE(f.window->findChild<QLabel*>("recordLabel")->text(), QString("Record 2 of 4"));
    ListFixture plain(viking(), 0);
    QCOMPARE(plain.told(), QString("Record 1"));
    plain.window->nextRecord();
    QCOMPARE(plain.told(), QString("Record 2"));
}

void RecordListTest::severalScreensTellTheirRange()
{
    for (const int indexbuilt : {1, 0}) {
        const QString ofAll = indexbuilt ? " of 4" : "";
        ListFixture f(viking(), indexbuilt);
        f.window->findChild<QAction*>("screens2Act")->trigger();
        QCOMPARE(f.told(), "Records 1 to 2" + ofAll);
        f.window->nextRecord();
        QCOMPARE(f.told(), "Records 3 to 4" + ofAll);
        f.window->findChild<QAction*>("screens1Act")->trigger();
        QCOMPARE(f.told(), "Record 3" + ofAll);
    }
}

void RecordListTest::theListHasValueAndTracesOfEachRecord()
{
    ListFixture f;
    QCOMPARE(f.table()->model()->rowCount(), 4);
    QCOMPARE(f.table()->model()->headerData(0, Qt::Horizontal).toString(), QString("FFID"));
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(f.cell(i, RecordModel::Value), QString::number(3 + i));
        QCOMPARE(f.cell(i, RecordModel::Traces), QString("120"));
    }
    QVERIFY(f.table()->isVisible());
    f.window->nextRecord();
    QCOMPARE(f.table()->currentIndex().row(), 1);
    ListFixture plain(viking(), 0);
    QVERIFY(!plain.table()->isVisible());
    QVERIFY(plain.list()->findChild<QLabel*>("emptyLabel")->isVisible());
}

void RecordListTest::aRowBringsItsRecord()
{
    ListFixture f;
    f.window->nextRecord();
    const auto click = [&](int row, int column) {
        const QRect cell = f.table()->visualRect(f.table()->model()->index(row, column));
        QTest::mouseClick(f.table()->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    };
    click(3, RecordModel::Value);
    QCOMPARE(f.shownKey(), QString("FFID :6"));
    QCOMPARE(f.told(), QString("Record 4 of 4"));
    f.window->previousRecord();
    QCOMPARE(f.shownKey(), QString("FFID :5"));
    click(0, RecordModel::Traces);
    QCOMPARE(f.shownKey(), QString("FFID :3"));
    click(2, RecordModel::Mark);
    QCOMPARE(f.shownKey(), QString("FFID :3"));  // a mark is no wish
}

void RecordListTest::anotherSortListsItsOwnRecords()
{
    const QString file = _home->filePath("six.sgy");
    QFile out(file);
    QVERIFY(out.open(QIODevice::WriteOnly));
    out.write(segyBytes());
    out.close();
    ListFixture f(file);
    QCOMPARE(f.table()->model()->rowCount(), 3);
    QCOMPARE(f.cell(2, RecordModel::Traces), QString("2"));
    QTimer::singleShot(0, [] {
        auto* seek = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!seek) return;
        seek->findChild<QComboBox*>("seekPriBox")->setCurrentText("CDP Gather");
        seek->accept();
    });
    f.action("seekAct")->trigger();
    QCOMPARE(f.table()->model()->headerData(0, Qt::Horizontal).toString(), QString("CDP"));
    QCOMPARE(f.table()->model()->rowCount(), 6);
    QCOMPARE(f.cell(5, RecordModel::Value), QString("106"));
    QCOMPARE(f.cell(5, RecordModel::Traces), QString("1"));
}

void RecordListTest::marksAreKeptFromSessionToSession()
{
    const auto isMarked = [](ListFixture& f, int row) {
        return f.table()->model()->index(row, RecordModel::Mark).data(Qt::CheckStateRole).toInt() == Qt::Checked;
    };
    {
        ListFixture f;
        for (int row : {1, 2})
            QVERIFY(f.table()->model()->setData(f.table()->model()->index(row, RecordModel::Mark), Qt::Checked,
                                                Qt::CheckStateRole));
        QVERIFY(f.table()->model()->setData(f.table()->model()->index(1, RecordModel::Mark), Qt::Unchecked,
                                            Qt::CheckStateRole));
    }
    ListFixture f;
    for (int row = 0; row < 4; ++row) QCOMPARE(isMarked(f, row), row == 2);
}

void RecordListTest::withoutAnIndexTheEndOffersOne()
{
    ListFixture f(viking(), 0);
    for (int i = 0; i < 3; ++i) f.window->nextRecord();
    QVERIFY(!f.isBarUp());
    f.window->nextRecord();
    QVERIFY(f.isBarUp());
    QCOMPARE(f.inBar<QPushButton>("buildButton")->text(), QString("Build Now"));
    f.inBar<QPushButton>("laterButton")->click();
    QVERIFY(!f.isBarUp());
    f.window->nextRecord();
    f.inBar<QPushButton>("buildButton")->click();
    QTRY_VERIFY(f.window->segyLoader()->isIndexBuilt());
    QVERIFY(!f.isBarUp());
    QCOMPARE(f.table()->model()->rowCount(), 4);
    QVERIFY(f.action("backAct")->isEnabled());
    f.window->previousRecord();
    QCOMPARE(f.shownKey(), QString("FFID :5"));
    // With an index the end has nothing to offer.
    for (int i = 0; i < 3; ++i) f.window->nextRecord();
    QVERIFY(!f.isBarUp());
}

/// A file of so many traces of 4 samples and nothing but zeros in their headers, which takes no room on the disk.
static QString emptyTraces(const QString& name, qint64 nTraces)
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly)) return QString();
    file.write(segyBytes(0));
    file.resize(3600 + nTraces * 256);
    return name;
}

void RecordListTest::aBuildShowsItsShareAndIsListedWhenDone()
{
    ListFixture f(emptyTraces(_home->filePath("long.sgy"), 1500000), 0);
    auto* bar = f.inBar<QProgressBar>("shareBar");
    QList<int> shares;
    connect(bar, &QProgressBar::valueChanged, bar, [&](int share) { shares.append(share); });
    f.window->segyLoader()->startIndexBuild();
    QVERIFY(f.isBarUp() && bar->isVisible());
    QVERIFY(!f.inBar<QPushButton>("buildButton")->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(f.window->segyLoader()->isIndexBuilt(), 60000);
    QVERIFY(!f.isBarUp());
    const auto isPart = [](int share) { return share > 0 && share < 100; };
    QVERIFY2(std::any_of(shares.begin(), shares.end(), isPart), "no share was shown");
    QVERIFY(std::is_sorted(shares.begin(), shares.end()));
    QVERIFY(shares.last() <= 100);
    QVERIFY(f.window->segyLoader()->indexBuildPercent() >= 99);
    QCOMPARE(f.table()->model()->rowCount(), 1);
    QCOMPARE(f.cell(0, RecordModel::Traces), QString("1500000"));
}

void RecordListTest::aBuildCanBeStopped()
{
    ListFixture f(emptyTraces(_home->filePath("long.sgy"), 3000000), 0);
    SegyLoader* loader = f.window->segyLoader();
    QSignalSpy ended(loader, &SegyLoader::indexBuildEnded);
    loader->startIndexBuild();
    QVERIFY(f.inBar<QPushButton>("stopButton")->isVisible());
    f.inBar<QPushButton>("stopButton")->click();
    QVERIFY(ended.count() == 1 || ended.wait(60000));
    QVERIFY(!loader->isIndexBuilt() && !loader->isIndexBuilding());
    QVERIFY(!f.isBarUp());
    QVERIFY(!f.action("backAct")->isEnabled());
    QCOMPARE(f.table()->model()->rowCount(), 0);
    // Another one can follow.
    QVERIFY(loader->startIndexBuild());
    QTRY_VERIFY_WITH_TIMEOUT(loader->isIndexBuilt(), 60000);
}

void RecordListTest::aBuildEndsWithItsFile()
{
    ListFixture f(emptyTraces(_home->filePath("long.sgy"), 3000000), 0);
    QPointer<SegyLoader> loader = f.window->segyLoader();
    loader->startIndexBuild();
    QVERIFY(f.isBarUp());
    QVERIFY(f.open(viking(), 0, 1));
    QVERIFY(!loader);
    QVERIFY(!f.isBarUp());
    QCOMPARE(f.told(), QString("Record 1 of 4"));
    QApplication::processEvents();
    f.window->nextRecord();
    QCOMPARE(f.told(), QString("Record 2 of 4"));
    QCOMPARE(f.table()->model()->rowCount(), 4);
}

/// A source whose index comes when the test says so.
class SlowSource : public StandInSource
{
public:
    SlowSource() { isListed = false; }
    bool canBuildIndex() const override { return !isListed && !isBuilding; }
    void requestIndex() override
    {
        isBuilding = true;
        emit indexBuildStarted();
    }
    bool isIndexBuilding() const override { return isBuilding; }
    int indexBuildPercent() const override { return 40; }
    void stopIndexBuild() override { end(false); }
    void end(bool isDone)
    {
        isBuilding = false;
        isListed = isDone;
        emit indexBuildEnded();
    }
    bool isBuilding = false;
};

void RecordListTest::whateverTheSourceItsIndexIsOfferedAndShown()
{
    QWidget window;
    IndexBar bar(&window);
    window.show();
    const auto click = [&](const char* name) { bar.findChild<QPushButton*>(name)->click(); };
    auto* share = bar.findChild<QProgressBar*>("shareBar");
    SlowSource slow;
    StandInSource listed;
    bar.setSource(&listed);
    bar.offer();
    QVERIFY(!bar.isVisible());
    bar.setSource(&slow);
    bar.offer();
    QVERIFY(bar.isVisible() && !share->isVisible());
    click("buildButton");
    QVERIFY(slow.isBuilding);
    QTRY_COMPARE(share->value(), 40);
    click("stopButton");
    QVERIFY(!slow.isBuilding && !bar.isVisible());
    // What goes on is shown, too, when the source comes back, and what another one does is not.
    slow.requestIndex();
    bar.setSource(&listed);
    QVERIFY(!bar.isVisible());
    bar.setSource(&slow);
    QVERIFY(bar.isVisible() && share->isVisible());
    bar.setSource(&listed);
    slow.end(false);
    slow.requestIndex();
    QVERIFY(!bar.isVisible());
    {
        SlowSource gone;
        bar.setSource(&gone);
        gone.requestIndex();
    }
    click("stopButton");
    bar.offer();
}

QTEST_MAIN(RecordListTest)
#include "recordlisttest.moc"
