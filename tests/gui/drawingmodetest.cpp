/// While "Draw on Canvas" is on, and after: cursor, keyboard and mouse come back, and drawings stay or go with their plots.
#include "display/images/myqwtplotcanvas.h"
#include "display/seismicplot.h"
#include "tests/gui/drawfixture.h"
#include "tests/gui/modalanswer.h"
#include "tests/gui/segymenufixture.h"
#include "tests/gui/windowfixture.h"
#include "widgets/numberedit.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QFontDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QToolTip>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_marker.h>

class DrawingModeTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(useFolder(_home)); }
    void cleanup() { QVERIFY(hasGivenBack()); }
    void offGivesCursorKeyboardAndMouseBack_data();
    void offGivesCursorKeyboardAndMouseBack();
    void eachWayOutEndsDrawing();
    void anotherMouseToolEndsDrawing();
    void aMessageBoxHasItsOwnKeysAndCursor();
    void keysGoToTheText();
    void aButtonHeldOverTheEndIsReleasedForNobody();
    void drawingStaysThroughZoomPagingAndANewFile();
    void afterDrawingTheMouseZoomsAgain();
    void exportsShowTheDrawing();
    void aDisplayThatGoesTakesItsDrawingAlong();
    void theLastDisplayThatGoesEndsDrawing();
    void theDialogMayGoWhileItDraws();
    void aPressOnAnotherDisplayBeginsThere();
    void anyPlotWithItsAxesIsATarget();
    void theWindowMakesItOnFirstUseAndOnce();
    void everyControlHasATip();

private:
    QTemporaryDir _home;
};

void DrawingModeTest::offGivesCursorKeyboardAndMouseBack_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : {-1, int(Picker::Spectrum), int(Picker::FirstBreaks)}) QTest::addRow("%d", mode) << mode;
}

void DrawingModeTest::offGivesCursorKeyboardAndMouseBack()
{
    QFETCH(int, mode);
    DrawFixture fixture(2);
    const auto before = [&](int i) -> const CanvasTool* {
        return mode < 0 ? fixture[i]->zoomTool() : &fixture[i]->pickers()[Picker(mode)];
    };
    if (mode >= 0)
        for (int i = 0; i < 2; ++i) fixture[i]->setPicker(Picker(mode), true);
    for (int i = 0; i < 2; ++i) QVERIFY(fixture[i]->tool() == before(i));
    const QString line = fixture.control.currentMessage();
    for (int turn = 0; turn < 3; ++turn) {
        fixture.enable();
        QVERIFY(fixture.dialog->isDrawing());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::PointingHandCursor);
        QCOMPARE(QWidget::keyboardGrabber(), fixture.dialog.get());
        for (int i = 0; i < 2; ++i) QVERIFY(fixture[i]->tool() == fixture.dialog.get());
        QVERIFY(fixture.control.currentMessage().startsWith("CTRL MB1 down and drag: zoom"));
        QVERIFY(fixture.control.currentMessage().endsWith("   Drawing is on"));
        fixture.enable();
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(!QWidget::keyboardGrabber());
        for (int i = 0; i < 2; ++i) QVERIFY(fixture[i]->tool() == before(i));
        QCOMPARE(fixture.control.currentMessage(), line);
    }
}

void DrawingModeTest::eachWayOutEndsDrawing()
{
    DrawFixture fixture;
    const std::function<void()> ways[] = {
        [&] { QTest::keyClick(fixture.dialog.get(), Qt::Key_Escape); },
        [&] { fixture.click("dismissButton"); },
        [&] { fixture.dialog->close(); },
        [&] { fixture.dialog->hide(); },
    };
    for (const auto& leave : ways) {
        fixture.dialog->show();
        fixture.enable();
        fixture.draw({{100, 50}, {200, 50}});
        leave();
        QVERIFY(!fixture.dialog->isVisible());
        QVERIFY(!fixture.dialog->isDrawing());
        QVERIFY(!fixture.find<QCheckBox>("enableBox")->isChecked());
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(!QWidget::keyboardGrabber());
        QVERIFY(fixture[0]->tool() == fixture[0]->zoomTool());
    }
    QCOMPARE(fixture.lines().size(), 4);  // and what was drawn stays
}

