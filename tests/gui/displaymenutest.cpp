/// The tab "Display": each control driven once as a user would, and what it does to the plot.
#include "display/menus/displaymenu.h"

#include "display/images/myqwtplotcanvas.h"
#include "display/seismicplot.h"
#include "tests/gui/displayfixture.h"
#include "tracedata/seismicdata.h"
#include "widgets/numberedit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSlider>
#include <qwt_scale_draw.h>

#include <cmath>

class DisplayMenuTest : public QObject
{
    Q_OBJECT

private slots:
    void theDisplayModesAreThoseOfTheTypes();
    void colorWantsAFixedRangeAndWigglesAnAutomaticOne();
    void velocityTakesTheRangeOfTheDataWithoutScaling();
    void displaysThatShareAColorBarShareItsRange();
    void theDirectionTurnsTracesAndLabels();
    void scalingIsMeasuredAnew();
    void fieldsGiveTheirValueToThePlot_data();
    void fieldsGiveTheirValueToThePlot();
    void badInputLeavesTheFormerValue_data();
    void badInputLeavesTheFormerValue();
    void leavingAFieldCommitsOnlyWhatWasTyped();
    void theMoveUpGoesToTheRecord();
    void aTypedRangeIsNotShownAsAutomatic();
    void theTraceSliderCountsTenthsOfATpi();
    void aTypedTpiKeepsItsDecimals();
    void theSampleSliderCountsTenthsOfAnIps();
    void automaticSpacingDisablesSliderAndField();
    void automaticSpacingShowsWhatFits();
    void spacingGoesToTheOtherDisplaysToo();
    void gainInDbGoesBothWays();
    void aTypedRangeSurvivesTheNextEnsemble();
    void automaticRangeFollowsTheData();
    void aTypedRmsMovesTheAutomaticRange();
    void boxesSwitchTheirFlags();
    void withoutAnOverlayTheBoxUnchecksItself();
    void withAnOverlayTheControlsShowAndChangeIt();
    void anotherDisplayIsShownAndChangedAlone();
    void eachControlRepaintsOnce();
    void everyControlHasATipAndTheFootLineStands();
};

/// A display with 20 traces of 500 samples at 4 ms, and the menu on it.
struct MenuFixture : DisplayFixture {
    TestEnsemble ensemble{20, 500};
    std::unique_ptr<DisplayMenu> page;

    explicit MenuFixture(int nDisplays = 1) : DisplayFixture(nDisplays)
    {
        for (int i = 0; i < nDisplays; ++i) load(ensemble, i);
        page = std::make_unique<DisplayMenu>(&displays, &others);
        page->show();
    }
    SeismicPlot* plot(int i = 0) { return displays[i]->seismicPlot(); }
    template <typename Control>
    Control* find(const char* name)
    {
        auto* control = page->findChild<Control*>(name);
        if (!control) qFatal("no control %s", name);
        return control;
    }
    NumberEdit* edit(const char* name) { return find<NumberEdit>(name); }
    QCheckBox* box(const char* name) { return find<QCheckBox>(name); }
    QSlider* slider(const char* name) { return find<QSlider>(name); }
    QString text(const char* name) { return edit(name)->text(); }
    void type(const char* name, const QString& text)
    {
        edit(name)->selectAll();
        QTest::keyClicks(edit(name), text);
        QTest::keyClick(edit(name), Qt::Key_Return);
    }
    /// Walks the list of a combo box with the keys, as far as wanted.
    void choose(const char* name, int index)
    {
        auto* combo = find<QComboBox>(name);
        while (combo->currentIndex() != index)
            QTest::keyClick(combo, combo->currentIndex() < index ? Qt::Key_Down : Qt::Key_Up);
    }
};

void DisplayMenuTest::theDisplayModesAreThoseOfTheTypes()
{
    MenuFixture f;
    const QStringList names = {
        "Wiggle/Variable Area", "Wiggle Only", "Variable Area Only", "Color", "Color/Wiggle", "Map", "Velocity"};
    QCOMPARE(f.find<QComboBox>("displayBox")->count(), 7);
    for (int i = 1; i < 7; ++i) {
        f.choose("displayBox", i);
        QCOMPARE(f.find<QComboBox>("displayBox")->currentText(), names[i]);
        QCOMPARE(int(f.plot()->displayType()), i);
    }
}

