/// The dialog "Draw on Canvas": lines and texts by the mouse.
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

class DrawDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(useFolder(_home)); }
    void cleanup() { QVERIFY(hasGivenBack()); }
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

private:
    QTemporaryDir _home;
};

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
    for (const auto& button : buttons)
        QCOMPARE(fixture.find<QAbstractButton>(button.name)->text(), QString(button.text));
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
    edit->setFocus();
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
            if (auto* fonts = qobject_cast<QFontDialog*>(dialog)) fonts->setCurrentFont(QFont("Liberation Serif", 20));
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

QTEST_MAIN(DrawDialogTest)
#include "drawdialogtest.moc"
