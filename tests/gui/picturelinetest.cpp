/// What a picture tells about itself: keys, conditioning, gain, overlay, direction, polarity and colours.
#include "display/pictureline.h"
#include "display/colors/colorstrip.h"
#include "display/seismicplot.h"
#include "display/zoom/recordaxisscaledraw.h"
#include "frame/printeddisplay.h"
#include "frame/sectionexport.h"
#include "tests/gui/displayfixture.h"
#include "tests/gui/windowfixture.h"
#include "tests/testdata.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSettings>
#include <QTemporaryDir>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>
#include <qwt_text_label.h>

class PictureLineTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void aViewHasTheTracesThatStandInIt();
    void theLineFitsItsWidth();
    void theLineTellsTheTracesInViewAndFollowsTheZoom();
    void theLineFollowsTheDirection();
    void chipsStandWhileTheirThingIsOnOnly();
    void theOverlayIsToldByItsRecordWhileItIsInView();
    void theLineKeepsTheCanvasAsItIs();
    void theNameOfTheTraceLabelsStandsBesideThem();
    void anAxisWithoutMultiplesIsLabelledAtItsEnds();
    void thePolarityOfTheMenuIsKeptWithTheFileAndChangesNoSample();
    void titleAndLineNameTheKeysOfTheSort_data();
    void titleAndLineNameTheKeysOfTheSort();
    void theStripHasItsUnitAndNumbersInTheFontOfTheWindow();
    void aColourPrintHasItsStripAndAWigglePrintHasNone();

private:
    QTemporaryDir _home;
};

void PictureLineTest::initTestCase()
{
    QVERIFY(_home.isValid());
    qputenv("TREVIA_HOME", _home.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _home.path());
}

/// The whole line, also what there is no room for.
static QString lineOf(SeismicDisplay* display)
{
    return display->footerLabel()->toolTip();
}

void PictureLineTest::aViewHasTheTracesThatStandInIt()
{
    const struct {
        double left, right;
        int first, last;
    } cases[] = {{0.0, 21.0, 1, 20}, {4.2, 9.9, 5, 9}, {5.0, 9.0, 5, 9}, {-8.0, 3.0, 1, 3}, {18.5, 90.0, 19, 20}};
    for (const auto& c : cases) {
        const TraceRange range = tracesInView(c.left, c.right, 20);
        QCOMPARE(range.first, c.first);
        QCOMPARE(range.last, c.last);
    }
    for (const auto& none : {QPointF(4.2, 4.8), QPointF(22.0, 30.0), QPointF(-9.0, 0.5), QPointF(qQNaN(), 3.0)}) {
        const TraceRange range = tracesInView(none.x(), none.y(), 20);
        QVERIFY(range.first > range.last);
    }
}

void PictureLineTest::theLineFitsItsWidth()
{
    const QFontMetrics metrics{QFont()};
    PictureLine line;
    line.firstTrace = "FFID 7, CHAN 101";
    line.lastTrace = "FFID 7, CHAN 120";
    line.shortFirstTrace = "7, 101";
    line.shortLastTrace = "7, 120";
    line.chips = QStringList{"AGC 500 ms", "Reversed"};
    line.polarity = "unknown";
    const QString whole = pictureLineText(line, metrics, 10000);
    for (const char* part : {"FFID 7, CHAN 101  to  FFID 7, CHAN 120", "AGC 500 ms", "Reversed", "Polarity: unknown"})
        QVERIFY2(whole.contains(part), qPrintable(whole));
    const int width = metrics.horizontalAdvance(whole);
    QCOMPARE(pictureLineText(line, metrics, width), whole);
    const QString shorter = pictureLineText(line, metrics, width - 1);
    QVERIFY(shorter.startsWith("7, 101  to  7, 120") && shorter.contains("Reversed"));
    const int shortWidth = metrics.horizontalAdvance(shorter);
    const QString known = pictureLineText(line, metrics, shortWidth - 1);
    QVERIFY(known.startsWith("7, 101  to  7, 120") && known.trimmed().endsWith("Reversed"));
    line.polarity = "normal (SEG)";
    line.isPolarityTold = true;  // it stays, and the keys go
    const QString told = pictureLineText(line, metrics, metrics.horizontalAdvance(known));
    QVERIFY2(told.trimmed().startsWith("AGC 500 ms"), qPrintable(told));
    QVERIFY(pictureLineText(line, metrics, 10000).endsWith("Reversed    Polarity: normal (SEG)"));
    QVERIFY(metrics.horizontalAdvance(pictureLineText(line, metrics, 60)) <= 60);
    // Chips have a ground of their own, keys have none; a name may hold anything.
    line.chips = QStringList{"<b>"};
    const QString html = pictureLineHtml(line, metrics, 10000);
    QVERIFY(html.contains("color:#000000\"> &lt;b&gt; </span>") && html.contains(">FFID 7"));
}