void DisplayMenuTest::colorWantsAFixedRangeAndWigglesAnAutomaticOne()
{
    MenuFixture f;
    QVERIFY(f.box("lautoBox")->isChecked());
    f.choose("displayBox", ColorB);
    QVERIFY(!f.box("lautoBox")->isChecked());
    QVERIFY(!f.plot()->isAutoGain());
    QCOMPARE(f.text("lminEdit"), QString("-3"));
    QCOMPARE(f.text("lmaxEdit"), QString("3"));
    QCOMPARE(f.bar.minValue(), -3.0);
    QVERIFY(f.bar.colorType() == ColorYes);
    f.choose("displayBox", VA);
    QVERIFY(f.box("lautoBox")->isChecked());
    QVERIFY(f.plot()->isAutoGain());
    QVERIFY(f.bar.colorType() == ColorNo);
}

void DisplayMenuTest::velocityTakesTheRangeOfTheDataWithoutScaling()
{
    MenuFixture f;
    f.choose("displayBox", Velocity);
    QVERIFY(f.plot()->normalization() == Normalize::None);
    QCOMPARE(f.find<QComboBox>("scalarBox")->currentText(), QString("None"));
    QVERIFY(f.box("lautoBox")->isChecked());
    // Sample j of trace i holds 1000 i + j, and zeros don't count.
    QCOMPARE(f.text("lminEdit"), QString("1"));
    QCOMPARE(f.text("lmaxEdit"), QString("19499"));
}

void DisplayMenuTest::displaysThatShareAColorBarShareItsRange()
{
    MenuFixture f(2);
    f.choose("displayBox", ColorWiggle);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(f.plot(i)->rangeMin(), -3.0f);
        QCOMPARE(f.plot(i)->rangeMax(), 3.0f);
    }
    QCOMPARE(f.bar.maxValue(), 3.0);
}

void DisplayMenuTest::theDirectionTurnsTracesAndLabels()
{
    MenuFixture f;
    QCOMPARE(f[0]->axisScaleDraw(QwtPlot::xTop)->label(1.0).text(), QString("101"));
    f.choose("directBox", 1);
    QVERIFY(f.plot()->plotDirection() == RightToLeft);
    QCOMPARE(f[0]->headerAxis().sec().values[1], 120.0f);
    QVERIFY(f[0]->readoutAt(QPoint(3, 100)).contains("CHAN    :      120"));
}

void DisplayMenuTest::scalingIsMeasuredAnew()
{
    MenuFixture f;
    f.choose("scalarBox", 2);
    QVERIFY(f.plot()->normalization() == Normalize::None);
    QCOMPARE(f.text("lmaxEdit"), QString("19499"));
    f.choose("scalarBox", 1);
    QVERIFY(f.plot()->normalization() == Normalize::Dataset);
    // 1.4 times the mean of the traces' mean amplitudes: 1000 i + 249.5, and 250 for the first, whose zero
    // doesn't count.
    const double rms = (20 * 249.5 + 0.5 + 1000.0 * 190) / 20;
    QCOMPARE(f.text("lmaxEdit"), QString::number(double(float(float(rms) * 1.4)), 'g', 6));
}

void DisplayMenuTest::fieldsGiveTheirValueToThePlot_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<float>("wanted");
    QTest::newRow("clip") << "clipEdit"
                          << "1.5" << 1.5f;
    QTest::newRow("gain") << "gainEdit"
                          << "-6.5" << -6.5f;
    QTest::newRow("bias") << "biasEdit"
                          << "0.25" << 0.25f;
    QTest::newRow("least") << "lminEdit"
                           << "-5" << -5.0f;
    QTest::newRow("largest") << "lmaxEdit"
                             << "1e3" << 1000.0f;
    QTest::newRow("rms") << "rmsEdit"
                         << "12" << 12.0f;
}

