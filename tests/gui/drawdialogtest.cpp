/// The dialog "Draw on Canvas": lines and texts by the mouse, and that cursor, keyboard and mouse come back.
#include "display/drawdialog.h"

#include "display/myqwtplotcanvas.h"
#include "display/seismicplot.h"
#include "tests/gui/displayfixture.h"
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

class DrawDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void theControlsStandWithTheirTexts();
    void aLineFollowsTheMouse();
    void aThousandPointsOfOneLineStand();
    void aGrowingLineCostsNoRenderAndLooksTheSame();
    void theNextDragGoesOnWithTheSameLine();
    void anyButtonDraws();
    void thePenIsThatOfTheLastMove();
    void aNewObjectIsAnotherLine();
    void aMoveWithoutAButtonDrawsNothing();
    void theMouseOfALineIsEatenAndThatOfATextPassesOn();
    void withCtrlTheMouseZooms();
    void aDoubleClickIsAPress();
    void aTextIsPlacedByTheMouseAndTypedOnAtItsPlace();
    void aTextWithoutANewObjectDoesNothing();
    void markupInATextStandsAsTyped();
    void theLineBelowSaysWhatToDoNext();
    void removingTakesTheLastAndTheOneBeforeGoesOn();
    void removingWithNothingSelectedOnlySaysSo();
    void removingAllTakesLinesAndTexts();
    void eachNewObjectCountsDrawnOrNot();
    void aThicknessThatIsNoneGivesWayToTheFormerOne();
    void theThicknessIsThatOfTheNextLine();
    void colorAndFontGoToWhatIsDrawnNext();
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

static const char prefix[] = "drwc999999-";

/// The drawn items of a plot, in the order in which they were made.
template <typename Item>
static QList<Item*> drawn(const QwtPlot* plot)
{
    QMap<int, Item*> items;
    for (QwtPlotItem* item : plot->itemList())
        if (auto* found = dynamic_cast<Item*>(item))
            if (found->title().text().startsWith(prefix)) items[found->title().text().mid(int(strlen(prefix))).toInt()] = found;
    return items.values();
}

/// Displays of 20 traces of 500 samples at 4 ms, and the dialog on them.
struct DrawFixture : DisplayFixture {
    TestEnsemble ensemble{20, 500};
    std::unique_ptr<DrawDialog> dialog;

    explicit DrawFixture(int nDisplays = 1) : DisplayFixture(nDisplays)
    {
        for (int i = 0; i < nDisplays; ++i) load(ensemble, i);
        dialog = std::make_unique<DrawDialog>(nullptr, [this] {
            QList<DrawTarget> targets;
            for (const auto& display : owned)
                if (display) targets.append(displayTarget(display.get()));
            return targets;
        });
        dialog->show();
        QApplication::processEvents();
    }
    template <typename T>
    T* find(const char* name)
    {
        return dialog->findChild<T*>(name);
    }
    void click(const char* name) { find<QAbstractButton>(name)->click(); }
    void enable() { click("enableBox"); }
    QWidget* canvas(int i = 0) { return displays[i]->canvas(); }
    QList<QwtPlotCurve*> lines(int i = 0) { return drawn<QwtPlotCurve>(displays[i]); }
    QList<QwtPlotMarker*> texts(int i = 0) { return drawn<QwtPlotMarker>(displays[i]); }
    QString help() { return find<QLabel>("label")->text(); }
    /// A press, moves to the points, and a release.
    void draw(const QList<QPoint>& points, int i = 0)
    {
        QTest::mousePress(canvas(i), Qt::LeftButton, Qt::NoModifier, points.first());
        for (const QPoint& point : points) move(point, Qt::LeftButton, i);
        QTest::mouseRelease(canvas(i), Qt::LeftButton, Qt::NoModifier, points.last());
    }
    void move(const QPoint& point, Qt::MouseButtons buttons, int i = 0)
    {
        QMouseEvent event(QEvent::MouseMove, point, canvas(i)->mapToGlobal(point), Qt::NoButton, buttons, Qt::NoModifier);
        QApplication::sendEvent(canvas(i), &event);
    }
    /// Position of a pixel of a display that shows all: 21 traces over the width, 2000 ms down the height.
    QPointF scaleValue(const QPoint& at, int i = 0)
    {
        return QPointF(21.0 * at.x() / (canvas(i)->width() - 1), 2000.0 * at.y() / (canvas(i)->height() - 1));
    }
};

