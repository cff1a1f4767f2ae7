/// Who has the mouse on a canvas: the active tool, those that are always asked, and the base tool.
#include "display/ensembleview.h"
#include "display/tools/boxtool.h"
#include "display/tools/canvastools.h"
#include "tests/gui/displayfixture.h"

#include <qwt_scale_map.h>

#include <functional>

/// Writes down what it is told, and keeps the events that it is asked to.
struct Recorder : CanvasTool {
    Recorder(const QString& name, QStringList* log) : name(name), log(log) {}
    bool canvasEvent(QWidget*, QEvent* event) override
    {
        if (event->type() == QEvent::MouseButtonPress) log->append(name + " press");
        if (event->type() == QEvent::MouseButtonRelease) log->append(name + " release");
        return event->type() == keeps;
    }
    void enter() override { log->append(name + " enters"); }
    void leave() override { log->append(name + " leaves"); }
    QString name;
    QStringList* log;
    QEvent::Type keeps = QEvent::None;
};

/// A canvas with three tools: one that zooms, one that is always asked, one that may become active.
struct ToolFixture {
    QWidget canvas;
    CanvasTools tools{&canvas};
    QStringList log;
    Recorder base{"base", &log}, always{"always", &log}, active{"active", &log}, other{"other", &log};

    ToolFixture()
    {
        canvas.resize(100, 100);
        tools.watchCanvas();
        tools.setBase(&base);
        tools.addAlways(&always, CanvasTools::Readout);
    }
    QStringList heard(const std::function<void()>& act)
    {
        log.clear();
        act();
        return log;
    }
    void press() { QTest::mousePress(&canvas, Qt::LeftButton, Qt::NoModifier, {10, 10}); }
    void release() { QTest::mouseRelease(&canvas, Qt::LeftButton, Qt::NoModifier, {10, 10}); }
};

class CanvasToolTest : public QObject
{
    Q_OBJECT

private slots:
    void theActiveToolIsAskedFirstAndTheBaseLast();
    void thoseAlwaysAskedHaveTheirOrder();
    void whoKeepsAnEventEndsTheRound();
    void theReleaseGoesToWhoKeptThePress();
    void aReleaseThatWentAstrayKeepsNothingBack();
    void eachIsToldWhenItEntersAndLeaves();
    void aBorrowedCanvasComesBack();
    void aBorrowedCanvasThatAnotherHasTakenStaysThere();
    void aToolThatHasGoneLeavesTheCanvasToTheBase();
    void whoShowsTheActiveToolHearsThatItHasGone();
    void aToolMayGoInItsOwnEvent();
    void aDisplayZoomsAgainWhenItsToolHasGone();
    void aDisplayGoesWithOneOfItsOwnToolsActive();
    void aToolOutlivesItsDisplay();
    void aPickersModeHandsTheMouseToItsHandler();
    void aBoxIsToldInTracesAndTimes_data();
    void aBoxIsToldInTracesAndTimes();
    void leavingTheBoxToolDropsABoxThatIsBeingDrawn();
    void aToolWithAMouseModeOfItsOwn();
};

void CanvasToolTest::theActiveToolIsAskedFirstAndTheBaseLast()
{
    ToolFixture f;
    QCOMPARE(f.heard([&] { f.press(); }), QStringList({"always press", "base press"}));
    f.tools.setTool(&f.active);
    QVERIFY(f.tools.tool() == &f.active);
    QCOMPARE(f.heard([&] { f.release(); }), QStringList({"active release", "always release", "base release"}));
    f.tools.setTool(nullptr);
    QVERIFY(f.tools.tool() == &f.base);
}

void CanvasToolTest::thoseAlwaysAskedHaveTheirOrder()
{
    ToolFixture f;
    Recorder pictures("pictures", &f.log), menu("menu", &f.log);
    f.tools.addAlways(&menu, CanvasTools::Menu);
    f.tools.addAlways(&pictures, CanvasTools::StoredPictures);
    QCOMPARE(f.heard([&] { f.press(); }), QStringList({"pictures press", "menu press", "always press", "base press"}));
}

void CanvasToolTest::whoKeepsAnEventEndsTheRound()
{
    ToolFixture f;
    f.tools.setTool(&f.active);
    f.always.keeps = QEvent::MouseButtonPress;
    QCOMPARE(f.heard([&] { f.press(); }), QStringList({"active press", "always press"}));
    f.release();
    f.active.keeps = QEvent::MouseButtonPress;
    QCOMPARE(f.heard([&] { f.press(); }), QStringList({"active press"}));
}