void PictureLineTest::theLineTellsTheTracesInViewAndFollowsTheZoom()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    QCOMPARE(fixture.load(ensemble), 0);
    QVERIFY2(lineOf(fixture[0]).startsWith("FFID 7, CHAN 101  to  FFID 7, CHAN 120 "), qPrintable(lineOf(fixture[0])));
    fixture[0]->setZoomRect(QRectF(4.5, 0.0, 5.0, 1000.0));  // traces 5 to 9
    QVERIFY2(lineOf(fixture[0]).startsWith("FFID 7, CHAN 105  to  FFID 7, CHAN 109 "), qPrintable(lineOf(fixture[0])));
    QVERIFY(fixture[0]->footer().text().contains("105"));
    fixture[0]->horizontalScrollerMoved(10.0);
    QVERIFY2(lineOf(fixture[0]).startsWith("FFID 7, CHAN 110  to  FFID 7, CHAN 115 "), qPrintable(lineOf(fixture[0])));
    fixture[0]->resetZoom(-1);
    const auto x = [&](double trace) { return qRound(fixture[0]->canvasMap(QwtPlot::xTop).transform(trace)); };
    dragMouse(fixture[0]->canvas(), QPoint(x(6.5), 60), QPoint(x(12.5), 200), Qt::LeftButton);
    QVERIFY2(lineOf(fixture[0]).startsWith("FFID 7, CHAN 107  to  FFID 7, CHAN 112 "), qPrintable(lineOf(fixture[0])));
    fixture[0]->resetZoom(-1);
    QVERIFY2(lineOf(fixture[0]).startsWith("FFID 7, CHAN 101 "), qPrintable(lineOf(fixture[0])));
    settle();
    const QRect canvas = fixture[0]->canvas()->geometry();
    fixture[0]->clearData();
    settle();
    QCOMPARE(lineOf(fixture[0]), QString());
    // nor does anything else of the ensemble stay, and displays side by side keep their times in line
    QCOMPARE(fixture[0]->axisTitle(QwtPlot::xTop).text().trimmed(), QString());
    QCOMPARE(fixture[0]->recordAxis()->name(), QString());
    QVERIFY(fixture[0]->recordAxis()->labelledSteps(fixture[0]->axisFont(QwtPlot::xTop)).empty());
    QCOMPARE(fixture[0]->canvas()->geometry().top(), canvas.top());
    QCOMPARE(fixture[0]->canvas()->height(), canvas.height());
}

void PictureLineTest::theLineFollowsTheDirection()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    QCOMPARE(fixture.load(ensemble), 0);
    fixture[0]->setPlotDirection(RightToLeft);
    fixture[0]->rebuildPlot();
    QVERIFY2(lineOf(fixture[0]).startsWith("FFID 7, CHAN 120  to  FFID 7, CHAN 101 "), qPrintable(lineOf(fixture[0])));
    QVERIFY(lineOf(fixture[0]).contains(" Traces reversed "));
}