/// How many pixels have a color.
static int countPixels(const QImage& image, const QColor& color)
{
    int n = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) n += image.pixelColor(x, y) == color;
    return n;
}

/// Counts the mouse events that reach a widget behind the dialog's filter.
class MouseCounter : public QObject
{
public:
    explicit MouseCounter(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        presses += event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
        releases += event->type() == QEvent::MouseButtonRelease;
        return false;
    }
    int presses = 0, releases = 0;
};

#define COMPARE_POINT(actual, expected) \
    do { \
        const QPointF a = (actual), b = (expected); \
        /* a pixel is 21 / 500 of a trace and 4 ms: the hand calculation is right to a fifth of one */ \
        QVERIFY2(std::abs(a.x() - b.x()) < 0.01 && std::abs(a.y() - b.y()) < 1.0, \
                 qPrintable(QString("%1 %2, not %3 %4").arg(a.x()).arg(a.y()).arg(b.x()).arg(b.y()))); \
    } while (false)

void DrawDialogTest::initTestCase()
{
    QVERIFY(_home.isValid());
    qputenv("TREVIA_HOME", _home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", _home.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _home.path());
}

void DrawDialogTest::cleanup()
{
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(!QWidget::keyboardGrabber());
}

void DrawDialogTest::theControlsStandWithTheirTexts()
{
    DrawFixture fixture;
    QCOMPARE(fixture.dialog->windowTitle(), QString("Draw on Canvas"));
    const struct {
        const char* name;
        const char* text;
    } buttons[] = {{"enableBox", "Enable Drawing"},
                   {"r1", "Draw Line"},
                   {"r2", "Draw Text"},
                   {"newButton", "New Object"},
                   {"removeButton", "Remove Current Object"},
                   {"removeAllButton", "Remove All Objects"},
                   {"colorButton", "Color"},
                   {"fontButton", "Font"},
                   {"dismissButton", "Dismiss"}};
    for (const auto& button : buttons) QCOMPARE(fixture.find<QAbstractButton>(button.name)->text(), QString(button.text));
    QCOMPARE(fixture.find<QLabel>("label1")->text(), QString("Current Text: "));
    QVERIFY(fixture.find<QRadioButton>("r1")->isChecked());
    QCOMPARE(fixture.find<QLabel>("colorLabel")->palette().color(QPalette::Window), QColor(Qt::red));
    QVERIFY(!fixture.dialog->isDrawing());
}

void DrawDialogTest::aLineFollowsTheMouse()
{
    DrawFixture fixture;
    QCOMPARE(countPixels(fixture[0]->grab().toImage(), Qt::red), 0);
    fixture.enable();
    QCOMPARE(fixture.lines().size(), 1);
    fixture.draw({{100, 50}, {200, 50}, {300, 250}});
    QwtPlotCurve* line = fixture.lines().first();
    QCOMPARE(line->xAxis(), int(QwtPlot::xTop));
    QCOMPARE(line->yAxis(), int(QwtPlot::yLeft));
    QCOMPARE(line->dataSize(), size_t(3));
    COMPARE_POINT(line->sample(0), fixture.scaleValue({100, 50}));
    COMPARE_POINT(line->sample(1), fixture.scaleValue({200, 50}));
    COMPARE_POINT(line->sample(2), fixture.scaleValue({300, 250}));
    QCOMPARE(line->pen().color(), QColor(Qt::red));
    const QImage picture = fixture.canvas()->grab().toImage();
    for (const QPoint& on : {QPoint(110, 50), QPoint(150, 50), QPoint(190, 50), QPoint(250, 150)}) {
        int nRed = 0;
        for (int dx = -1; dx <= 1; ++dx)
            for (int dy = -1; dy <= 1; ++dy) nRed += picture.pixelColor(on + QPoint(dx, dy)) == QColor(Qt::red);
        QVERIFY2(nRed >= 2, qPrintable(QString("%1, %2").arg(on.x()).arg(on.y())));
    }
    QVERIFY(picture.pixelColor(150, 60) != QColor(Qt::red));
}

void DrawDialogTest::aThousandPointsOfOneLineStand()
{
    DrawFixture fixture;
    fixture.enable();
    QList<QPoint> points;
    for (int i = 0; i < 1000; ++i) points.append(QPoint(10 + i % 400, 20 + i / 4));
    fixture.draw(points);
    QCOMPARE(fixture.lines().size(), 1);
    QCOMPARE(fixture.lines().first()->dataSize(), size_t(1000));
    for (int i = 0; i < 1000; ++i) COMPARE_POINT(fixture.lines().first()->sample(i), fixture.scaleValue(points[i]));
}

void DrawDialogTest::aGrowingLineCostsNoRenderAndLooksTheSame()
{
    DrawFixture fixture;
    fixture.enable();
    QTest::mousePress(fixture.canvas(), Qt::LeftButton, Qt::NoModifier, {50, 50});
    fixture.move({50, 50}, Qt::LeftButton);
    fixture.canvas()->grab();
    const int before = fixture[0]->myCanvas()->renderCount();
    for (int i = 1; i < 200; ++i) {
        fixture.move({50 + 2 * i, 50 + i}, Qt::LeftButton);
        if (i % 20 == 0) fixture.canvas()->grab();
    }
    const QImage grown = fixture.canvas()->grab().toImage();
    QCOMPARE(fixture[0]->myCanvas()->renderCount(), before);
    QTest::mouseRelease(fixture.canvas(), Qt::LeftButton, Qt::NoModifier, {448, 249});
    const QImage rendered = fixture.canvas()->grab().toImage();
    QVERIFY(fixture[0]->myCanvas()->renderCount() > before);
    int nRed = 0, nOther = 0;
    for (int y = 0; y < grown.height(); ++y)
        for (int x = 0; x < grown.width(); ++x) {
            const QColor a = grown.pixelColor(x, y), b = rendered.pixelColor(x, y);
            nRed += b == QColor(Qt::red);
            nOther += std::abs(a.green() - b.green()) > 128;  // more than the edge of a joint
        }
    QVERIFY2(nRed > 200 && nOther < 4, qPrintable(QString("%1 red, %2 others").arg(nRed).arg(nOther)));
}

void DrawDialogTest::theNextDragGoesOnWithTheSameLine()
{
    DrawFixture fixture;
    fixture.enable();
    fixture.draw({{100, 50}, {200, 50}});
    fixture.draw({{200, 100}});
    QCOMPARE(fixture.lines().size(), 1);
    QCOMPARE(fixture.lines().first()->dataSize(), size_t(3));
}

void DrawDialogTest::anyButtonDraws()
{
    DrawFixture fixture;
    fixture.enable();
    size_t nPoints = 0;
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton}) {
        QTest::mousePress(fixture.canvas(), button, Qt::NoModifier, {100, 50});
        fixture.move({120, 50}, button);
        fixture.move({140, 60}, button);
        QTest::mouseRelease(fixture.canvas(), button, Qt::NoModifier, {140, 60});
        fixture.move({160, 60}, Qt::NoButton);
        nPoints += 2;
        QCOMPARE(fixture.lines().first()->dataSize(), nPoints);
    }
    QCOMPARE(fixture.lines().size(), 1);
}