static float fieldOf(const SeismicPlot* plot, const QString& name)
{
    return name == "clipEdit"   ? plot->clip()
           : name == "gainEdit" ? plot->gain()
           : name == "biasEdit" ? plot->bias()
           : name == "lminEdit" ? plot->rangeMin()
           : name == "lmaxEdit" ? plot->rangeMax()
                                : plot->rms();
}

void DisplayMenuTest::fieldsGiveTheirValueToThePlot()
{
    QFETCH(QString, name);
    QFETCH(QString, typed);
    QFETCH(float, wanted);
    MenuFixture f(2);
    f.type(name.toLatin1(), typed);
    for (int i = 0; i < 2; ++i) QVERIFY(std::abs(fieldOf(f.plot(i), name) - wanted) < 1e-5f * std::abs(wanted));
}

void DisplayMenuTest::badInputLeavesTheFormerValue_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("typed");
    QTest::newRow("no number") << "clipEdit"
                               << "wide";
    QTest::newRow("negative clip") << "clipEdit"
                                   << "-1";
    QTest::newRow("empty") << "gainEdit"
                           << "";
    QTest::newRow("a gain beyond the slider") << "gainEdit"
                                              << "900";
    QTest::newRow("not a number") << "biasEdit"
                                  << "nan";
    QTest::newRow("infinite") << "lmaxEdit"
                              << "inf";
    QTest::newRow("a decimal comma") << "lminEdit"
                                     << "1,5";
    QTest::newRow("part of an ensemble") << "moveEdit"
                                         << "1.5";
    QTest::newRow("no ensemble") << "moveEdit"
                                 << "0";
}

void DisplayMenuTest::badInputLeavesTheFormerValue()
{
    QFETCH(QString, name);
    QFETCH(QString, typed);
    MenuFixture f;
    const QString before = f.text(name.toLatin1());
    const float value = fieldOf(f.plot(), name);
    f.edit(name.toLatin1())->setText(typed);
    QTest::keyClick(f.edit(name.toLatin1()), Qt::Key_Return);
    QCOMPARE(f.text(name.toLatin1()), before);
    QCOMPARE(fieldOf(f.plot(), name), value);
    QCOMPARE(f.menu->moveup, 1);
}

void DisplayMenuTest::leavingAFieldCommitsOnlyWhatWasTyped()
{
    MenuFixture f;
    QSignalSpy edited(f.edit("clipEdit"), &NumberEdit::numberEdited);
    const auto leave = [&] {
        QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(f.edit("clipEdit"), &out);
    };
    leave();
    QCOMPARE(edited.count(), 0);
    f.edit("clipEdit")->selectAll();
    QTest::keyClicks(f.edit("clipEdit"), "4");
    leave();
    QCOMPARE(edited.count(), 1);
    QCOMPARE(f.plot()->clip(), 4.0f);
}

void DisplayMenuTest::aTypedRangeIsNotShownAsAutomatic()
{
    MenuFixture f;
    f.plot()->setAutoGain(false);
    f.page->updateDisplay();
    QVERIFY(!f.box("lautoBox")->isChecked());
    f.plot()->setRange(-7.0f, 7.0f);
    f.page->updateGain();
    QVERIFY(!f.box("lautoBox")->isChecked());
    QVERIFY(f.text("lmaxEdit") != QString("7"));
    f.plot()->setAutoGain(true);
    f.page->updateGain();
    QVERIFY(f.box("lautoBox")->isChecked());
    QCOMPARE(f.text("lmaxEdit"), QString("7"));
}

void DisplayMenuTest::theMoveUpGoesToTheRecord()
{
    MenuFixture f;
    QCOMPARE(f.text("moveEdit"), QString("1"));
    f.type("moveEdit", "3");
    QCOMPARE(f.menu->moveup, 3);
}