void CanvasToolTest::theReleaseGoesToWhoKeptThePress()
{
    ToolFixture f;
    f.tools.setTool(&f.active);
    f.active.keeps = QEvent::MouseButtonPress;
    f.press();
    f.tools.setTool(&f.other);
    QCOMPARE(f.heard([&] { f.release(); }), QStringList({"active release"}));
    QCOMPARE(f.heard([&] { f.press(); }).first(), QString("other press"));
    f.release();
    {
        Recorder gone("gone", &f.log);
        gone.keeps = QEvent::MouseButtonPress;
        f.tools.setTool(&gone);
        f.press();
    }
    QCOMPARE(f.heard([&] { f.release(); }), QStringList());  // nobody is to see half a click
    QCOMPARE(f.heard([&] { f.press(); }), QStringList({"always press", "base press"}));
}

void CanvasToolTest::aReleaseThatWentAstrayKeepsNothingBack()
{
    ToolFixture f;
    f.tools.setTool(&f.active);
    f.active.keeps = QEvent::MouseButtonPress;
    f.press();
    f.tools.setTool(nullptr);
    f.press();
    QCOMPARE(f.heard([&] { f.release(); }), QStringList({"always release", "base release"}));
}

void CanvasToolTest::eachIsToldWhenItEntersAndLeaves()
{
    ToolFixture f;
    QSignalSpy changed(&f.tools, &CanvasTools::toolChanged);
    QCOMPARE(f.heard([&] { f.tools.setTool(&f.active); }), QStringList({"active enters"}));
    QCOMPARE(f.heard([&] { f.tools.setTool(&f.active); }), QStringList());  // it is there already
    QCOMPARE(f.heard([&] { f.tools.setTool(&f.other); }), QStringList({"active leaves", "other enters"}));
    QCOMPARE(f.heard([&] { f.tools.endTool(&f.active); }), QStringList());  // another one's canvas
    QCOMPARE(changed.count(), 3);
    QCOMPARE(f.heard([&] { f.tools.endTool(&f.other); }), QStringList({"other leaves"}));
    QCOMPARE(changed.count(), 4);
}

void CanvasToolTest::aBorrowedCanvasComesBack()
{
    ToolFixture f;
    f.tools.setTool(&f.active);
    f.tools.borrow(&f.other);
    QVERIFY(f.tools.tool() == &f.other);
    f.tools.giveBack(&f.other);
    QVERIFY(f.tools.tool() == &f.active);
    f.tools.setTool(nullptr);
    f.tools.borrow(&f.other);
    f.tools.giveBack(&f.other);
    QVERIFY(f.tools.tool() == &f.base);
}

void CanvasToolTest::aBorrowedCanvasThatAnotherHasTakenStaysThere()
{
    ToolFixture f;
    f.tools.borrow(&f.other);
    f.tools.setTool(&f.active);
    f.tools.giveBack(&f.other);
    QVERIFY(f.tools.tool() == &f.active);
}

void CanvasToolTest::aToolThatHasGoneLeavesTheCanvasToTheBase()
{
    ToolFixture f;
    {
        Recorder gone("gone", &f.log);
        f.tools.setTool(&gone);
        f.tools.borrow(&f.other);
    }
    f.tools.giveBack(&f.other);
    QVERIFY(f.tools.tool() == &f.base);
    {
        Recorder gone("gone", &f.log);
        f.tools.setTool(&gone);
    }
    QVERIFY(f.tools.tool() == &f.base);
    QCOMPARE(f.heard([&] { f.press(); }), QStringList({"always press", "base press"}));
}

void CanvasToolTest::whoShowsTheActiveToolHearsThatItHasGone()
{
    QVector<const CanvasTool*> shown;
    ToolFixture f;
    connect(&f.tools, &CanvasTools::toolChanged, this, [&] { shown.append(f.tools.tool()); });
    auto gone = std::make_unique<Recorder>("gone", &f.log);
    f.tools.setTool(gone.get());
    QCOMPARE(shown, QVector<const CanvasTool*>({gone.get()}));
    const CanvasTool* const was = gone.get();
    gone.reset();
    QCOMPARE(shown, QVector<const CanvasTool*>({was, &f.base}));
    // One that isn't active any more is nobody's business.
    auto former = std::make_unique<Recorder>("former", &f.log);
    f.tools.setTool(former.get());
    f.tools.setTool(&f.other);
    shown.clear();
    former.reset();
    QVERIFY(shown.isEmpty());
    QVERIFY(f.tools.tool() == &f.other);
}