void DrawDialogTest::thePenIsThatOfTheLastMove()
{
    DrawFixture fixture;
    fixture.enable();
    fixture.draw({{100, 50}, {200, 50}});
    auto* edit = fixture.find<NumberEdit>("thEdit");
    edit->setText("9");
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(fixture.lines().first()->pen().width(), 2);  // until the mouse goes on
    fixture.draw({{300, 50}});
    QCOMPARE(fixture.lines().first()->pen().width(), 9);
    QCOMPARE(fixture.canvas()->grab().toImage().pixelColor(150, 53), QColor(Qt::red));
}

void DrawDialogTest::aNewObjectIsAnotherLine()
{
    DrawFixture fixture;
    fixture.enable();
    fixture.draw({{100, 50}, {200, 50}});
    fixture.click("newButton");
    fixture.draw({{100, 90}, {200, 90}, {210, 90}});
    const QList<QwtPlotCurve*> lines = fixture.lines();
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines[0]->dataSize(), size_t(2));
    QCOMPARE(lines[1]->dataSize(), size_t(3));
    QVERIFY(lines[0]->title().text() != lines[1]->title().text());
}

void DrawDialogTest::aMoveWithoutAButtonDrawsNothing()
{
    DrawFixture fixture;
    fixture.enable();
    fixture.move({100, 100}, Qt::NoButton);
    fixture.move({110, 100}, Qt::LeftButton);  // pressed elsewhere
    QCOMPARE(fixture.lines().first()->dataSize(), size_t(0));
    QTest::mousePress(fixture.canvas(), Qt::LeftButton, Qt::NoModifier, {100, 100});
    fixture.move({120, 100}, Qt::LeftButton);
    fixture.move({130, 100}, Qt::NoButton);  // the release went astray
    fixture.move({140, 100}, Qt::LeftButton);
    QCOMPARE(fixture.lines().first()->dataSize(), size_t(1));
    QVERIFY(fixture.status.currentMessage().contains("FFID"));  // the read-out goes on
    QTest::mouseRelease(fixture.canvas(), Qt::LeftButton, Qt::NoModifier, {140, 100});
}