void PictureLineTest::chipsStandWhileTheirThingIsOnOnly()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    QCOMPARE(fixture.load(ensemble), 0);
    SeismicPlot* plot = fixture[0]->seismicPlot();
    QCOMPARE(pictureChips(*plot, QString()), QStringList());
    plot->applyPhase(true, -90);
    plot->applyFilter(true, 3, 6, 50, 70, false);
    plot->applyAGC(true, 400);
    plot->setGain(6.0f);
    fixture[0]->rebuildPlot();
    for (const char* chip : {" Phase -90 degrees ", " Filter 3-6-50-70 Hz ", " AGC 400 ms ", " Gain +6 dB "})
        QVERIFY2(lineOf(fixture[0]).contains(chip), qPrintable(lineOf(fixture[0])));
    plot->setGain(-3.5f);
    plot->applyPhase(false, -90);
    QCOMPARE(pictureChips(*plot, "FFID 8"),
             (QStringList{"Filter 3-6-50-70 Hz", "AGC 400 ms", "Gain -3.5 dB", "Overlay FFID 8"}));
    plot->setGain(0.0f);
    plot->applyFilter(false, 3, 6, 50, 70, false);
    plot->applyAGC(false, 400);
    fixture[0]->rebuildPlot();
    QVERIFY2(lineOf(fixture[0]).endsWith("CHAN 120   Polarity: unknown"), qPrintable(lineOf(fixture[0])));
}

void PictureLineTest::theOverlayIsToldByItsRecordWhileItIsInView()
{
    DisplayFixture fixture;
    TestEnsemble first(20, 500), second(20, 500);
    for (auto& words : second.words) words[standardWordIndex("FFID    ")] = 9;
    QCOMPARE(fixture.load(first), 0);
    QCOMPARE(fixture[0]->overlayRecord(), QString());
    fixture[0]->setOverlayMode(true);
    QCOMPARE(fixture.load(second), 0);
    QVERIFY2(lineOf(fixture[0]).contains(" Overlay FFID 9 "), qPrintable(lineOf(fixture[0])));
    fixture[0]->setOverlayMode(false);
    QVERIFY2(!lineOf(fixture[0]).contains("Overlay"), qPrintable(lineOf(fixture[0])));
}

void PictureLineTest::theLineKeepsTheCanvasAsItIs()
{
    DisplayFixture fixture;
    settle();
    TestEnsemble ensemble(20, 500);
    QCOMPARE(fixture.load(ensemble), 0);
    settle();
    const QRect canvas = fixture[0]->canvas()->geometry();
    fixture[0]->seismicPlot()->applyAGC(true, 400);
    fixture[0]->seismicPlot()->applyFilter(true, 3, 6, 50, 70, false);
    fixture[0]->setPolarity({Polarity::Normal, QString(40, 'w')});
    fixture[0]->rebuildPlot();
    settle();
    QCOMPARE(fixture[0]->canvas()->geometry(), canvas);
}

void PictureLineTest::theNameOfTheTraceLabelsStandsBesideThem()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    QCOMPARE(fixture.load(ensemble), 0);
    settle();
    QCOMPARE(fixture[0]->recordAxis()->name(), QString("CHAN"));
    QwtScaleWidget* axis = fixture[0]->axisWidget(QwtPlot::xTop);
    const QImage named = axis->grab().toImage();
    fixture[0]->recordAxis()->setName(QString(), 0.0);
    const QImage bare = axis->grab().toImage();
    QRect ink;
    for (int y = 0; y < named.height(); ++y)
        for (int x = 0; x < named.width(); ++x)
            if (named.pixel(x, y) != bare.pixel(x, y)) ink |= QRect(x, y, 1, 1);
    QVERIFY(!ink.isEmpty());
    const QFontMetrics metrics(axis->font());
    const int left = int(fixture[0]->recordAxis()->pos().x());
    QVERIFY(ink.left() >= left && ink.right() <= left + metrics.horizontalAdvance("CHAN"));
    // whole capitals, above the labels
    QVERIFY2(ink.height() >= metrics.capHeight() - 1, qPrintable(QString::number(ink.height())));
    QVERIFY(ink.bottom() < fixture[0]->recordAxis()->pos().y() - metrics.capHeight());
    fixture[0]->setSecKey(WordFrom0(standardWordIndex("TRC_TYPE")));
    QCOMPARE(fixture[0]->recordAxis()->name(), QString("TRC_TYPE"));
}