void DisplayMenuTest::theTraceSliderCountsTenthsOfATpi()
{
    MenuFixture f;
    f.box("tscaleBox")->click();
    f.slider("tscaleSlider")->setValue(1);
    QCOMPARE(f.plot()->traceSpacing(), 0.1f);
    QCOMPARE(f.text("tscaleEdit"), QString("0.1"));
    f.slider("tscaleSlider")->setValue(1000);
    QCOMPARE(f.plot()->traceSpacing(), 100.0f);
    QCOMPARE(f.text("tscaleEdit"), QString("100"));
    f.slider("tscaleSlider")->setValue(33);
    QCOMPARE(f.plot()->traceSpacing(), 3.3f);
    // 3.3 traces an inch at 115 dots: the axis ends where the canvas does.
    const double wide = f[0]->canvas()->contentsRect().width() * 3.3 / 115.0;
    QVERIFY(std::abs(f[0]->axisScaleDiv(QwtPlot::xTop).upperBound() - wide) < 1e-4);
    QVERIFY(std::abs(f[0]->restRect().width() - wide) < 1e-4);
    QCOMPARE(f[0]->zoomBase().width(), 21.0);  // zooms reach over all 20 traces
}

void DisplayMenuTest::aTypedTpiKeepsItsDecimals()
{
    MenuFixture f;
    f.box("tscaleBox")->click();
    f.type("tscaleEdit", "12.57");
    QCOMPARE(f.plot()->traceSpacing(), 12.57f);
    QCOMPARE(f.slider("tscaleSlider")->value(), 125);
    QCOMPARE(f.text("tscaleEdit"), QString("12.57"));
}

void DisplayMenuTest::theSampleSliderCountsTenthsOfAnIps()
{
    MenuFixture f;
    f.box("sscaleBox")->click();
    f.slider("sscaleSlider")->setValue(25);
    // 2.5 inches a second at 4 ms: 0.4 s an inch, 100 samples.
    QCOMPARE(f.plot()->sampleSpacing(), 100.0f);
    QCOMPARE(f.text("sscaleEdit"), QString("2.5"));
    f.type("sscaleEdit", "5.09");
    QCOMPARE(f.slider("sscaleSlider")->value(), 50);
    QCOMPARE(f.plot()->sampleSpacing(), float((1.0 / 5.09) / 0.004));
    const double shown = f[0]->axisScaleDiv(QwtPlot::yLeft).lowerBound();
    QVERIFY(std::abs(shown - f[0]->canvas()->contentsRect().height() / 5.09 / 115.0 * 1000.0) < 0.01);
}

void DisplayMenuTest::automaticSpacingDisablesSliderAndField()
{
    MenuFixture f;
    for (const char* axis : {"tscale", "sscale"}) {
        const QByteArray name(axis);
        QVERIFY(f.box(name + "Box")->isChecked());
        QVERIFY(!f.slider(name + "Slider")->isEnabled());
        QVERIFY(!f.edit(name + "Edit")->isEnabled());
        f.box(name + "Box")->click();
        QVERIFY(f.slider(name + "Slider")->isEnabled());
        QVERIFY(f.edit(name + "Edit")->isEnabled());
    }
    QVERIFY(!f.plot()->isAutoTraceSpacing());
    QVERIFY(!f.plot()->isAutoSampleSpacing());
    f.box("tscaleBox")->click();
    QVERIFY(f.plot()->isAutoTraceSpacing());
}

void DisplayMenuTest::automaticSpacingShowsWhatFits()
{
    MenuFixture f;
    const QRect canvas = f[0]->canvas()->contentsRect();
    const double tpi = 21.0 * 115.0 / canvas.width();
    QCOMPARE(f.text("tscaleEdit"), QString::number(tpi, 'f', 2));
    QCOMPARE(f.slider("tscaleSlider")->value(), int(10.0 * tpi));
    const double ips = 1.0 / (0.004 * 500.0 * 115.0 / canvas.height());
    QCOMPARE(f.text("sscaleEdit"), QString::number(ips, 'f', 3));
    QCOMPARE(f.slider("sscaleSlider")->value(), int(10.0 * ips));
    f[0]->resize(900, 700);
    settle();
    f.page->update();
    QCOMPARE(f.text("tscaleEdit"), QString::number(21.0 * 115.0 / f[0]->canvas()->contentsRect().width(), 'f', 2));
}