void DrawDialogTest::theMouseOfALineIsEatenAndThatOfATextPassesOn()
{
    DrawFixture fixture;
    const MouseCounter counter(fixture.canvas());
    fixture.enable();
    fixture.draw({{100, 50}, {200, 50}});
    QCOMPARE(counter.presses, 0);
    QCOMPARE(counter.releases, 0);
    fixture.click("r2");
    fixture.click("newButton");
    fixture.draw({{100, 50}, {200, 50}});
    QCOMPARE(counter.presses, 1);
    QCOMPARE(counter.releases, 1);
    QVERIFY(!fixture[0]->isZoomed());
    fixture.enable();
    QTest::mouseClick(fixture.canvas(), Qt::LeftButton);
    QCOMPARE(counter.presses, 2);
}

void DrawDialogTest::withCtrlTheMouseZooms()
{
    DrawFixture fixture;
    fixture.enable();
    dragMouse(fixture.canvas(), {100, 100}, {300, 300}, Qt::LeftButton, Qt::ControlModifier);
    QVERIFY(fixture[0]->isZoomed());
    QCOMPARE(fixture.lines().first()->dataSize(), size_t(0));
    fixture.draw({{100, 50}, {200, 50}});
    const QwtScaleMap map = fixture[0]->canvasMap(QwtPlot::xTop);
    QCOMPARE(fixture.lines().first()->sample(1).x(), map.invTransform(200));
}

void DrawDialogTest::aDoubleClickIsAPress()
{
    DrawFixture fixture;
    const MouseCounter counter(fixture.canvas());
    fixture.enable();
    QTest::mouseDClick(fixture.canvas(), Qt::LeftButton, Qt::NoModifier, {100, 100});
    QCOMPARE(counter.presses + counter.releases, 0);
}

