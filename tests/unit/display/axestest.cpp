/// Labels and steps of the axes.
#include "display/statuslines.h"
#include "display/tools/pickertools.h"
#include "display/zoom/axisstep.h"
#include "display/zoom/myqwtplotmagnifier.h"
#include "display/zoom/myqwtplotpanner.h"
#include "display/zoom/myqwtplotzoomer.h"
#include "display/zoom/recordaxisscaledraw.h"
#include "display/zoom/seismicaxisscaledraw.h"

#include <gtest/gtest.h>

#include <qwt_text.h>

#include <cmath>

TEST(AxisStep, TheWantedStepStandsWhereItGivesLabels)
{
    EXPECT_EQ(axisStep(2000.0, 500.0), 500.0);
    EXPECT_EQ(axisStep(1500.0, 500.0), 500.0);
    EXPECT_EQ(axisStep(-2000.0, 500.0), 500.0);
}

TEST(AxisStep, AShortSpanGetsARoundSmallerStep)
{
    EXPECT_DOUBLE_EQ(axisStep(600.0, 500.0), 200.0);
    EXPECT_DOUBLE_EQ(axisStep(250.0, 500.0), 50.0);
    EXPECT_DOUBLE_EQ(axisStep(0.9, 500.0), 0.2);
    EXPECT_DOUBLE_EQ(axisStep(1.5, 10.0, 3, 1.0), 1.0);
}

TEST(AxisStep, NothingToDivideGivesTheWantedStep)
{
    EXPECT_EQ(axisStep(0.0, 500.0), 500.0);
    EXPECT_EQ(axisStep(100.0, 0.0), 0.0);
}

TEST(AxisStep, LabelsThatWouldTouchAreThinnedOut)
{
    EXPECT_EQ(roomyStep(10000.0, 500.0, 30), 500.0);
    EXPECT_EQ(roomyStep(10000.0, 500.0, 20), 500.0);
    EXPECT_EQ(roomyStep(10000.0, 500.0, 19), 1000.0);
    EXPECT_EQ(roomyStep(240000.0, 500.0, 30), 10000.0);  // 24 labels; with 5000 there would be 48
    EXPECT_EQ(roomyStep(100.0, 0.0, 30), 0.0);
}

TEST(AxisRule, AutomaticStepsAreOneTwoAndFive)
{
    AxisRule rule(500.0);
    rule.most = 20;
    EXPECT_EQ(rule.step(2000.0), 500.0);
    EXPECT_EQ(rule.step(12000.0), 1000.0);
    EXPECT_EQ(rule.step(30000.0), 2000.0);  // not 2500
    EXPECT_EQ(rule.step(90000.0), 5000.0);
    EXPECT_DOUBLE_EQ(rule.step(600.0), 200.0);
}

TEST(AxisRule, ATypedStepIsKeptHoweverFewOrManyLabelsItGives)
{
    AxisRule rule(100.0);
    rule.isTyped = true;
    rule.most = 250;
    EXPECT_EQ(rule.step(8000.0), 100.0);
    EXPECT_EQ(rule.step(50.0), 100.0);
    EXPECT_EQ(rule.step(-8000.0), 100.0);
    EXPECT_EQ(rule.step(40000.0), 200.0);  // 400 lines have no gaps between them
    rule.wanted = 70.0;
    EXPECT_EQ(rule.step(8000.0), 70.0);
}

TEST(AxisRule, AStepThatIsNotRoundGrowsByItsMultiples)
{
    AxisRule rule(7.0);
    rule.most = 10;
    EXPECT_EQ(rule.step(100.0), 14.0);
    EXPECT_EQ(rule.step(200.0), 35.0);
}

TEST(AxisRule, NoStepIsBelowTheSmallest)
{
    AxisRule rule(1.0);
    rule.smallest = 1.0;
    EXPECT_EQ(rule.step(1.2), 1.0);
    EXPECT_EQ(AxisRule(0.0).step(100.0), 0.0);
}

TEST(SeismicAxis, SmallPositionsGetTheDecimalsThatTheirSizeAsksFor)
{
    EXPECT_EQ(positionText(0.0), "0");
    EXPECT_EQ(positionText(1500.0), "1500");
    EXPECT_EQ(positionText(2.5), "2.5");
    EXPECT_EQ(positionText(0.24), "0.2");
    EXPECT_EQ(positionText(0.05), "0.05");
    EXPECT_EQ(positionText(0.004), "0.004");
    EXPECT_EQ(positionText(0.0003), "0.0003");
    EXPECT_EQ(positionText(0.00002), "0.00002");
    EXPECT_EQ(positionText(0.000001), "1e-06");
}

TEST(SeismicAxis, LabelsCountFromTheStartAndHaveNoSign)
{
    SeismicAxisScaleDraw axis;
    axis.setStart(-300.0f);
    EXPECT_EQ(axis.label(100.0).text(), "200");
    axis.setFake(true);
    EXPECT_TRUE(axis.label(100.0).isEmpty());
}

