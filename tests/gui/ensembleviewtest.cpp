/// What tools of higher floors learn of a display, and when: its view, its registers, and its interfaces to them.
#include "display/ensembleview.h"
#include "display/images/imagestorage.h"
#include "display/seismicplot.h"
#include "display/tools/displaypicker.h"
#include "display/tools/headerstrip.h"
#include "display/tools/velocityoverlay.h"
#include "tests/gui/imagefixture.h"
#include "tracedata/seismicdata.h"

#include <QMenu>
#include <qwt_plot_curve.h>
#include <qwt_scale_draw.h>

#include <cstring>

class EnsembleViewTest : public QObject
{
    Q_OBJECT

private slots:
    void tracesKeysAndPositionsGoThereAndBack();
    void beforeTheFirstEnsembleThereIsNothing();
    void headerWordsAreFoundByName();
    void aPositionHasItsTraceAndSample();
    void anEnsembleIsToldBeforeItLeavesAndWhenTheNextIsShown();
    void theEndOfTheDataAndAnOverlayLeaveTheEnsemble();
    void clearingTheDataIsALeave();
    void aRebuildIsTold();
    void aTapChangesThePictureAndNotTheData();
    void tapsHearTheTracesInTheirOrder();
    void hooksChangeTheWordsBeforeTheCopy();
    void theContextMenuIsMadeOfItsEntries();
    void withoutEntriesThereIsNoContextMenu();
    void aHeaderStripFollowsTheDisplay();
    void aHeaderStripIsAsWideAsTheDisplay();
    void aPickerHearsOfItsModeAndOfEachEnsemble();
    void clicksOfVelocityPickingAddAndRemoveMarks();
    void aDoubleClickEditsAMark();
    void withoutPanelsNoVelocityIsPicked();
    void theReadOutTellsVelocitiesWhileTheyArePicked();
    void aTiedPictureFollowsTheMouse();
    void aCurveOverTheTraces();
};

/// Waits until a single click can't become a double one any more.
static void letTheClickAct(const std::function<bool()>& isDone)
{
    QVERIFY(QTest::qWaitFor(isDone));
}

void EnsembleViewTest::tracesKeysAndPositionsGoThereAndBack()
{
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    f.load(ensemble);
    const EnsembleView& view = f[0]->view();
    QCOMPARE(view.traceCount(), 20);
    QCOMPARE(view.sampleRate(), 4.0);
    QCOMPARE(view.data().getTraceValues(3, 0)[7], 3007.0f);
    QCOMPARE(view.primary().values[1], 7.0f);
    QCOMPARE(view.xOfTrace(3), 4.0);
    QCOMPARE(view.traceAt(4.4), 3);
    QCOMPARE(view.traceAt(0.3), -1);
    QCOMPARE(view.keyOfTrace(3), 104.0f);
    QCOMPARE(view.traceOfKey(104.0f), 3);
    QCOMPARE(view.traceOfKey(999.0f), -1);
    QCOMPARE(view.keyOfTrace(20), 0.0f);
    QVERIFY(!view.isRightToLeft());
    f[0]->setPlotDirection(RightToLeft);
    QVERIFY(view.isRightToLeft());
    QCOMPARE(view.xOfTrace(3), 17.0);
    QCOMPARE(view.traceAt(17.0), 3);
    QCOMPARE(view.keyOfTrace(3), 104.0f);
    QCOMPARE(view.secondary().values[17], 104.0f);
    QCOMPARE(view.traceOfKey(104.0f), 3);
}

void EnsembleViewTest::beforeTheFirstEnsembleThereIsNothing()
{
    DisplayFixture f;
    const EnsembleView& view = f[0]->view();
    QCOMPARE(view.traceCount(), 0);
    QCOMPARE(view.data().traceCount(), 0);
    QCOMPARE(view.traceAt(1.0), -1);
    QCOMPARE(view.keyOfTrace(0), 0.0f);
    QCOMPARE(view.traceOfKey(0.0f), -1);
    QCOMPARE(view.word("CHAN    ", 0), 0.0);
    QVERIFY(view.plot() == f[0]);
}