void PictureLineTest::anAxisWithoutMultiplesIsLabelledAtItsEnds()
{
    DisplayFixture fixture;
    fixture.menu->iskeymod = 1;
    fixture.menu->iskeyinc = 50;
    fixture[0]->setMenu(fixture.menu.get());
    TestEnsemble ensemble(20, 500);  // CHAN 101 to 120
    QCOMPARE(fixture.load(ensemble), 0);
    const QFont font = fixture[0]->axisFont(QwtPlot::xTop);
    const auto labels = [&] {
        QStringList texts;
        for (const double trace : fixture[0]->recordAxis()->labelledSteps(font))
            texts += fixture[0]->recordAxis()->label(trace).text();
        return texts;
    };
    QCOMPARE(labels(), (QStringList{"101", "120"}));
    fixture[0]->setZoomRect(QRectF(4.5, 0.0, 5.0, 1000.0));
    QCOMPARE(labels(), (QStringList{"105", "109"}));
    fixture[0]->recordAxis()->setMethod(1, 2);  // 106 and 108: two are enough
    QCOMPARE(labels(), (QStringList{"106", "108"}));
}

void PictureLineTest::thePolarityOfTheMenuIsKeptWithTheFileAndChangesNoSample()
{
    if (!hasTestData()) QSKIP("no real data files");
    const QString viking = QString::fromStdString(testDataFile("prestack-marine/viking_small.segy"));
    const QString f3 = QString::fromStdString(testDataFile("poststack-3d/f3.sgy"));
    WindowFixture fixture;
    QCOMPARE(fixture.open(viking), 1);
    QCOMPARE(fixture.window->display()->polarity(), Polarity());
    const QImage before = fixture.window->display()->canvas()->grab().toImage();
    fixture.window->parameterMenu();
    auto* sense = fixture.window->findChild<QComboBox*>("polarityBox");
    auto* convention = fixture.window->findChild<QComboBox*>("conventionBox");
    QVERIFY(sense && convention && !convention->isEnabled());
    sense->setCurrentIndex(2);
    emit sense->activated(2);
    QCOMPARE(fixture.window->display()->polarity(), (Polarity{Polarity::Reversed, "SEG"}));
    convention->lineEdit()->clear();
    QTest::keyClicks(convention->lineEdit(), "Acme 1987");
    QTest::keyClick(convention->lineEdit(), Qt::Key_Return);
    const Polarity told{Polarity::Reversed, "Acme 1987"};
    QCOMPARE(fixture.window->display()->polarity(), told);
    QVERIFY(lineOf(fixture.window->display()).endsWith("Polarity: reversed (Acme 1987)"));
    QCOMPARE(fixture.window->display()->canvas()->grab().toImage(), before);
    std::vector<float> offsets;
    const SeismicDisplay& display = *fixture.window->display();
    const SectionContent content = sectionContent(display, presentScale(display), "x.sgy", nullptr, &offsets);
    QString onPaper;
    for (const auto& row : content.side)
        if (row.first == "Polarity") onPaper = row.second;
    QCOMPARE(onPaper, QString("reversed (Acme 1987)"));

    QCOMPARE(fixture.open(f3), 1);
    QCOMPARE(fixture.window->display()->polarity(), Polarity());
    QCOMPARE(sense->currentIndex(), 0);
    WindowFixture next;
    QCOMPARE(next.open(viking), 1);
    QCOMPARE(next.window->display()->polarity(), told);
    next.window->findChild<QAction*>("screens2Act")->trigger();
    QCOMPARE(next.window->displayList().size(), 2);
    for (const SeismicDisplay* screen : next.window->displayList()) QCOMPARE(screen->polarity(), told);
}

void PictureLineTest::titleAndLineNameTheKeysOfTheSort_data()
{
    QTest::addColumn<int>("sort");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("line");
    // inlines 111 to 133, crosslines 875 to 892
    QTest::newRow("inline stack") << 9 << "ILINE_NO:111"
                                  << "ILINE_NO 111, XLINE_NO 875  to  ILINE_NO 111, XLINE_NO 892 ";
    QTest::newRow("crossline stack") << 10 << "XLINE_NO:875"
                                     << "XLINE_NO 875, ILINE_NO 111  to  XLINE_NO 875, ILINE_NO 133 ";
    // A stack goes by the word of the inline, too, but is named after the line's number, which SEG-Y has no bytes for.
    QTest::newRow("stack") << 5 << "LINE_NO :0"
                           << "LINE_NO 0, CDP 875  to  LINE_NO 0, CDP 892 ";
}