/// Ends itself with the first press, as a tool that takes one point may.
struct OnePress : CanvasTool {
    bool canvasEvent(QWidget*, QEvent* event) override
    {
        if (event->type() != QEvent::MouseButtonPress) return false;
        delete this;
        return true;
    }
};

void CanvasToolTest::aToolMayGoInItsOwnEvent()
{
    QVector<const CanvasTool*> shown;
    ToolFixture f;
    f.tools.setTool(new OnePress);
    connect(&f.tools, &CanvasTools::toolChanged, this, [&] { shown.append(f.tools.tool()); });
    QCOMPARE(f.heard([&] { f.press(); }), QStringList());  // the press was its
    QCOMPARE(shown, QVector<const CanvasTool*>({&f.base}));
    QCOMPARE(f.heard([&] { f.release(); }), QStringList());  // nobody is to see half a click
    QCOMPARE(f.heard([&] { f.press(); }), QStringList({"always press", "base press"}));
}

void CanvasToolTest::aPickersModeHandsTheMouseToItsHandler()
{
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    f.load(ensemble);
    QStringList log;
    Recorder picks("picks", &log);
    picks.keeps = QEvent::MouseButtonPress;
    f[0]->pickers()[Picker::Gates].setHandler(&picks);
    QTest::mouseClick(f[0]->canvas(), Qt::LeftButton, Qt::NoModifier, {100, 100});
    QCOMPARE(log, QStringList());
    f[0]->setGatPicker(true);
    QVERIFY(f.control.currentMessage().endsWith("   Trevia picking is on"));
    QTest::mouseClick(f[0]->canvas(), Qt::LeftButton, Qt::NoModifier, {100, 100});
    f[0]->setGatPicker(false);
    QCOMPARE(log, QStringList({"picks enters", "picks press", "picks release", "picks leaves"}));
}

void CanvasToolTest::aBoxIsToldInTracesAndTimes_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::newRow("down") << QPoint(100, 50) << QPoint(200, 150);
    QTest::newRow("up and to the left") << QPoint(200, 150) << QPoint(100, 50);
    QTest::newRow("a click") << QPoint(100, 50) << QPoint(100, 50);
    QTest::newRow("beyond the canvas") << QPoint(100, 50) << QPoint(9000, 9000);
}

void CanvasToolTest::aBoxIsToldInTracesAndTimes()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    f.load(ensemble);
    QSignalSpy boxes(f[0], &SeismicDisplay::boxSelected);
    dragMouse(f[0]->canvas(), from, to, Qt::LeftButton);
    QCOMPARE(boxes.count(), 0);  // that was a zoom
    f[0]->resetZoom(0);
    f[0]->setSPicker(true);
    dragMouse(f[0]->canvas(), from, to, Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(boxes.count(), 0);
    f[0]->resetZoom(0);
    dragMouse(f[0]->canvas(), from, to, Qt::LeftButton);
    QCOMPARE(boxes.count(), 1);
    QVERIFY(!f[0]->isZoomed());
    // 21 traces over the width, 2000 ms down the height, between the outermost pixels.
    const QSize last = f[0]->canvas()->size() - QSize(1, 1);
    const QPoint end(qMin(to.x(), last.width()), qMin(to.y(), last.height()));
    const QRectF box = boxes.first().first().toRectF();
    const QRectF pixels(QPointF(qMin(from.x(), end.x()), qMin(from.y(), end.y())),
                        QPointF(qMax(from.x(), end.x()), qMax(from.y(), end.y())));
    const double trace = 21.0 / last.width(), ms = 2000.0 / last.height();
    const double tolerance = 0.01;  // of a pixel: spacings are counted in single precision
    QVERIFY(qAbs(box.left() - pixels.left() * trace) < tolerance * trace);
    QVERIFY(qAbs(box.right() - pixels.right() * trace) < tolerance * trace);
    QVERIFY(qAbs(box.top() - pixels.top() * ms) < tolerance * ms);
    QVERIFY(qAbs(box.bottom() - pixels.bottom() * ms) < tolerance * ms);
}