void EnsembleViewTest::headerWordsAreFoundByName()
{
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    for (int i = 0; i < 20; ++i) {
        const float x = 1000.5f + i;
        std::memcpy(&ensemble.words[i][standardWordIndex("CDP_X   ")], &x, sizeof x);
    }
    f.load(ensemble);
    QCOMPARE(f[0]->view().word("CHAN    ", 4), 105.0);
    QCOMPARE(f[0]->view().word("CDP_X   ", 4), 1004.5);
    QCOMPARE(f[0]->view().word("CHAN    ", 20), 0.0);
    QCOMPARE(f[0]->view().word("no word ", 4), 0.0);
}

void EnsembleViewTest::aPositionHasItsTraceAndSample()
{
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    f.load(ensemble);
    const ReadoutPosition at = f[0]->view().positionAt(QPointF(5.2, 402.0));
    QCOMPARE(at.trace, 4);
    QCOMPARE(at.sample, 100);
    QVERIFY(at.isInside);
}

void EnsembleViewTest::anEnsembleIsToldBeforeItLeavesAndWhenTheNextIsShown()
{
    DisplayFixture f;
    TestEnsemble first(20, 500), second(30, 500);
    QStringList log;
    const EnsembleView& view = f[0]->view();
    connect(&view, &EnsembleView::ensembleLeaving, this, [&] { log += QString("leaving %1").arg(view.traceCount()); });
    connect(&view, &EnsembleView::ensembleShown, this, [&] { log += QString("shown %1").arg(view.traceCount()); });
    f.load(first);
    QCOMPARE(log, QStringList({"shown 20"}));
    f.load(second);
    QCOMPARE(log, QStringList({"shown 20", "leaving 20", "shown 30"}));
}

void EnsembleViewTest::theEndOfTheDataAndAnOverlayLeaveTheEnsemble()
{
    DisplayFixture f;
    TestEnsemble ensemble(20, 500), none(0, 500);
    f.load(ensemble);
    QSignalSpy leaving(&f[0]->view(), &EnsembleView::ensembleLeaving);
    QSignalSpy shown(&f[0]->view(), &EnsembleView::ensembleShown);
    f.load(none);
    f[0]->setOverlayMode(true);
    f.load(ensemble);
    QVERIFY(f[0]->overlayPlot());
    QCOMPARE(leaving.count() + shown.count(), 0);
}

void EnsembleViewTest::clearingTheDataIsALeave()
{
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    QVector<int> counts;
    connect(&f[0]->view(), &EnsembleView::ensembleLeaving, this, [&] { counts += f[0]->view().data().traceCount(); });
    f[0]->clearData();
    QCOMPARE(counts, QVector<int>());  // nothing was there
    f.load(ensemble);
    f[0]->clearData();
    QCOMPARE(counts, QVector<int>({20}));
}

void EnsembleViewTest::aRebuildIsTold()
{
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    f.load(ensemble);
    QSignalSpy rebuilt(&f[0]->view(), &EnsembleView::rebuilt);
    f[0]->rePlot();
    QCOMPARE(rebuilt.count(), 0);
    f[0]->rebuildPlot();
    QCOMPARE(rebuilt.count(), 1);
    f[0]->rebuildDisplay(false);
    QCOMPARE(rebuilt.count(), 2);
}

/// Traces of a slow wave between -1 and 1.
static void setWaves(TestEnsemble* ensemble)
{
    for (size_t i = 0; i < ensemble->samples.size(); ++i)
        for (size_t j = 0; j < ensemble->samples[i].size(); ++j)
            ensemble->samples[i][j] = float(std::sin(0.1 * double(j) + double(i)));
}

/// Silences traces 5 to 9 down to sample 199.
struct MuteTap : TraceTap {
    bool changesTraces() const override { return true; }
    void changeTrace(float* trace, int start, int n, int tr) override
    {
        for (int i = 0; i < n && tr >= 5 && tr < 10; ++i)
            if (start + i < 200) trace[i] = 0.0f;
    }
    void pickTraceChange(const float* trace, int, int, int tr) override
    {
        heard.append(tr);
        firsts.append(trace[0]);
    }
    QVector<int> heard;
    QVector<float> firsts;
};