void DrawDialogTest::aTextIsPlacedByTheMouseAndTypedOnAtItsPlace()
{
    DrawFixture fixture;
    fixture.click("r2");
    fixture.enable();
    auto* edit = fixture.find<QLineEdit>("strEdit");
    edit->setText("Fault");
    QCOMPARE(fixture.texts().size(), 1);
    QCOMPARE(countPixels(fixture.canvas()->grab().toImage(), Qt::red), 0);  // not before it has a place
    fixture.draw({{100, 50}, {240, 130}});
    QwtPlotMarker* text = fixture.texts().first();
    COMPARE_POINT(text->value(), fixture.scaleValue({240, 130}));
    QCOMPARE(text->label().text(), QString("Fault"));
    QCOMPARE(text->label().color(), QColor(Qt::red));
    QCOMPARE(text->label().font(), fixture.dialog->font());
    QVERIFY(countPixels(fixture.canvas()->grab().toImage().copy(200, 115, 80, 30), Qt::red) > 5);
    edit->setText("Fault B");
    QCOMPARE(text->label().text(), QString("Fault B"));
    QCOMPARE(text->label().color(), QColor(Qt::red));
    COMPARE_POINT(text->value(), fixture.scaleValue({240, 130}));
    fixture.click("newButton");
    edit->setText("Horizon");
    QCOMPARE(text->label().text(), QString("Fault B"));
    QCOMPARE(fixture.texts().size(), 2);
}

void DrawDialogTest::aTextWithoutANewObjectDoesNothing()
{
    DrawFixture fixture;
    fixture.find<QLineEdit>("strEdit")->setText("before");
    fixture.enable();
    fixture.click("r2");
    fixture.find<QLineEdit>("strEdit")->setText("Fault");
    fixture.draw({{100, 50}, {240, 130}});
    QCOMPARE(fixture.texts().size(), 0);
    QCOMPARE(countPixels(fixture.canvas()->grab().toImage(), Qt::red), 0);
    QCOMPARE(fixture.lines().first()->dataSize(), size_t(0));
}

void DrawDialogTest::markupInATextStandsAsTyped()
{
    DrawFixture fixture;
    fixture.click("r2");
    fixture.enable();
    fixture.find<QLineEdit>("strEdit")->setText("<b>x</b>");
    fixture.draw({{240, 130}});
    QwtText asTyped("<b>x</b>", QwtText::PlainText);
    asTyped.setFont(fixture.dialog->font());
    QCOMPARE(fixture.texts().first()->label().textSize(), asTyped.textSize());
}

void DrawDialogTest::theLineBelowSaysWhatToDoNext()
{
    DrawFixture fixture;
    QCOMPARE(fixture.help(), QString("Press MB1 on canvas and move mouse to draw."));
    fixture.enable();
    QCOMPARE(fixture.help(), QString("Press MB1 on canvas and move mouse to draw."));
    fixture.click("r2");
    QCOMPARE(fixture.help(), QString("Enter text in box"));
    fixture.find<QLineEdit>("strEdit")->setText("F");
    QCOMPARE(fixture.help(), QString("Press \"New Object\" to begin."));
    fixture.click("newButton");
    QCOMPARE(fixture.help(), QString("Press MB1 on canvas and move mouse to position text."));
    fixture.find<QLineEdit>("strEdit")->clear();
    QCOMPARE(fixture.help(), QString("Enter text in box"));
    fixture.click("r1");
    QCOMPARE(fixture.help(), QString("Press MB1 on canvas and move mouse to draw."));
}

void DrawDialogTest::removingTakesTheLastAndTheOneBeforeGoesOn()
{
    DrawFixture fixture;
    fixture.enable();
    fixture.draw({{100, 50}, {200, 50}});
    fixture.click("newButton");
    fixture.draw({{100, 90}, {200, 90}});
    QwtPlotCurve* first = fixture.lines().first();
    fixture.click("removeButton");
    QCOMPARE(fixture.lines(), QList<QwtPlotCurve*>{first});
    fixture.draw({{210, 60}});
    QCOMPARE(first->dataSize(), size_t(3));

    fixture.click("r2");
    for (const char* text : {"one", "two"}) {
        fixture.click("newButton");
        fixture.find<QLineEdit>("strEdit")->setText(text);
        fixture.draw({{200, 200}});
    }
    fixture.click("removeButton");
    QCOMPARE(fixture.texts().size(), 1);
    QCOMPARE(fixture.find<QLineEdit>("strEdit")->text(), QString("one"));
    fixture.find<QLineEdit>("strEdit")->setText("one and a half");
    QCOMPARE(fixture.texts().first()->label().text(), QString("one and a half"));
    QCOMPARE(fixture.lines().size(), 1);
}