void DisplayMenuTest::spacingGoesToTheOtherDisplaysToo()
{
    MenuFixture f(2);
    f.others.append(f.displays.takeLast());
    f.box("tscaleBox")->click();
    f.slider("tscaleSlider")->setValue(50);
    QCOMPARE(f.others[0]->seismicPlot()->traceSpacing(), 5.0f);
    QVERIFY(!f.others[0]->seismicPlot()->isAutoTraceSpacing());
    f.choose("displayBox", VA);  // but the display mode is the main list's alone
    QVERIFY(f.others[0]->seismicPlot()->displayType() == WiggleVA);
}

void DisplayMenuTest::gainInDbGoesBothWays()
{
    MenuFixture f;
    f.slider("gainSlider")->setValue(20);
    QVERIFY(std::abs(f.plot()->gain() - 20.0f) < 1e-4f);
    QCOMPARE(f.text("gainEdit"), QString("20"));
    f.type("gainEdit", "7.9");
    QCOMPARE(f.slider("gainSlider")->value(), 7);
    QVERIFY(std::abs(f.plot()->gain() - 7.9f) < 1e-4f);
}

void DisplayMenuTest::aTypedRangeSurvivesTheNextEnsemble()
{
    MenuFixture f;
    f.choose("displayBox", Map);
    f.type("lminEdit", "100");
    f.type("lmaxEdit", "200");
    f.load(f.ensemble);
    QCOMPARE(f.plot()->rangeMin(), 100.0f);
    QCOMPARE(f.bar.maxValue(), 200.0);
}

void DisplayMenuTest::automaticRangeFollowsTheData()
{
    MenuFixture f;
    f.choose("scalarBox", 2);
    f.box("lautoBox")->click();
    QVERIFY(!f.plot()->isAutoGain());
    f.type("lmaxEdit", "5");
    QCOMPARE(f.plot()->rangeMax(), 5.0f);
    f.box("lautoBox")->click();
    QCOMPARE(f.plot()->rangeMax(), 19499.0f);
    QCOMPARE(f.text("lmaxEdit"), QString("19499"));
    for (auto& trace : f.ensemble.samples)
        for (float& sample : trace) sample *= 2.0f;
    f.load(f.ensemble);
    f.page->update();
    QCOMPARE(f.text("lmaxEdit"), QString("38998"));
}

void DisplayMenuTest::aTypedRmsMovesTheAutomaticRange()
{
    MenuFixture f;
    f.type("rmsEdit", "10");
    QCOMPARE(f.find<QLabel>("rmsLabel")->text(), QString("10"));
    QCOMPARE(f.text("lmaxEdit"), QString("14"));
    f.load(f.ensemble);
    f.page->update();
    QVERIFY(f.plot()->rms() > 9000.0f);  // measured again
    QCOMPARE(f.find<QLabel>("rmsLabel")->text(), QString::number(double(f.plot()->rms()), 'g', 6));
}

void DisplayMenuTest::boxesSwitchTheirFlags()
{
    MenuFixture f(2);
    f.box("biasBox")->click();
    f.box("aliasBox")->click();
    for (int i = 0; i < 2; ++i) {
        QVERIFY(f.plot(i)->isApplyBias());
        QVERIFY(f.plot(i)->isAntiAlias());
    }
    f.box("biasBox")->click();
    f.box("aliasBox")->click();
    QVERIFY(!f.plot()->isApplyBias());
    QVERIFY(!f.plot()->isAntiAlias());
}

void DisplayMenuTest::withoutAnOverlayTheBoxUnchecksItself()
{
    MenuFixture f;
    f.box("overlayBox")->click();
    QVERIFY(!f.box("overlayBox")->isChecked());
    f.type("gainEdit", "3");
    QVERIFY(std::abs(f.plot()->gain() - 3.0f) < 1e-4f);
}

