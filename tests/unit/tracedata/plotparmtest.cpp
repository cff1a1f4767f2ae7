#include "tracedata/plotparm.h"

#include "tracedata/parmmenu.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <set>

using Field = ParmField<PlotParm>;

/// A value of the field that isn't the given one, inside the range.
static ParmValue otherValue(const Field& field, const ParmValue& value)
{
    if (const bool* on = std::get_if<bool>(&value)) return !*on;
    if (const int* whole = std::get_if<int>(&value)) return *whole + 1 <= field.rule.most ? *whole + 1 : *whole - 1;
    const float number = std::get<float>(value);
    const float half = number == 0.0f ? 0.375f : number / 2.0f;
    return half;
}

TEST(PlotParm, EveryRowSetsAFieldOfItsOwn)
{
    std::set<std::string> keys;
    for (const Field& field : plotParmFields()) {
        SCOPED_TRACE(field.rule.key);
        EXPECT_TRUE(keys.insert(field.rule.key).second);
        const PlotParm before;
        PlotParm parm;
        ASSERT_TRUE(field.setValue(otherValue(field, field.value(parm)), &parm));
        for (const Field& other : plotParmFields())
            EXPECT_EQ(other.value(parm) != other.value(before), &other == &field) << other.rule.key;
    }
}

TEST(PlotParm, EveryRowPrintsAndReadsBack)
{
    for (const Field& field : plotParmFields()) {
        SCOPED_TRACE(field.rule.key);
        PlotParm parm;
        const ParmValue changed = otherValue(field, field.value(parm));
        ASSERT_TRUE(field.setValue(changed, &parm));
        const std::string text = field.print(parm);
        PlotParm back;
        ASSERT_TRUE(field.read(text, &back)) << text;
        EXPECT_EQ(field.value(back), changed) << text;
    }
}

TEST(PlotParm, EveryRowRefusesWhatIsOutsideItsRange)
{
    for (const Field& field : plotParmFields()) {
        SCOPED_TRACE(field.rule.key);
        PlotParm parm;
        const ParmValue before = field.value(parm);
        for (const double number : {field.rule.least - std::max(1.0, std::fabs(field.rule.least) * 1e-3),
                                    field.rule.most + std::max(1.0, std::fabs(field.rule.most) * 1e-3)}) {
            if (std::holds_alternative<bool>(before)) continue;  // has no other values
            if (std::fabs(number) > 3.4028e38) continue;         // no number of this kind lies outside
            const ParmValue outside =
                std::holds_alternative<int>(before) ? ParmValue(int(number)) : ParmValue(float(number));
            EXPECT_FALSE(field.setValue(outside, &parm)) << number;
            EXPECT_EQ(field.value(parm), before);
        }
        if (std::holds_alternative<float>(before)) {
            for (const float number : {NAN, INFINITY, -INFINITY}) EXPECT_FALSE(field.setValue(number, &parm)) << number;
        }
        EXPECT_EQ(field.value(parm), before);
        for (const char* text : {"", "many", "1e", "5 apples", "nan"}) {
            EXPECT_FALSE(field.read(text, &parm)) << text;
            EXPECT_EQ(field.value(parm), before);
        }
    }
}

TEST(PlotParm, PrintsForThePersonWhoReads)
{
    PlotParm parm;
    parm.isAGC = true;
    parm.gain = -7.5f;
    parm.phaseAngle = -90.0f;
    parm.displayType = ColorWiggle;
    const auto printed = [&](const char* key) { return plotParmField(key).print(parm); };
    EXPECT_EQ(printed("agc"), "on");
    EXPECT_EQ(printed("phase"), "off");
    EXPECT_EQ(printed("agcWindow"), "500 ms");
    EXPECT_EQ(printed("gain"), "-7.5 dB");
    EXPECT_EQ(printed("phaseAngle"), "-90 degrees");
    EXPECT_EQ(printed("displayType"), "Color/Wiggle");
    EXPECT_EQ(printed("scaling"), "Trace");
    EXPECT_EQ(printed("bias"), "0");
}