void DrawingModeTest::anotherMouseToolEndsDrawing()
{
    WindowFixture fixture;
    fixture.action("drawAct")->trigger();
    auto* dialog = fixture.window->findChild<DrawDialog*>();
    auto* box = dialog->findChild<QCheckBox*>("enableBox");
    box->click();
    fixture.window->actionTable()->radio("radioZoom")->click();
    QVERIFY(!dialog->isDrawing());
    QVERIFY(fixture.window->display()->tool() == fixture.window->display()->zoomTool());
}

void DrawingModeTest::aMessageBoxHasItsOwnKeysAndCursor()
{
    DrawFixture fixture;
    fixture.enable();
    fixture.click("removeButton");
    bool wasFree = false;
    int nAnswered = 0;
    const ModalAnswer answer([&](QDialog* box) {
        if (!box->isActiveWindow()) return;  // nobody presses a key before the box has the focus
        ++nAnswered;
        wasFree = !QGuiApplication::overrideCursor() && !QWidget::keyboardGrabber();
        QTest::keyClick(box, Qt::Key_Escape);
    });
    fixture.click("removeButton");
    QCOMPARE(nAnswered, 1);
    QVERIFY(wasFree);
    QVERIFY(fixture.dialog->isDrawing());
    QVERIFY(QGuiApplication::overrideCursor());
    QTRY_COMPARE(QWidget::keyboardGrabber(), fixture.dialog.get());  // when the focus is back
}

void DrawingModeTest::keysGoToTheText()
{
    DrawFixture fixture;
    fixture.click("r2");
    fixture.enable();
    fixture[0]->activateWindow();
    QTRY_VERIFY(fixture[0]->isActiveWindow());
    QTRY_COMPARE(QWidget::keyboardGrabber(), fixture.dialog.get());
    fixture.draw({{200, 200}});
    QTest::keyClicks(fixture.dialog.get(), "A b");  // where the grab brings them
    QCOMPARE(fixture.find<QLineEdit>("strEdit")->text(), QString("A b"));
    QCOMPARE(fixture.texts().first()->label().text(), QString("A b"));
    fixture.dialog->activateWindow();
    fixture.find<QPushButton>("newButton")->setFocus();
    QTest::keyClick(fixture.dialog.get(), Qt::Key_Space);
    QCOMPARE(fixture.texts().size(), 2);

    QLineEdit other;  // any other window of the program
    other.show();
    other.activateWindow();
    other.setFocus();
    QTRY_VERIFY(other.hasFocus());
    QVERIFY(!QWidget::keyboardGrabber());
    fixture.draw({{200, 200}});
    QCOMPARE(QWidget::keyboardGrabber(), fixture.dialog.get());
}

void DrawingModeTest::aButtonHeldOverTheEndIsReleasedForNobody()
{
    DrawFixture fixture;
    dragMouse(fixture.canvas(), {100, 100}, {300, 300}, Qt::LeftButton);
    QVERIFY(fixture[0]->isZoomed());
    fixture.enable();
    QTest::mousePress(fixture.canvas(), Qt::RightButton, Qt::NoModifier, {100, 100});
    QTest::keyClick(fixture.dialog.get(), Qt::Key_Escape);
    QTest::mouseRelease(fixture.canvas(), Qt::RightButton, Qt::NoModifier, {100, 100});
    QVERIFY(fixture[0]->isZoomed());
    QTest::mouseClick(fixture.canvas(), Qt::RightButton, Qt::NoModifier, {100, 100});
    QVERIFY(!fixture[0]->isZoomed());
}