void DisplayMenuTest::withAnOverlayTheControlsShowAndChangeIt()
{
    MenuFixture f;
    f[0]->setOverlayMode(true);
    f.load(f.ensemble);
    SeismicPlot* overlay = f[0]->overlayPlot();
    overlay->setGain(12.0f);
    overlay->setDisplayType(ColorB);
    f.box("overlayBox")->click();
    QVERIFY(f.box("overlayBox")->isChecked());
    QCOMPARE(f.text("gainEdit"), QString("12"));
    QCOMPARE(f.find<QComboBox>("displayBox")->currentText(), QString("Color"));
    f.type("gainEdit", "6");
    QVERIFY(std::abs(overlay->gain() - 6.0f) < 1e-4f);
    QCOMPARE(f.plot()->gain(), 0.0f);
    f.type("clipEdit", "3");  // the clip goes to both
    QCOMPARE(f.plot()->clip(), 3.0f);
    QCOMPARE(overlay->clip(), 3.0f);
    f.box("overlayBox")->click();
    QCOMPARE(f.text("gainEdit"), QString("0"));
}

void DisplayMenuTest::anotherDisplayIsShownAndChangedAlone()
{
    MenuFixture f(2);
    f.others.append(f.displays.takeLast());
    f.others[0]->seismicPlot()->setGain(9.0f);
    f.page->setDisplay(1);
    QCOMPARE(f.text("gainEdit"), QString("9"));
    f.type("gainEdit", "4");
    QVERIFY(std::abs(f.others[0]->seismicPlot()->gain() - 4.0f) < 1e-4f);
    QCOMPARE(f.plot()->gain(), 0.0f);
    f.page->setDisplay(0);
    QCOMPARE(f.text("gainEdit"), QString("0"));
}

void DisplayMenuTest::eachControlRepaintsOnce()
{
    MenuFixture f;
    const auto renders = [&](const std::function<void()>& change) { return rendersOf(f[0], change); };
    QCOMPARE(renders([&] { QTest::keyClick(f.find<QComboBox>("displayBox"), Qt::Key_Down); }), 1);
    QCOMPARE(renders([&] { f.choose("directBox", 1); }), 1);
    QCOMPARE(renders([&] { f.choose("scalarBox", 1); }), 1);
    QCOMPARE(renders([&] { f.slider("gainSlider")->setValue(5); }), 1);
    for (const char* name : {"clipEdit", "gainEdit", "biasEdit", "lminEdit", "lmaxEdit", "rmsEdit"})
        QCOMPARE(renders([&] { f.type(name, "1"); }), 1);
    for (const char* name : {"lautoBox", "biasBox", "aliasBox", "tscaleBox", "sscaleBox"})
        QCOMPARE(renders([&] { f.box(name)->click(); }), 1);
    QCOMPARE(renders([&] { f.slider("tscaleSlider")->setValue(44); }), 1);
    QCOMPARE(renders([&] { f.slider("sscaleSlider")->setValue(44); }), 1);
    QCOMPARE(renders([&] { f.type("tscaleEdit", "6"); }), 1);
    QCOMPARE(renders([&] { f.type("sscaleEdit", "6"); }), 1);
    settle();
    const int before = f[0]->myCanvas()->renderCount();
    f.page->update();
    settle();
    QCOMPARE(f[0]->myCanvas()->renderCount(), before);
}

void DisplayMenuTest::everyControlHasATipAndTheFootLineStands()
{
    MenuFixture f;
    int nControls = 0;
    for (QWidget* control : f.page->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (control->focusPolicy() == Qt::NoFocus) continue;
        QVERIFY2(!control->toolTip().isEmpty(), qPrintable(control->objectName()));
        ++nControls;
    }
    QCOMPARE(nControls, 24);
    bool found = false;
    for (const QLabel* label : f.page->findChildren<QLabel*>())
        found = found || label->text() == "Mouse:   MB1: Zoom,   MB3: UnZoom,   MB2: Pan";
    QVERIFY(found);
}

QTEST_MAIN(DisplayMenuTest)
#include "displaymenutest.moc"