void EnsembleViewTest::aTapChangesThePictureAndNotTheData()
{
    DisplayFixture f(2);
    TestEnsemble ensemble(20, 500), muted(20, 500);
    setWaves(&ensemble);
    setWaves(&muted);
    for (int i = 5; i < 10; ++i) std::fill_n(muted.samples[i].begin(), 200, 0.0f);
    for (SeismicDisplay* display : qAsConst(f.displays)) display->seismicPlot()->setNormalization(Normalize::None);
    f.load(ensemble, 0);
    f.load(muted, 1);
    const QImage before = ImageFixture::canvas(f[0]), wanted = ImageFixture::canvas(f[1]);
    QVERIFY(before != wanted);
    MuteTap mute;
    f[0]->view().taps().add(&mute, TraceTaps::Mutes);
    f[0]->rePlot();
    QVERIFY(ImageFixture::canvas(f[0]) == wanted);
    for (int j = 0; j < 500; ++j) QCOMPARE(f[0]->view().data().getTraceValues(7, 0)[j], ensemble.samples[7][j]);
    f[0]->view().taps().remove(&mute);
    f[0]->rePlot();
    QVERIFY(ImageFixture::canvas(f[0]) == before);
}

void EnsembleViewTest::tapsHearTheTracesInTheirOrder()
{
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    setWaves(&ensemble);
    f.load(ensemble);
    MuteTap mute;
    f[0]->view().taps().add(&mute, TraceTaps::Mutes);
    f[0]->rePlot();
    ImageFixture::canvas(f[0]);
    QVERIFY(mute.heard.size() >= 20);
    for (int i = 0; i < 20; ++i) {
        QCOMPARE(mute.heard[i], i);
        QCOMPARE(mute.firsts[i], i >= 5 && i < 10 ? 0.0f : ensemble.samples[i][0]);
    }
}

/// Gives the traces other channels.
struct RenumberHook : BatchHook {
    void changeHeaders(int** heads, int n, int nWords) override
    {
        ++nCalls;
        words = nWords;
        for (int i = 0; i < n; ++i) heads[i][standardWordIndex("CHAN    ")] += 400;
    }
    int nCalls = 0, words = 0;
};

void EnsembleViewTest::hooksChangeTheWordsBeforeTheCopy()
{
    DisplayFixture f;
    f.menu->_orvinruntime.nth = standardWordCount;
    f[0]->setMenu(f.menu.get());
    TestEnsemble ensemble(20, 500), overlay(20, 500), none(0, 500);
    RenumberHook hook;
    f[0]->view().batchHooks().add(&hook, BatchHooks::Geometry);
    f.load(ensemble);
    QCOMPARE(hook.nCalls, 1);
    QCOMPARE(hook.words, int(standardWordCount));
    QCOMPARE(f[0]->view().keyOfTrace(3), 504.0f);
    QCOMPARE(ensemble.words[3][standardWordIndex("CHAN    ")], 504);  // the reader's own, too
    f.load(none);
    QCOMPARE(hook.nCalls, 1);
    f[0]->loadOverlayData(overlay.traces.data(), overlay.headers.data(), 20, true);
    QCOMPARE(hook.nCalls, 2);
    f[0]->view().batchHooks().remove(&hook);
    TestEnsemble next(20, 500);
    f.load(next);
    QCOMPARE(f[0]->view().keyOfTrace(3), 104.0f);
}

/// One entry that tells where the menu was opened.
struct PlaceEntry : ContextEntries {
    explicit PlaceEntry(const QString& name) : name(name) {}
    void addEntries(QMenu* menu, const QPoint& pos) override
    {
        QObject::connect(menu->addAction(name), &QAction::triggered, menu, [this, pos] { chosen = pos; });
    }
    QString name;
    QPoint chosen;
};

void EnsembleViewTest::theContextMenuIsMadeOfItsEntries()
{
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    f.load(ensemble);
    PlaceEntry horizons("Horizons"), goTo("GoTo 7");
    f[0]->contextMenu().add(&horizons, 200);
    f[0]->contextMenu().add(&goTo, 100);
    QVERIFY(f.control.currentMessage().endsWith(",   SHFT MB3: context menu"));
    const QPoint at(120, 90);
    QTest::mouseClick(f[0]->canvas(), Qt::RightButton, Qt::ShiftModifier, at);
    auto* menu = f[0]->canvas()->findChild<QMenu*>("contextMenu");
    QVERIFY(menu);
    QTRY_VERIFY(menu->isVisible());
    QCOMPARE(menu->actions().size(), 2);
    QCOMPARE(menu->actions()[0]->text(), QString("GoTo 7"));
    QCOMPARE(menu->actions()[1]->text(), QString("Horizons"));
    QCOMPARE(menu->pos(), f[0]->canvas()->mapToGlobal(at) - QPoint(30, 10));
    menu->actions()[0]->trigger();
    QCOMPARE(goTo.chosen, at);
    QCOMPARE(horizons.chosen, QPoint());
    menu->close();
    QTRY_VERIFY(!f[0]->canvas()->findChild<QMenu*>("contextMenu"));
}