void CanvasToolTest::leavingTheBoxToolDropsABoxThatIsBeingDrawn()
{
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    f.load(ensemble);
    QSignalSpy boxes(f[0], &SeismicDisplay::boxSelected);
    f[0]->setSPicker(true);
    QTest::mousePress(f[0]->canvas(), Qt::LeftButton, Qt::NoModifier, {100, 50});
    f[0]->setSPicker(false);
    QTest::mouseRelease(f[0]->canvas(), Qt::LeftButton, Qt::NoModifier, {200, 150});
    QCOMPARE(boxes.count(), 0);
    QVERIFY(!f[0]->isZoomed());
}

/// A tool as a later one may look: with the left button it marks traces.
class MarkTool : public CanvasTool
{
public:
    explicit MarkTool(SeismicDisplay* display) : _view(display->view()) {}
    QString controlText() const override { return "   MB1: mark a trace"; }
    bool canvasEvent(QWidget*, QEvent* event) override
    {
        const auto* press = static_cast<QMouseEvent*>(event);
        if (event->type() != QEvent::MouseButtonPress || press->button() != Qt::LeftButton) return false;
        if (press->modifiers() & Qt::ControlModifier) return false;  // a zoom
        const double x = _view.plot()->canvasMap(QwtPlot::xTop).invTransform(press->x());
        marked.append(_view.keyOfTrace(_view.traceAt(x)));
        return true;
    }
    QVector<float> marked;

private:
    EnsembleView& _view;
};

void CanvasToolTest::aToolWithAMouseModeOfItsOwn()
{
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    f.load(ensemble);
    MarkTool marks(f[0]);
    f[0]->setTool(&marks);
    QVERIFY(f.control.currentMessage().startsWith("CTRL MB1 down and drag: zoom"));
    QVERIFY(f.control.currentMessage().endsWith("   MB1: mark a trace"));
    const QwtScaleMap x = f[0]->canvasMap(QwtPlot::xTop);
    for (const double trace : {4.0, 17.3}) {
        const QPoint at(qRound(x.transform(trace)), 80);
        QTest::mouseClick(f[0]->canvas(), Qt::LeftButton, Qt::NoModifier, at);
        QTest::mouseMove(f[0]->canvas(), at + QPoint(1, 0));
    }
    QCOMPARE(marks.marked, QVector<float>({104.0f, 117.0f}));
    QVERIFY(!f[0]->isZoomed());
    dragMouse(f[0]->canvas(), {100, 100}, {300, 300}, Qt::LeftButton, Qt::ControlModifier);
    QVERIFY(f[0]->isZoomed());
    f[0]->showDisplay(0);
    QVERIFY(f[0]->tool() == f[0]->zoomTool());
    QTest::mouseClick(f[0]->canvas(), Qt::LeftButton, Qt::NoModifier, {100, 100});
    QCOMPARE(marks.marked.size(), 2);
    QVERIFY(f.control.currentMessage().startsWith("MB1 down and drag: zoom"));
}

void CanvasToolTest::aDisplayZoomsAgainWhenItsToolHasGone()
{
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    f.load(ensemble);
    auto marks = std::make_unique<MarkTool>(f[0]);
    f[0]->setTool(marks.get());
    QVERIFY(f.control.currentMessage().endsWith("   MB1: mark a trace"));
    marks.reset();
    QVERIFY(f.control.currentMessage().startsWith("MB1 down and drag: zoom"));
    dragMouse(f[0]->canvas(), {100, 100}, {300, 300}, Qt::LeftButton);
    QVERIFY(f[0]->isZoomed());
}

void CanvasToolTest::aDisplayGoesWithOneOfItsOwnToolsActive()
{
    DisplayFixture f;
    TestEnsemble ensemble(20, 500);
    f.load(ensemble);
    f[0]->setGatPicker(true);
    const QString line = f.control.currentMessage();
    f.displays.clear();
    f.owned.clear();
    QCOMPARE(f.control.currentMessage(), line);  // nothing was shown by half a display
}

void CanvasToolTest::aToolOutlivesItsDisplay()
{
    DisplayFixture f(2);
    QStringList log;
    Recorder tool("tool", &log);
    f[0]->setTool(&tool);
    f[1]->setTool(&tool);
    f.displays.removeAt(0);
    f.owned.erase(f.owned.begin());
    QVERIFY(f[0]->tool() == &tool);
    QTest::mouseClick(f[0]->canvas(), Qt::LeftButton, Qt::NoModifier, {100, 100});
    QCOMPARE(log, QStringList({"tool enters", "tool enters", "tool press", "tool release"}));
}

QTEST_MAIN(CanvasToolTest)
#include "canvastooltest.moc"
