/// Another parameter is another row: presets, session and overlay take it along.
#include "frame/parmsettings.h"

#include "frame/conditioningpreset.h"
#include "frame/windowsession.h"
#include "tracedata/parmmenu.h"
#include "tracedata/plotparm.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <memory>

namespace {

/// A row for a record that has more fields.
template <class More, class Record>
ParmField<More> rowFor(const ParmField<Record>& field)
{
    return {std::visit([](auto member) { return typename ParmField<More>::Member(member); }, field.member), field.rule};
}

template <class More, class Record>
std::vector<ParmField<More>> rowsFor(const std::vector<ParmField<Record>>& fields)
{
    std::vector<ParmField<More>> rows;
    for (const auto& field : fields) rows.push_back(rowFor<More>(field));
    return rows;
}

/// A plot with one parameter more.
struct TiltedParm : PlotParm {
    float tilt = 0.0f;  ///< degrees
};

/// All rows of a plot, and one.
std::vector<ParmField<TiltedParm>> tiltedFields()
{
    auto fields = rowsFor<TiltedParm>(plotParmFields());
    fields.push_back({&TiltedParm::tilt, {"tilt", "degrees", -45, 45, InPreset | InOverlay}});
    return fields;
}

struct Settings {
    QTemporaryDir folder;
    std::unique_ptr<QSettings> settings = std::make_unique<QSettings>(folder.filePath("s.ini"), QSettings::IniFormat);
    QSettings* get() { return settings.get(); }
    /// As the next session finds them.
    void reopen()
    {
        settings.reset();
        settings = std::make_unique<QSettings>(folder.filePath("s.ini"), QSettings::IniFormat);
    }
};

}  // namespace

TEST(ParmSettings, AnotherRowIsKeptByPresets)
{
    Settings f;
    TiltedParm kept;
    kept.tilt = 12.5f;
    kept.clip = 1.25f;
    kept.isPhase = true;
    kept.bias = 7.0f;  // of no preset
    writeParms(tiltedFields(), InPreset, kept, f.get());
    f.reopen();
    TiltedParm back;
    EXPECT_TRUE(readParms(tiltedFields(), InPreset, f.get(), &back));
    EXPECT_EQ(back.tilt, 12.5f);
    EXPECT_EQ(back.clip, 1.25f);
    EXPECT_TRUE(back.isPhase);
    EXPECT_EQ(back.bias, 0.0f);
}

TEST(ParmSettings, AnotherRowReachesTheOverlay)
{
    TiltedParm data, overlay;
    data.tilt = -3.0f;
    data.autoTraceSpacing = false;
    data.traceSpacing = 9.0f;
    data.clip = 4.0f;  // stays the data's own
    copyParms(tiltedFields(), InOverlay, data, &overlay);
    EXPECT_EQ(overlay.tilt, -3.0f);
    EXPECT_FALSE(overlay.autoTraceSpacing);
    EXPECT_EQ(overlay.traceSpacing, 9.0f);
    EXPECT_EQ(overlay.clip, 2.0f);
}

TEST(ParmSettings, AnotherRowOutlivesTheSession)
{
    struct MoreMenu : parmmenu {
        int shade = 0;
    };
    auto fields = rowsFor<MoreMenu>(sessionFields());
    fields.push_back({&MoreMenu::shade, {"shade", "percent", 0, 100, InSession, true}});
    Settings f;
    const auto kept = std::make_unique<MoreMenu>(), back = std::make_unique<MoreMenu>();
    kept->iscreens = 3;
    kept->idifference = 1;
    kept->shade = 40;
    writeParms(fields, InSession, *kept, f.get());
    f.reopen();
    EXPECT_TRUE(readParms(fields, InSession, f.get(), back.get()));
    EXPECT_EQ(back->iscreens, 3);
    EXPECT_EQ(back->idifference, 1);
    EXPECT_EQ(back->shade, 40);
}

TEST(ParmSettings, ARowOutsideItsRangeLeavesTheOldValueAndTheOthersAreRead)
{
    for (const QVariant& broken : {QVariant(4), QVariant(0), QVariant("two"), QVariant(1.5)}) {
        Settings f;
        f.get()->setValue("screens", broken);
        f.get()->setValue("difference", 1);
        const auto menu = std::make_unique<parmmenu>();
        menu->iscreens = 2;
        EXPECT_FALSE(readParms(sessionFields(), InSession, f.get(), menu.get()));
        EXPECT_EQ(menu->iscreens, 2) << broken.toString().toStdString();
        EXPECT_EQ(menu->idifference, 1);
    }
}

TEST(ParmSettings, WhatIsNotStoredStays)
{
    Settings f;
    PlotParm parm;
    parm.clip = 3.0f;
    EXPECT_TRUE(readParms(plotParmFields(), InPreset, f.get(), &parm));
    EXPECT_EQ(parm.clip, 3.0f);
}

/// A file as the program wrote it before the rows had a table: numbers as text, single precision as Qt's variants.
TEST(ParmSettings, APresetOfAnEarlierVersionStillLoads)
{
    Settings f;
    for (const auto& [key, value] :
         std::initializer_list<std::pair<const char*, QVariant>>{{"agc", true},
                                                                 {"agcWindow", 250},
                                                                 {"phase", false},
                                                                 {"phaseAngle", -90},
                                                                 {"filter", true},
                                                                 {"lowCut", 3},
                                                                 {"lowPass", 6},
                                                                 {"highPass", 40},
                                                                 {"highCut", 55},
                                                                 {"timeFilter", false},
                                                                 {"gain", QVariant::fromValue(0.1f)},
                                                                 {"clip", QVariant::fromValue(1.25f)},
                                                                 {"scaling", 1}})
        f.get()->setValue(QString("presets/old/") + key, value);
    f.reopen();
    ConditioningPreset preset;
    ASSERT_TRUE(loadPreset(f.get(), "old", &preset));
    EXPECT_TRUE(preset.isAGC && preset.isFilter);
    EXPECT_FALSE(preset.isPhase || preset.isTimeFilter);
    EXPECT_EQ(preset.agcWindow, 250);
    EXPECT_EQ(preset.phaseAngle, -90.0f);
    EXPECT_EQ(preset.lowCut, 3);
    EXPECT_EQ(preset.highCut, 55);
    EXPECT_EQ(preset.gain, 0.1f);
    EXPECT_EQ(preset.clip, 1.25f);
    EXPECT_EQ(preset.normalize, Normalize::Dataset);
}

TEST(ParmSettings, ValuesAreWrittenAsTheKindsThatTheyWere)
{
    Settings f;
    savePreset(f.get(), "new", ConditioningPreset());
    const auto kind = [&](const char* key) { return f.get()->value(QString("presets/new/") + key).userType(); };
    EXPECT_EQ(kind("agc"), int(QMetaType::Bool));
    EXPECT_EQ(kind("phaseAngle"), int(QMetaType::Int));
    EXPECT_EQ(kind("scaling"), int(QMetaType::Int));
    EXPECT_EQ(kind("gain"), int(QMetaType::Float));
}