void DrawDialogTest::removingWithNothingSelectedOnlySaysSo()
{
    DrawFixture fixture;
    BoxWatcher boxes;
    const int nItems = fixture[0]->itemList().size();
    fixture.click("removeButton");
    fixture.click("removeAllButton");
    fixture.click("r2");
    fixture.click("removeButton");
    QCOMPARE(boxes.texts, QStringList({"No text or draw objects are selected.", "No text or draw objects are selected.",
                                       "No text or draw objects are selected."}));
    QCOMPARE(fixture[0]->itemList().size(), nItems);
}

void DrawDialogTest::removingAllTakesLinesAndTexts()
{
    DrawFixture fixture(2);
    fixture.enable();
    fixture.draw({{100, 50}, {200, 50}});
    fixture.draw({{100, 50}, {200, 50}}, 1);
    fixture.click("r2");
    fixture.click("newButton");
    fixture.find<QLineEdit>("strEdit")->setText("text");
    fixture.draw({{100, 150}}, 1);
    QCOMPARE(fixture.lines(0).size() + fixture.lines(1).size() + fixture.texts(1).size(), 3);
    fixture.click("removeAllButton");
    QCOMPARE(fixture.lines(0).size() + fixture.lines(1).size() + fixture.texts(1).size(), 0);
    for (int i = 0; i < 2; ++i) QCOMPARE(countPixels(fixture.canvas(i)->grab().toImage(), Qt::red), 0);
}

void DrawDialogTest::eachNewObjectCountsDrawnOrNot()
{
    DrawFixture fixture;
    fixture.enable();
    fixture.draw({{100, 50}, {200, 50}});
    fixture.click("newButton");
    fixture.click("newButton");
    fixture.enable();
    fixture.enable();  // begins another one
    QStringList titles;
    for (const QwtPlotCurve* line : fixture.lines()) titles.append(line->title().text());
    QCOMPARE(titles, QStringList({"drwc999999-1", "drwc999999-2", "drwc999999-3", "drwc999999-4"}));
    fixture.draw({{100, 90}, {200, 90}});
    QCOMPARE(fixture.lines()[3]->dataSize(), size_t(2));
    for (int nLeft = 3; nLeft >= 1; --nLeft) {
        fixture.click("removeButton");
        QCOMPARE(fixture.lines().size(), nLeft);
    }
    QCOMPARE(fixture.lines().first()->dataSize(), size_t(2));  // the drawn one goes last
    fixture.click("removeButton");
    BoxWatcher boxes;
    fixture.click("removeButton");
    QCOMPARE(boxes.texts, QStringList("No text or draw objects are selected."));
}

void DrawDialogTest::aThicknessThatIsNoneGivesWayToTheFormerOne()
{
    DrawFixture fixture;
    auto* edit = fixture.find<NumberEdit>("thEdit");
    edit->setText("7");
    QTest::keyClick(edit, Qt::Key_Return);
    for (const char* text : {"abc", "", "0", "-1", "101", "nan", "1e9", "2.5"}) {
        edit->setText(text);
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(edit->text(), QString("7"));
        QVERIFY2(QToolTip::text().contains("from 1 to 100"), qPrintable(QToolTip::text()));
        QToolTip::hideText();
    }
    QVERIFY(fixture.dialog->isVisible());
    fixture.enable();
    fixture.draw({{100, 50}, {200, 50}});
    QCOMPARE(fixture.lines().first()->pen().width(), 7);
}