void EnsembleViewTest::withoutEntriesThereIsNoContextMenu()
{
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    f.load(ensemble);
    PlaceEntry entry("GoTo 7");
    QTest::mouseClick(f[0]->canvas(), Qt::RightButton, Qt::ShiftModifier, {120, 90});
    QVERIFY(!f[0]->canvas()->findChild<QMenu*>("contextMenu"));
    f[0]->contextMenu().add(&entry, 100);
    QTest::mouseClick(f[0]->canvas(), Qt::RightButton, Qt::NoModifier, {120, 90});
    QVERIFY(!f[0]->canvas()->findChild<QMenu*>("contextMenu"));
    f[0]->contextMenu().remove(&entry);
    QVERIFY(!f.control.currentMessage().contains("context menu"));
    QTest::mouseClick(f[0]->canvas(), Qt::RightButton, Qt::ShiftModifier, {120, 90});
    QVERIFY(!f[0]->canvas()->findChild<QMenu*>("contextMenu"));
}

/// Writes down what the display tells it.
struct Strip : HeaderStrip {
    QwtPlot* stripPlot() override { return &plot; }
    void updateCurves(const float* values, int n, char type, const QString& name) override
    {
        labels = QVector<float>(values + 1, values + 1 + n);
        this->type = type;
        this->name = name.trimmed();
    }
    void setTraceIncrement(double step) override { this->step = step; }
    void setZoom(const QRectF& rect) override { zoom = rect; }
    void resetZoom() override { ++nResets; }
    void replotStrip() override { ++nReplots; }
    QwtPlot plot;
    QVector<float> labels;
    char type = ' ';
    QString name;
    double step = 0.0;
    QRectF zoom;
    int nResets = 0, nReplots = 0;
};

void EnsembleViewTest::aHeaderStripFollowsTheDisplay()
{
    DisplayFixture f;
    Strip strip;
    f[0]->setHeaderStrip(&strip);
    TestEnsemble ensemble(20, 500);
    f.load(ensemble);
    QCOMPARE(strip.labels.size(), 20);
    QCOMPARE(strip.labels[3], 104.0f);
    QCOMPARE(strip.name, QString("CHAN"));
    QCOMPARE(strip.type, 'I');
    QCOMPARE(strip.step, double(f[0]->traceIncrement()));
    f[0]->setTraceIncrement(2.0f);
    QCOMPARE(strip.step, 2.0);
    const int nReplots = strip.nReplots;
    f[0]->rePlot();
    QCOMPARE(strip.nReplots, nReplots + 1);
    f[0]->setZoomRect(QRectF(4.0, 400.0, 8.0, 600.0));
    QCOMPARE(strip.zoom, QRectF(4.0, 400.0, 8.0, 600.0));
    const int nResets = strip.nResets;
    f[0]->rebuildDisplay(false);
    QCOMPARE(strip.nResets, nResets + 1);
    f[0]->setPlotDirection(RightToLeft);
    QCOMPARE(strip.labels[3], 117.0f);
    f[0]->setHeaderStrip(nullptr);
    f[0]->setPlotDirection(LeftToRight);
    QCOMPARE(strip.labels[3], 117.0f);
}

void EnsembleViewTest::aHeaderStripIsAsWideAsTheDisplay()
{
    DisplayFixture f;
    Strip strip;
    strip.plot.setAxisScale(QwtPlot::yLeft, 0.0, 123456789.0);
    strip.plot.updateAxes();
    const auto extent = [](QwtPlot* plot) {
        return plot->axisScaleDraw(QwtPlot::yLeft)->extent(plot->axisFont(QwtPlot::yLeft));
    };
    const double wide = extent(&strip.plot);
    QVERIFY(extent(f[0]) < wide);
    f[0]->setHeaderStrip(&strip);
    TestEnsemble ensemble(20, 500);
    f.load(ensemble);
    QCOMPARE(extent(f[0]), wide);
    QCOMPARE(extent(&strip.plot), wide);
}

struct HeaderPicker : DisplayPicker {
    void enable(bool on) override { told.append(on ? "on" : "off"); }
    void updateHeaders() override { told.append("ensemble"); }
    QStringList told;
};

