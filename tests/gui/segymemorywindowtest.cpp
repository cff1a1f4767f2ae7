/// Loads that take too much memory, as the window meets them: the old data stay, and a box says why.
#include "display/seismicdisplay.h"
#include "display/seismicplot.h"
#include "tests/gui/modalanswer.h"
#include "tests/gui/segymenufixture.h"
#include "tests/gui/windowfixture.h"
#include "tests/unit/sources/segybuilder.h"

#include <QMessageBox>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <cstdlib>
#include <new>

/// Allocations of at least this size fail, once so many have passed.
static std::atomic<size_t> leastFailing{SIZE_MAX};
static std::atomic<int> nPassing{0};

void* operator new(size_t n)
{
    const bool isFailing = n >= leastFailing && --nPassing < 0;
    if (void* p = isFailing ? nullptr : std::malloc(n > 0 ? n : 1)) return p;
    throw std::bad_alloc();
}

void* operator new[](size_t n)
{
    return operator new(n);
}

void operator delete(void* p) noexcept
{
    std::free(p);
}

void operator delete[](void* p) noexcept
{
    std::free(p);
}

void operator delete(void* p, size_t) noexcept
{
    std::free(p);
}

void operator delete[](void* p, size_t) noexcept
{
    std::free(p);
}

/// While it lives, memory is short: the first `passing` allocations from 4 MiB on succeed, no later one does.
struct ShortOfMemory {
    explicit ShortOfMemory(int passing)
    {
        nPassing = passing;
        leastFailing = size_t(4) << 20;
    }
    ~ShortOfMemory() { leastFailing = SIZE_MAX; }
    bool hasFailed() const { return nPassing < 0; }
};

class SegyMemoryWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void aCountThatTheFileCannotHoldLeavesTheOldFile();
    void aTraceAByteWithAnIndexLeavesTheOldFile();
    void noMemoryForTheDisplayBringsTheOldFileBack();
    void noMemoryForTheNextRecordLeavesTheOneOnScreen();
    void withoutAnOldFileNothingIsShown();

private:
    /// One box after the other; gives their texts.
    QStringList boxesOf(const std::function<void()>& act)
    {
        QStringList texts;
        const ModalAnswer answer([&](QDialog* dialog) {
            auto* box = qobject_cast<QMessageBox*>(dialog);
            if (!box) return;  // the progress of a build ends by itself
            texts += box->windowTitle() + ": " + box->text();
            box->accept();
        });
        act();
        return texts;
    }
    void expectFirstRecordOf(WindowFixture* fixture);

    QTemporaryDir _folder;
    QString _file, _large;
};

void SegyMemoryWindowTest::initTestCase()
{
    _file = writeSegy(_folder.path() + "/old.sgy");
    // A record of one trace, then one of 2000: 8 MB of samples.
    SegyBuilder large(1000);
    for (int i = 0; i <= 2000; ++i) {
        large.addTrace(std::vector<float>(1000, 1.0f));
        large.setHeader<int32_t>(size_t(i), 8, i == 0 ? 1 : 2);
        large.setHeader<int16_t>(size_t(i), 28, 1);
    }
    _large = QString::fromStdString(large.save((_folder.path() + "/large.sgy").toStdString()));
}

void SegyMemoryWindowTest::expectFirstRecordOf(WindowFixture* fixture)
{
    QCOMPARE(fixture->traces(), 2);
    QCOMPARE(fixture->shownKey(), QString("FFID :10"));
    QVERIFY(fixture->window->segyLoadParm().files.endsWith("old.sgy"));
    fixture->window->nextRecord();
    QCOMPARE(fixture->shownKey(), QString("FFID :11"));
    QCOMPARE(fixture->traces(), 2);
}