void DrawDialogTest::theThicknessIsThatOfTheNextLine()
{
    DrawFixture fixture;
    fixture.enable();
    fixture.draw({{100, 50}, {200, 50}});
    fixture.click("newButton");
    auto* edit = fixture.find<NumberEdit>("thEdit");
    edit->setText("9");
    QTest::keyClick(edit, Qt::Key_Return);
    fixture.draw({{100, 90}, {200, 90}});
    QCOMPARE(fixture.lines()[0]->pen().width(), 2);
    QCOMPARE(fixture.lines()[1]->pen().width(), 9);
    const QImage picture = fixture.canvas()->grab().toImage();
    const auto height = [&](int y) { return countPixels(picture.copy(150, y - 10, 1, 20), Qt::red); };
    QVERIFY2(height(50) >= 1 && height(50) <= 2, qPrintable(QString::number(height(50))));
    QVERIFY2(height(90) >= 8 && height(90) <= 9, qPrintable(QString::number(height(90))));
}

void DrawDialogTest::colorAndFontGoToWhatIsDrawnNext()
{
    DrawFixture fixture;
    fixture.enable();
    fixture.draw({{100, 50}, {200, 50}});
    fixture.click("newButton");
    {
        ModalAnswer answer([](QDialog* dialog) {
            if (auto* colors = qobject_cast<QColorDialog*>(dialog)) colors->setCurrentColor(QColor(0, 200, 0));
            if (auto* fonts = qobject_cast<QFontDialog*>(dialog)) fonts->setCurrentFont(QFont("DejaVu Serif", 20));
            dialog->accept();
        });
        fixture.click("colorButton");
        fixture.click("fontButton");
        QCOMPARE(answer.count, 2);
    }
    QCOMPARE(fixture.find<QLabel>("colorLabel")->palette().color(QPalette::Window), QColor(0, 200, 0));
    QCOMPARE(fixture.find<QLabel>("fontLabel")->text(), fixture.find<QLabel>("fontLabel")->font().key());
    fixture.draw({{100, 90}, {200, 90}});
    QCOMPARE(fixture.lines()[0]->pen().color(), QColor(Qt::red));
    QCOMPARE(fixture.lines()[1]->pen().color(), QColor(0, 200, 0));
    fixture.click("r2");
    fixture.click("newButton");
    fixture.find<QLineEdit>("strEdit")->setText("text");
    fixture.draw({{100, 150}});
    QCOMPARE(fixture.texts().first()->label().font().pointSize(), 20);
    QCOMPARE(fixture.texts().first()->label().color(), QColor(0, 200, 0));
}

void DrawDialogTest::offGivesCursorKeyboardAndMouseBack_data()
{
    QTest::addColumn<int>("mode");
    for (const MouseMode mode : {MouseMode::Zoom, MouseMode::Spectrum, MouseMode::FirstBreaks})
        QTest::addRow("%d", int(mode)) << int(mode);
}

void DrawDialogTest::offGivesCursorKeyboardAndMouseBack()
{
    QFETCH(int, mode);
    DrawFixture fixture(2);
    for (int i = 0; i < 2; ++i) fixture[i]->setMouseMode(MouseMode(mode), true);
    const QString line = fixture.control.currentMessage();
    for (int turn = 0; turn < 3; ++turn) {
        fixture.enable();
        QVERIFY(fixture.dialog->isDrawing());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::PointingHandCursor);
        QCOMPARE(QWidget::keyboardGrabber(), fixture.dialog.get());
        for (int i = 0; i < 2; ++i) QVERIFY(fixture[i]->mouseMode() == MouseMode::Drawing);
        QVERIFY(fixture.control.currentMessage().startsWith("CTRL MB1 down and drag: zoom"));
        fixture.enable();
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(!QWidget::keyboardGrabber());
        for (int i = 0; i < 2; ++i) QVERIFY(int(fixture[i]->mouseMode()) == mode);
        QCOMPARE(fixture.control.currentMessage(), line);
    }
}