TEST(PlotParm, ReadsANumberWithItsUnitOrWithout)
{
    PlotParm parm;
    EXPECT_TRUE(plotParmField("agcWindow").read(" 250 ms ", &parm));
    EXPECT_EQ(parm.agcWindow, 250);
    EXPECT_TRUE(plotParmField("agcWindow").read("300", &parm));
    EXPECT_EQ(parm.agcWindow, 300);
    EXPECT_FALSE(plotParmField("agcWindow").read("300.5", &parm));
    EXPECT_FALSE(plotParmField("agcWindow").read("300 Hz", &parm));
    EXPECT_TRUE(plotParmField("scaling").read("2", &parm));
    EXPECT_EQ(parm.normalize, Normalize::None);
    EXPECT_TRUE(plotParmField("agc").read("true", &parm));
    EXPECT_TRUE(parm.isAGC);
    EXPECT_EQ(parm.agcWindow, 300);
}

namespace {

struct Menu {
    std::unique_ptr<parmmenu> menu = std::make_unique<parmmenu>();
    parmmenu* operator->() { return menu.get(); }
    PlotParm taken(PlotParm parm = {})
    {
        takeFromMenu(*menu, &parm);
        return parm;
    }
};

}  // namespace

TEST(PlotParm, TakesWhatTheMenuRecordSays)
{
    Menu menu;
    menu->idisplay = Wiggle;
    menu->idirection = RightToLeft;
    menu->iscale = 2;
    menu->igain = -6;
    menu->clip = 1.5f;
    menu->bias = 3.0f;
    menu->tpi = 8.0f;
    menu->ips = 4.0f;
    menu->iagc = 1;
    menu->agcwinlen = 300;
    menu->irange = 0;
    menu->minrange = -2.0f;
    menu->maxrange = 5.0f;
    const PlotParm parm = menu.taken();
    EXPECT_EQ(parm.displayType, Wiggle);
    EXPECT_EQ(parm.plotDirection, RightToLeft);
    EXPECT_EQ(parm.normalize, Normalize::Dataset);
    EXPECT_EQ(parm.gain, -6.0f);
    EXPECT_EQ(parm.clip, 1.5f);
    EXPECT_EQ(parm.bias, 3.0f);
    EXPECT_FALSE(parm.autoTraceSpacing);
    EXPECT_EQ(parm.traceSpacing, 8.0f);
    EXPECT_FALSE(parm.autoSampleSpacing);
    EXPECT_EQ(parm.sampleSpacing, 125.0f);  // 1 / 4 s an inch, 2 ms a sample
    EXPECT_TRUE(parm.isAGC);
    EXPECT_EQ(parm.agcWindow, 300);
    EXPECT_FALSE(parm.autoRange);
    EXPECT_EQ(parm.rangeMin, -2.0f);
    EXPECT_EQ(parm.rangeMax, 5.0f);
}

TEST(PlotParm, KeepsItsOwnWhereTheMenuRecordLeavesTheChoice)
{
    Menu menu;
    menu->irange = 1;
    PlotParm own;
    own.traceSpacing = 7.0f;
    own.agcWindow = 800;
    own.isPhase = true;
    own.rangeMin = -9.0f;
    own.autoRange = false;
    const PlotParm parm = menu.taken(own);
    EXPECT_TRUE(parm.autoTraceSpacing);
    EXPECT_EQ(parm.traceSpacing, 7.0f);
    EXPECT_EQ(parm.agcWindow, 800);  // no length is told for a gain control that is off
    EXPECT_TRUE(parm.isPhase);       // no such field
    EXPECT_TRUE(parm.autoRange);
    EXPECT_EQ(parm.rangeMin, -9.0f);
    EXPECT_EQ(parm.normalize, Normalize::None);
}

TEST(PlotParm, ColoursOfAmplitudesHaveARangeOfTheirOwn)
{
    for (const int type : {int(ColorB), int(ColorWiggle)}) {
        Menu menu;
        menu->irange = 1;
        menu->idisplay = type;
        const PlotParm parm = menu.taken();
        EXPECT_FALSE(parm.autoRange);
        EXPECT_EQ(parm.rangeMin, -3.0f);
        EXPECT_EQ(parm.rangeMax, 3.0f);
    }
    Menu velocity;
    velocity->idisplay = Velocity;
    velocity->iscale = 1;
    EXPECT_EQ(velocity.taken().normalize, Normalize::None);  // velocities aren't scaled
}

TEST(PlotParm, TheMenuRecordKeepsTheGainControlForOtherDisplays)
{
    Menu menu;
    menu->igain = 4;
    PlotParm parm;
    parm.isAGC = true;
    parm.agcWindow = 250;
    parm.gain = 9.0f;
    keepInMenu(parm, menu.menu.get());
    EXPECT_EQ(menu->iagc, 1);
    EXPECT_EQ(menu->agcwinlen, 250);
    EXPECT_EQ(menu->igain, 4);
}