void DrawingModeTest::drawingStaysThroughZoomPagingAndANewFile()
{
    DrawFixture fixture;
    fixture.enable();
    fixture.draw({{100, 50}, {400, 350}});
    fixture.enable();
    const QVector<QPointF> before = {fixture.lines().first()->sample(0), fixture.lines().first()->sample(1)};
    const auto isShown = [&] { return countPixels(fixture.canvas()->grab().toImage(), Qt::red) > 100; };
    const auto isKept = [&] {
        return fixture.lines().size() == 1 && fixture.lines().first()->sample(0) == before[0] &&
               fixture.lines().first()->sample(1) == before[1];
    };
    QVERIFY(isShown());
    fixture[0]->setZoomRect(QRectF(4.0, 300.0, 8.0, 800.0));
    QVERIFY(isShown() && isKept());
    fixture[0]->resetZoom(0);
    TestEnsemble next(12, 500);
    fixture.load(next);
    QVERIFY(isShown() && isKept());
    fixture[0]->setNewFile(fixture.menu.get());
    fixture.load(fixture.ensemble);
    QVERIFY(isShown() && isKept());
    fixture[0]->seismicPlot()->setDisplayType(ColorB);
    fixture[0]->rePlot();
    QVERIFY(isKept());
}

void DrawingModeTest::afterDrawingTheMouseZoomsAgain()
{
    DrawFixture fixture;
    fixture.enable();
    fixture.draw({{100, 50}, {400, 350}});
    QVERIFY(!fixture[0]->isZoomed());
    fixture.enable();
    dragMouse(fixture.canvas(), {100, 100}, {300, 300}, Qt::LeftButton);
    QVERIFY(fixture[0]->isZoomed());
    QCOMPARE(fixture.lines().first()->dataSize(), size_t(2));
}

void DrawingModeTest::exportsShowTheDrawing()
{
    WindowFixture fixture;
    fixture.window->resize(900, 600);
    fixture.action("drawAct")->trigger();
    auto* dialog = fixture.window->findChild<DrawDialog*>();
    dialog->findChild<QCheckBox*>("enableBox")->click();
    QWidget* canvas = fixture.window->display()->canvas();
    dragMouse(canvas, {50, 50}, {300, 200}, Qt::LeftButton);
    dialog->reject();
    BoxWatcher boxes;
    boxes.files = QStringList{_home.path() + "/drawn.png"};
    fixture.window->exportImage();
    QVERIFY(countPixels(QImage(boxes.files.first()), Qt::red) > 100);
    QVERIFY(countPixels(fixture.window->display()->grab().toImage(), Qt::red) > 100);  // what is printed
}

void DrawingModeTest::aDisplayThatGoesTakesItsDrawingAlong()
{
    DrawFixture fixture(2);
    fixture.enable();
    fixture.draw({{100, 50}, {200, 50}}, 1);
    fixture.draw({{100, 50}, {200, 50}}, 0);
    fixture.displays.removeAt(0);
    fixture.owned[0].reset();
    QVERIFY(fixture.dialog->isDrawing());
    fixture.draw({{100, 90}});  // the one that is left
    QCOMPARE(fixture.lines().size(), 1);
    QCOMPARE(fixture.lines().first()->dataSize(), size_t(3));
    fixture.click("removeAllButton");
    QCOMPARE(fixture.lines().size(), 0);
    fixture.enable();
    fixture.enable();
    fixture.draw({{100, 90}});
    QCOMPARE(fixture.lines().size(), 1);
    fixture.enable();
}

void DrawingModeTest::theLastDisplayThatGoesEndsDrawing()
{
    DrawFixture fixture;
    fixture.enable();
    fixture.draw({{100, 50}, {200, 50}});
    fixture.click("r2");
    fixture.click("newButton");
    fixture.find<QLineEdit>("strEdit")->setText("text");
    fixture.draw({{100, 50}});
    QTest::mousePress(fixture.canvas(), Qt::LeftButton, Qt::NoModifier, {10, 10});
    fixture.displays.clear();
    fixture.owned[0].reset();
    QVERIFY(!fixture.dialog->isDrawing());
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(!QWidget::keyboardGrabber());
    fixture.find<QLineEdit>("strEdit")->setText("to nobody");
    fixture.click("newButton");
    BoxWatcher boxes;
    fixture.click("removeButton");
    fixture.click("removeAllButton");
    QCOMPARE(boxes.texts.size(), 2);
    fixture.enable();  // nothing to draw on
    QVERIFY(!fixture.find<QCheckBox>("enableBox")->isChecked());
}