void DrawDialogTest::eachWayOutEndsDrawing()
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
        QVERIFY(fixture[0]->mouseMode() == MouseMode::Zoom);
    }
    QCOMPARE(fixture.lines().size(), 4);  // and what was drawn stays
}

void DrawDialogTest::anotherMouseToolEndsDrawing()
{
    WindowFixture fixture;
    fixture.action("drawAct")->trigger();
    auto* dialog = fixture.window->findChild<DrawDialog*>();
    auto* box = dialog->findChild<QCheckBox*>("enableBox");
    box->click();
    fixture.window->actionTable()->radio("radioHeader")->click();
    QVERIFY(!dialog->isDrawing());
    QVERIFY(fixture.window->display()->mouseMode() == MouseMode::Headers);
    box->click();
    fixture.window->actionTable()->box("showFBPickerBox")->click();
    QVERIFY(!dialog->isDrawing());
    QVERIFY(fixture.window->display()->mouseMode() == MouseMode::FirstBreaks);
    box->click();
    fixture.window->actionTable()->box("showFBPickerBox")->click();
    QVERIFY(!dialog->isDrawing());
    QVERIFY(fixture.window->display()->mouseMode() == MouseMode::Headers);
}

void DrawDialogTest::aMessageBoxHasItsOwnKeysAndCursor()
{
    DrawFixture fixture;
    fixture.enable();
    fixture.click("removeButton");
    bool wasFree = false;
    ModalAnswer answer([&](QDialog* box) {
        wasFree = !QGuiApplication::overrideCursor() && !QWidget::keyboardGrabber();
        QTest::keyClick(box, Qt::Key_Escape);
    });
    fixture.click("removeButton");
    QCOMPARE(answer.count, 1);
    QVERIFY(wasFree);
    QVERIFY(fixture.dialog->isDrawing());
    QVERIFY(QGuiApplication::overrideCursor());
    QCOMPARE(QWidget::keyboardGrabber(), fixture.dialog.get());
}

void DrawDialogTest::keysGoToTheText()
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

void DrawDialogTest::aButtonHeldOverTheEndIsReleasedForNobody()
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

void DrawDialogTest::drawingStaysThroughZoomPagingAndANewFile()
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

void DrawDialogTest::afterDrawingTheMouseZoomsAgain()
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

void DrawDialogTest::exportsShowTheDrawing()
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

void DrawDialogTest::aDisplayThatGoesTakesItsDrawingAlong()
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

void DrawDialogTest::theLastDisplayThatGoesEndsDrawing()
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

void DrawDialogTest::theDialogMayGoWhileItDraws()
{
    DrawFixture fixture;
    fixture.enable();
    fixture.draw({{100, 50}, {200, 50}});
    fixture.dialog.reset();
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(fixture[0]->mouseMode() == MouseMode::Zoom);
    QCOMPARE(fixture.lines().size(), 1);
    dragMouse(fixture.canvas(), {100, 100}, {300, 300}, Qt::LeftButton);
    QVERIFY(fixture[0]->isZoomed());
}

void DrawDialogTest::aPressOnAnotherDisplayBeginsThere()
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

void DrawDialogTest::anyPlotWithItsAxesIsATarget()
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
    target.setMouseAside = [&told](bool on) { told.append(on); };
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

void DrawDialogTest::theWindowMakesItOnFirstUseAndOnce()
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

void DrawDialogTest::everyControlHasATip()
{
    DrawFixture fixture;
    for (const char* name : {"enableBox", "r1", "r2", "strEdit", "thEdit", "newButton", "removeButton",
                             "removeAllButton", "colorButton", "fontButton", "dismissButton"})
        QVERIFY2(!fixture.find<QWidget>(name)->toolTip().isEmpty(), name);
}

QTEST_MAIN(DrawDialogTest)
#include "drawdialogtest.moc"