TEST(RecordAxis, ATraceIsLabelledWithItsHeaderWord)
{
    const float values[] = {0, 101, 102, 103.5f};
    RecordAxisScaleDraw axis;
    EXPECT_TRUE(axis.label(1.0).isEmpty());
    axis.setAxisArray(values, 3, 'I');
    EXPECT_EQ(axis.label(1.0).text(), "101");
    EXPECT_EQ(axis.label(2.9).text(), "102");
    EXPECT_TRUE(axis.label(0.9).isEmpty());
    EXPECT_TRUE(axis.label(4.0).isEmpty());
    axis.setAxisArray(values, 3, 'F');
    EXPECT_EQ(axis.label(3.0).text(), "103.5");
    EXPECT_EQ(axis.getElement(2.0f), 102.0f);
    EXPECT_EQ(axis.getElement(9.0f), 0.0f);
}

TEST(RecordAxis, ValuesThatAreNoNumbersAreLabelledSafely)
{
    const float values[] = {0, NAN, 1e30f, INFINITY};
    RecordAxisScaleDraw axis;
    axis.setAxisArray(values, 3, 'I');
    EXPECT_EQ(axis.label(1.0).text(), "0");
    EXPECT_EQ(axis.label(2.0).text(), "0");
    axis.setMethod(1, 0);  // nothing is a multiple of 0
    EXPECT_EQ(axis.label(3.0).text(), "0");
    EXPECT_TRUE(axis.label(NAN).isEmpty());
    EXPECT_EQ(axis.getElement(NAN), 0.0f);
}

TEST(RecordAxis, MethodOneLabelsMultiplesAndMethodThreeChanges)
{
    const float values[] = {0, 10, 10, 15, 20};
    RecordAxisScaleDraw axis;
    axis.setAxisArray(values, 4, 'I');
    axis.setMethod(1, 10);
    EXPECT_EQ(axis.label(1.0).text(), "10");
    EXPECT_TRUE(axis.label(3.0).isEmpty());
    EXPECT_EQ(axis.label(4.0).text(), "20");
    axis.setMethod(3, 10);
    EXPECT_EQ(axis.label(1.0).text(), "10");  // nothing stands before it
    EXPECT_TRUE(axis.label(2.0).isEmpty());
    EXPECT_EQ(axis.label(3.0).text(), "15");
    axis.setFake(true);
    EXPECT_EQ(axis.label(2.0).text(), "0");
}

TEST(Panner, AMoveThatLeavesTheDataStopsWithTheSpanIntact)
{
    double lower = -20.0, upper = 80.0;
    limitInterval(0.0, 1000.0, &lower, &upper);
    EXPECT_EQ(lower, 0.0);
    EXPECT_EQ(upper, 100.0);
    lower = 950.0, upper = 1050.0;
    limitInterval(0.0, 1000.0, &lower, &upper);
    EXPECT_EQ(lower, 900.0);
    EXPECT_EQ(upper, 1000.0);
    lower = -5.0, upper = 10.0;
    limitInterval(3.4e38f, 3.4e38f, &lower, &upper);
    EXPECT_EQ(lower, 0.0);  // without limits only 0 holds
    EXPECT_EQ(upper, 10.0);
}

TEST(Panner, HalvesOfAPixelGoUpOnBothSidesOfZero)
{
    EXPECT_EQ(wholePixel(2.4), 2.0);
    EXPECT_EQ(wholePixel(2.5), 3.0);
    EXPECT_EQ(wholePixel(-2.4), -2.0);
    EXPECT_EQ(wholePixel(-2.5), -2.0);  // from -3, 0.5 above it: one more
    EXPECT_EQ(wholePixel(-2.6), -3.0);
    EXPECT_EQ(wholePixel(NAN), 0.0);
}

TEST(Zoomer, RectanglesAreTheSameWithinTwelveDigits)
{
    EXPECT_TRUE(sameRect(QRectF(0, 0, 100, 2000), QRectF(0, 0, 100 * (1 + 5e-13), 2000)));
    EXPECT_FALSE(sameRect(QRectF(0, 0, 100, 2000), QRectF(0, 0, 100 * (1 + 5e-12), 2000)));
    EXPECT_FALSE(sameRect(QRectF(0, 0, 100, 2000), QRectF(1e-30, 0, 100, 2000)));
}

TEST(Magnifier, EachWholeNotchOfTheWheelCounts)
{
    EXPECT_DOUBLE_EQ(wheelTurnFactor(0.9, -120), 0.9);
    EXPECT_DOUBLE_EQ(wheelTurnFactor(0.9, 120), 1.0 / 0.9);
    EXPECT_DOUBLE_EQ(wheelTurnFactor(0.9, -359), 0.81);  // two whole notches
    EXPECT_DOUBLE_EQ(wheelTurnFactor(0.9, 100), 1.0);
}

TEST(PickerTools, TheControlLineTellsTheButtonsAndTheMode)
{
    PickerTools pickers;
    EXPECT_EQ(controlLine(true, "", false), "MB1 down and drag: zoom,   MB2 down and drag: pann,    MB3 down: unzoom");
    EXPECT_EQ(controlLine(false, pickers[Picker::Spectrum].controlText(), true),
              "CTRL MB1 down and drag: zoom,   CTRL MB2 down and drag: pann,    CTRL MB3 down: unzoom"
              "   MB1 down/drag: show spectrum,   SHFT MB3: context menu");
    EXPECT_EQ(pickers[Picker::Moveout].controlText(), "");
}