void PictureLineTest::titleAndLineNameTheKeysOfTheSort()
{
    if (!hasTestData()) QSKIP("no real data files");
    QFETCH(int, sort);
    QFETCH(QString, title);
    QFETCH(QString, line);
    WindowFixture fixture;
    QCOMPARE(fixture.open(QString::fromStdString(testDataFile("poststack-3d/f3.sgy")), sort, 1), 1);
    QCOMPARE(fixture.shownKey(), title);
    QVERIFY2(lineOf(fixture.window->display()).startsWith(line), qPrintable(lineOf(fixture.window->display())));
}

void PictureLineTest::theStripHasItsUnitAndNumbersInTheFontOfTheWindow()
{
    ColorBarFrame bar;
    QCOMPARE(bar.strip().unit, QString("amplitude"));
    QFont font = bar.font();
    const int before = bar.width();
    font.setPointSizeF(2.0 * font.pointSizeF());
    bar.setFont(font);
    QVERIFY(bar.width() >= 15 + 2 * (before - 15) - 16);  // but for gaps, twice the room
    QCOMPARE(bar.height(), 256);
    const int withUnit = bar.width();
    bar.setUnit(QString());
    QVERIFY(withUnit >= bar.width() + QFontMetrics(font).height() / 2);
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    QCOMPARE(fixture.load(ensemble), 0);
    fixture[0]->seismicPlot()->setDisplayType(Velocity);
    QCOMPARE(fixture.bar.strip().unit, QString("velocity"));
    fixture[0]->seismicPlot()->setDisplayType(ColorB);
    QCOMPARE(fixture.bar.strip().unit, QString("amplitude"));
}

/// How many different colours, no greys, stand at the right of the last pixels of the picture's frame.
static int coloursAtTheRight(const QImage& picture)
{
    QSet<QRgb> colours;
    for (int x = picture.width() * 17 / 20; x < picture.width(); ++x)
        for (int y = 0; y < picture.height(); ++y) {
            const QColor c(picture.pixel(x, y));
            if (std::max({c.red(), c.green(), c.blue()}) - std::min({c.red(), c.green(), c.blue()}) > 40)
                colours.insert(c.rgb());
        }
    return colours.size();
}

void PictureLineTest::aColourPrintHasItsStripAndAWigglePrintHasNone()
{
    DisplayFixture fixture;
    TestEnsemble ensemble(20, 500);
    for (auto& trace : ensemble.samples) std::fill(trace.begin(), trace.end(), 0.0f);  // the picture is one colour
    QCOMPARE(fixture.load(ensemble), 0);
    const QSizeF page(2970.0, 2100.0);
    QCOMPARE(coloursAtTheRight(printedDisplay(fixture[0], page).toImage()), 0);
    fixture[0]->seismicPlot()->setDisplayType(ColorB);
    fixture[0]->rebuildPlot();
    const QImage printed = printedDisplay(fixture[0], page).toImage();
    QVERIFY2(coloursAtTheRight(printed) > 60, qPrintable(QString::number(coloursAtTheRight(printed))));
    QVERIFY(printed.pixelColor(0, 0) == Qt::white);

    std::vector<float> offsets;
    const SectionScale scale{5.0, 10.0};
    const SectionContent content = sectionContent(*fixture[0], scale, "x.sgy", nullptr, &offsets);
    const SectionPage sheet = sectionPage(*fixture[0], scale, int(content.side.size()));
    QVERIFY(sheet.colorStrip().height > 20.0);
    QVERIFY(sheet.colorStrip().top > sheet.sideLabel().bottom() && sheet.colorStrip().bottom() < sheet.height());
    QCOMPARE(content.strip.unit, QString("amplitude"));
    QImage paper(int(sheet.width() * 10), int(sheet.height() * 10), QImage::Format_RGB32);
    QPainter painter(&paper);
    painter.scale(0.1, 0.1);
    paintSection(&painter, sheet, content);
    painter.end();
    QVERIFY(coloursAtTheRight(
                paper.copy(int(sheet.sideLabel().left * 10), 0, int(sheet.sideLabel().width * 10), paper.height())
                    .mirrored(true, false)) > 60);
}

QTEST_MAIN(PictureLineTest)
#include "picturelinetest.moc"
