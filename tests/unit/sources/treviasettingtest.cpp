#include "sources/treviasetting.h"

#include "host/home.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

class TreviaSettingTest : public testing::Test
{
protected:
    void SetUp() override { qputenv("TREVIA_HOME", _home.path().toLocal8Bit()); }
    void TearDown() override { qunsetenv("TREVIA_HOME"); }
    QTemporaryDir _home;
};

}  // namespace

TEST_F(TreviaSettingTest, AFileThatIsNotThereHasNoLines)
{
    const TreviaSetting setting("NORTH", "LINE1");
    EXPECT_TRUE(setting.loadFile().isEmpty());
    EXPECT_EQ(setting.readSetting("fbpick-ipmethod"), "");
    EXPECT_EQ(setting.fileName(), _home.path() + "/areas/NORTH/LINE1/meridune.setting");
}

TEST_F(TreviaSettingTest, AKeyIsReplacedAndOthersStayInTheirOrder)
{
    TreviaSetting setting("NORTH", "LINE1");
    EXPECT_TRUE(setting.writeSetting("velsemb-start", "1500"));
    EXPECT_TRUE(setting.writeSetting("velsemb-end", "5000"));
    EXPECT_TRUE(setting.writeSetting("velsemb-start", "1600"));
    EXPECT_EQ(setting.loadFile(), (QStringList{"velsemb-start|1600", "velsemb-end|5000"}));
    EXPECT_EQ(setting.readSetting("velsemb-start"), "1600");
    EXPECT_EQ(setting.readSetting("velsemb"), "");  // a whole key, not its beginning
}

TEST_F(TreviaSettingTest, TheValueIsAllThatStandsBehindTheFirstBar)
{
    TreviaSetting setting("NORTH", "LINE1");
    EXPECT_TRUE(setting.saveFile({"a|1|2", "a|3", "no bar"}));
    EXPECT_EQ(setting.readSetting("a"), "1|2");
    EXPECT_EQ(setting.readSetting("no bar"), "");
    EXPECT_TRUE(setting.writeSetting("a", "x\ny"));
    EXPECT_EQ(setting.loadFile(), (QStringList{"a|x y", "a|3", "no bar"}));
}

TEST_F(TreviaSettingTest, NamesThatWouldLeaveTheFolderAreRefused)
{
    EXPECT_STREQ(treviaLinePath("..", "LINE1"), "");
    EXPECT_STREQ(treviaLinePath("NORTH", "a/b"), "");
    EXPECT_STREQ(treviaLinePath("NORTH", ""), "");
    TreviaSetting setting("..", "LINE1");
    EXPECT_FALSE(setting.writeSetting("a", "1"));
    EXPECT_TRUE(setting.loadFile().isEmpty());
}