void DrawingModeTest::theDialogMayGoWhileItDraws()
{
    DrawFixture fixture;
    fixture.enable();
    fixture.draw({{100, 50}, {200, 50}});
    fixture.dialog.reset();
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(fixture[0]->tool() == fixture[0]->zoomTool());
    QCOMPARE(fixture.lines().size(), 1);
    dragMouse(fixture.canvas(), {100, 100}, {300, 300}, Qt::LeftButton);
    QVERIFY(fixture[0]->isZoomed());
}

void DrawingModeTest::aPressOnAnotherDisplayBeginsThere()
{
    DrawFixture fixture(2);
    fixture.enable();
    fixture.draw({{100, 50}, {200, 50}}, 1);
    QCOMPARE(fixture.lines(0).size(), 0);  // the empty one has gone
    QCOMPARE(fixture.lines(1).first()->dataSize(), size_t(2));
    fixture.draw({{100, 50}}, 0);
    fixture.draw({{100, 50}}, 1);
    QCOMPARE(fixture.lines(0).first()->dataSize(), size_t(1));
    QCOMPARE(fixture.lines(1).size(), 2);
}

void DrawingModeTest::anyPlotWithItsAxesIsATarget()
{
    QwtPlot plot;
    plot.plotLayout()->setAlignCanvasToScales(true);
    plot.plotLayout()->setCanvasMargin(0);
    plot.setAxisScale(QwtPlot::xBottom, 1000.0, 2000.0);
    plot.setAxisScale(QwtPlot::yLeft, -50.0, 50.0);
    plot.resize(500, 400);
    plot.show();
    plot.replot();
    QList<bool> told;
    DrawTarget target;
    target.plot = &plot;
    target.xAxis = QwtPlot::xBottom;
    target.yAxis = QwtPlot::yLeft;
    CanvasTools tools(plot.canvas());
    tools.watchCanvas();
    target.borrowMouse = [&](CanvasTool* tool, bool on) {
        told.append(on);
        on ? tools.borrow(tool) : tools.giveBack(tool);
    };
    DrawDialog dialog(nullptr, [&] { return QList<DrawTarget>{target}; });
    dialog.show();
    auto* box = dialog.findChild<QCheckBox*>("enableBox");
    box->click();
    const QPoint middle = plot.canvas()->rect().center();
    dragMouse(plot.canvas(), {10, 10}, middle, Qt::LeftButton);
    QCOMPARE(drawn<QwtPlotCurve>(&plot).size(), 1);
    const QPointF last = drawn<QwtPlotCurve>(&plot).first()->sample(1);
    QVERIFY2(std::abs(last.x() - 1500.0) < 10.0 && std::abs(last.y()) < 1.0,
             qPrintable(QString("%1 %2").arg(last.x()).arg(last.y())));
    box->click();
    QCOMPARE(told, QList<bool>({true, false}));
}

void DrawingModeTest::theWindowMakesItOnFirstUseAndOnce()
{
    WindowFixture fixture;
    QVERIFY(!fixture.window->findChild<DrawDialog*>());
    for (int i = 0; i < 2; ++i) fixture.action("drawAct")->trigger();
    QCOMPARE(fixture.window->findChildren<DrawDialog*>().size(), 1);
    auto* dialog = fixture.window->findChild<DrawDialog*>();
    dialog->findChild<QCheckBox*>("enableBox")->click();
    fixture.window->close();
    QVERIFY(!dialog->isVisible());
    QVERIFY(!QGuiApplication::overrideCursor());
    fixture.window->show();
    fixture.action("drawAct")->trigger();
    dialog->findChild<QCheckBox*>("enableBox")->click();
    fixture.window.reset();  // goes with everything that it has
    QVERIFY(!QGuiApplication::overrideCursor());
}

void DrawingModeTest::everyControlHasATip()
{
    DrawFixture fixture;
    for (const char* name : {"enableBox", "r1", "r2", "strEdit", "thEdit", "newButton", "removeButton",
                             "removeAllButton", "colorButton", "fontButton", "dismissButton"})
        QVERIFY2(!fixture.find<QWidget>(name)->toolTip().isEmpty(), name);
}

QTEST_MAIN(DrawingModeTest)
#include "drawingmodetest.moc"