void SegyMemoryWindowTest::aCountThatTheFileCannotHoldLeavesTheOldFile()
{
    WindowFixture fixture;
    QCOMPARE(fixture.open(_file), 1);
    SegyLoadParm parm;
    parm.files = writeSegy(_folder.path() + "/claims.sgy");
    parm.nsamp = 13000000;
    const QStringList boxes = boxesOf([&] { QCOMPARE(fixture.window->loadSegyFile(parm), 0); });
    QCOMPARE(boxes.size(), 2);
    QVERIFY2(boxes[0].startsWith("SEGY Memory: One trace of this file would need about"), qPrintable(boxes[0]));
    QVERIFY(boxes[1].startsWith("SEGY Load Error: "));
    expectFirstRecordOf(&fixture);
}

void SegyMemoryWindowTest::aTraceAByteWithAnIndexLeavesTheOldFile()
{
    SegyBuilder bytewise(1, 6);
    bytewise.bytes.resize(3600 + (size_t(4) << 20));
    SegyLoadParm parm;
    parm.files = QString::fromStdString(bytewise.save((_folder.path() + "/bytewise.sgy").toStdString()));
    parm.ivariable = 1;
    parm.indexbuilt = 1;
    WindowFixture fixture;
    QCOMPARE(fixture.open(_file), 1);
    const QStringList boxes = boxesOf([&] { QCOMPARE(fixture.window->loadSegyFile(parm), 0); });
    QCOMPARE(boxes.size(), 2);
    QVERIFY2(boxes[0].startsWith("SEGY Memory: The index map of this file would need about"), qPrintable(boxes[0]));
    expectFirstRecordOf(&fixture);
}

void SegyMemoryWindowTest::noMemoryForTheDisplayBringsTheOldFileBack()
{
    SegyLoadParm parm;
    parm.files = _large;
    parm.isort = 5;  // all traces in one record
    int nFailed = 0;
    for (int passing = 0; passing < 10; ++passing) {
        for (int indexbuilt : {0, 1}) {
            WindowFixture fixture;
            QCOMPARE(fixture.open(_file, 0, indexbuilt), 1);
            fixture.window->display()->seismicPlot()->applyAGC(true, 100);  // a conditioned copy besides
            bool hasFailed = false;
            const QStringList boxes = boxesOf([&] {
                const ShortOfMemory memory(passing);
                fixture.window->loadSegyFile(parm);
                hasFailed = memory.hasFailed();
            });
            if (!hasFailed) continue;
            ++nFailed;
            QVERIFY2(boxes.value(0).startsWith("SEGY Memory: There is not enough memory"), qPrintable(boxes.join("|")));
            expectFirstRecordOf(&fixture);
        }
    }
    QVERIFY(nFailed >= 4);  // the display's copy and the conditioned one, at least
}

void SegyMemoryWindowTest::noMemoryForTheNextRecordLeavesTheOneOnScreen()
{
    for (int passing = 0; passing < 2; ++passing) {
        WindowFixture fixture;
        QCOMPARE(fixture.open(_large), 1);
        QCOMPARE(fixture.traces(), 1);
        fixture.window->display()->seismicPlot()->applyAGC(true, 100);  // a conditioned copy besides
        const QStringList boxes = boxesOf([&] {
            const ShortOfMemory memory(passing);
            fixture.window->nextRecord();
        });
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(fixture.traces(), 1);
        QCOMPARE(fixture.shownKey(), QString("FFID :1"));
        fixture.window->nextRecord();
        QCOMPARE(fixture.traces(), 2000);
        QCOMPARE(fixture.shownKey(), QString("FFID :2"));
    }
}

void SegyMemoryWindowTest::withoutAnOldFileNothingIsShown()
{
    WindowFixture fixture;
    SegyLoadParm parm;
    parm.files = _large;
    parm.isort = 5;
    const QStringList boxes = boxesOf([&] {
        const ShortOfMemory memory(0);
        QCOMPARE(fixture.window->loadSegyFile(parm), 0);
    });
    QCOMPARE(boxes.size(), 1);
    QVERIFY(!fixture.window->segyLoader());
    QCOMPARE(fixture.open(_file), 1);
    expectFirstRecordOf(&fixture);
}

QTEST_MAIN(SegyMemoryWindowTest)
#include "segymemorywindowtest.moc"