void EnsembleViewTest::aPickerHearsOfItsModeAndOfEachEnsemble()
{
    DisplayFixture f;
    HeaderPicker picker;
    f[0]->pickers()[Picker::Headers].setPicker(&picker);
    TestEnsemble ensemble(20, 500), none(0, 500);
    f.load(ensemble);
    f[0]->setHPicker(true);
    f[0]->setHPicker(true);
    f.load(ensemble);
    f.load(none);
    f[0]->showDisplay(1);
    QCOMPARE(picker.told, QStringList({"ensemble", "on", "ensemble", "off"}));
    f[0]->pickers()[Picker::Headers].setPicker(nullptr);
    f[0]->setHPicker(true);
    QCOMPARE(picker.told.size(), 4);
}

/// Marks that are only counted.
struct Marks : VelocityOverlay {
    bool isFileLoaded() const override { return isLoaded; }
    VelocityReadout readout(const QPointF&, int trace, int sample) const override
    {
        return {0.0f, float(1000 + trace), float(2000 + sample)};
    }
    void addPlot(const VelocityClick& click) override { added.append(click); }
    void removePlot(const QPointF& at) override { removed.append(at); }
    void editPlot(const QPointF& at) override { edited.append(at); }
    void performTie(int image) override { tied.append(image); }
    bool isLoaded = true;
    QVector<VelocityClick> added;
    QVector<QPointF> removed, edited;
    QVector<int> tied;
};

/// Velocity picking on 20 traces, whose CDP is 300 and their channel.
struct VelocityFixture : DisplayFixture {
    Marks marks;
    TestEnsemble ensemble{20, 500};

    VelocityFixture()
    {
        for (int i = 0; i < 20; ++i) ensemble.words[i][standardWordIndex("CDP     ")] = 401 + i;
        load(ensemble);
        displays[0]->setVelocityOverlay(&marks);
        displays[0]->setVelPicker(true);
    }
    /// The pixel of a trace, from 0, at a time.
    QPoint pixel(int trace, double ms)
    {
        return QPoint(qRound(displays[0]->canvasMap(QwtPlot::xTop).transform(trace + 1.0)),
                      qRound(displays[0]->canvasMap(QwtPlot::yLeft).transform(ms)));
    }
    void click(const QPoint& at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(displays[0]->canvas(), button, modifiers, at);
    }
};

void EnsembleViewTest::clicksOfVelocityPickingAddAndRemoveMarks()
{
    VelocityFixture f;
    const QPoint at = f.pixel(6, 1000.0);
    f.click(at, Qt::LeftButton);
    QCOMPARE(f.marks.added.size(), 0);  // it may become a double click
    letTheClickAct([&] { return f.marks.added.size() == 1; });
    const VelocityClick& click = f.marks.added.first();
    QCOMPARE(click.trace, 6);
    QCOMPARE(click.cdp, 407.0f);
    QCOMPARE(click.at.x(), f[0]->canvasMap(QwtPlot::xTop).invTransform(at.x()));
    QCOMPARE(click.sample, int(click.at.y() / 4.0));
    QVERIFY(qAbs(click.at.y() - 1000.0) < 4.0);  // a pixel
    f.click(f.pixel(9, 500.0), Qt::RightButton);
    letTheClickAct([&] { return f.marks.removed.size() == 1; });
    QVERIFY(qAbs(f.marks.removed.first().x() - 10.0) < 0.05);
    QVERIFY(!f[0]->isZoomed());
    f.click(at, Qt::LeftButton, Qt::ShiftModifier);
    f[0]->setVelPicker(false);
    f.click(at, Qt::LeftButton);
    f[0]->setVelPicker(true);
    f.click(f.pixel(9, 500.0), Qt::RightButton);
    letTheClickAct([&] { return f.marks.removed.size() == 2; });
    QCOMPARE(f.marks.added.size(), 1);
}

void EnsembleViewTest::aDoubleClickEditsAMark()
{
    VelocityFixture f;
    f.click(f.pixel(6, 1000.0), Qt::LeftButton);
    QTest::mouseDClick(f[0]->canvas(), Qt::LeftButton, Qt::NoModifier, f.pixel(6, 1000.0));
    QCOMPARE(f.marks.edited.size(), 1);
    QVERIFY(qAbs(f.marks.edited.first().x() - 7.0) < 0.05);
    f.click(f.pixel(9, 500.0), Qt::RightButton);
    letTheClickAct([&] { return f.marks.removed.size() == 1; });
    QCOMPARE(f.marks.added.size(), 0);  // its first click was no click
}

/// Takes the boxes of a display.
struct BoxReport : PrintReport {
    void box(const std::string& title, const std::string& text) override
    {
        boxes.append(QString::fromStdString(title + ": " + text));
    }
    QStringList boxes;
};

struct BoxHost : TestHost {
    Report& report() override { return boxes; }
    BoxReport boxes;
};

void EnsembleViewTest::withoutPanelsNoVelocityIsPicked()
{
    VelocityFixture f;
    BoxHost host;
    SeismicDisplay display(nullptr, "Main Display", nullptr, nullptr, true, true, 0, &host);
    display.setColorBar(&f.bar);
    display.setMenu(f.menu.get());
    display.resize(600, 500);
    display.show();
    display.loadSeismicData(f.ensemble.traces.data(), f.ensemble.headers.data(), 20, true);
    f.marks.isLoaded = false;
    display.setVelocityOverlay(&f.marks);
    display.setVelPicker(true);
    QTest::mouseClick(display.canvas(), Qt::LeftButton, Qt::NoModifier, {100, 100});
    QTRY_COMPARE(host.boxes.boxes,
                 QStringList({"CVS Velocity Error: Please load a PVL file before picking CVS velocities."}));
    QCOMPARE(f.marks.added.size(), 0);
}

void EnsembleViewTest::theReadOutTellsVelocitiesWhileTheyArePicked()
{
    VelocityFixture f;
    const QPoint at = f.pixel(6, 1000.0);
    const int sample = int(f[0]->canvasMap(QwtPlot::yLeft).invTransform(at.y()) / 4.0);
    const QString told = QString("  Computed Vel: 1006  Interp Vel: %1").arg(2000 + sample);
    QVERIFY2(f[0]->readoutAt(at).endsWith(told), qPrintable(f[0]->readoutAt(at)));
    f[0]->setVelPicker(false);
    QVERIFY(!f[0]->readoutAt(at).contains("Vel"));
}

void EnsembleViewTest::aTiedPictureFollowsTheMouse()
{
    ImageFixture f;
    for (int i = 0; i < 3; ++i) f.next();
    Marks marks;
    f[0]->setVelocityOverlay(&marks);
    f[0]->showImage(0);
    ImageFixture::wheel(f[0], 120);
    QCOMPARE(marks.tied, QVector<int>());  // velocities aren't picked
    f[0]->setVelPicker(true);
    ImageFixture::wheel(f[0], 120);
    QCOMPARE(marks.tied, QVector<int>({2}));
}

/// A curve as a later tool may draw it: the first sample of each trace, in ms, across the traces.
class FirstSampleCurve : public QObject
{
public:
    explicit FirstSampleCurve(EnsembleView* view) : _view(view)
    {
        curve.setAxes(QwtPlot::xTop, QwtPlot::yLeft);
        curve.attach(view->plot());
        connect(view, &EnsembleView::ensembleLeaving, this, [this] { curve.setSamples(QVector<QPointF>()); });
        connect(view, &EnsembleView::ensembleShown, this, &FirstSampleCurve::follow);
        connect(view, &EnsembleView::rebuilt, this, &FirstSampleCurve::follow);
    }
    QwtPlotCurve curve;

private:
    void follow()
    {
        QVector<QPointF> points;
        for (int i = 0; i < _view->traceCount(); ++i)
            points.append(QPointF(_view->xOfTrace(i), double(_view->data().getTraceValues(i, 0)[0])));
        curve.setSamples(points);
        _view->plot()->replot();
    }
    EnsembleView* _view;
};

void EnsembleViewTest::aCurveOverTheTraces()
{
    DisplayFixture f;
    FirstSampleCurve line(&f[0]->view());
    TestEnsemble ensemble(20, 500);
    for (int i = 0; i < 20; ++i) ensemble.samples[i][0] = 100.0f * i;
    f.load(ensemble);
    QCOMPARE(line.curve.dataSize(), size_t(20));
    QCOMPARE(line.curve.sample(3), QPointF(4.0, 300.0));
    f[0]->setPlotDirection(RightToLeft);
    f[0]->rebuildPlot();
    QCOMPARE(line.curve.sample(3), QPointF(17.0, 300.0));
    f[0]->clearData();
    QCOMPARE(line.curve.dataSize(), size_t(0));
}

QTEST_MAIN(EnsembleViewTest)
#include "ensembleviewtest.moc"
