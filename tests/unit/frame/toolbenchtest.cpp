#include "frame/toolbench.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// Writes down what it is told, as its letter and a word.
class Listener : public WindowTool
{
public:
    Listener(std::string* heard, char letter, Group group = Group::None) : _heard(heard), _letter(letter), _group(group)
    {
    }
    ~Listener() override { say("gone"); }

    void beforeDisplaysCome() override { say("come"); }
    void beforeRecord() override { say("before"); }
    void afterRecord(int screen) override { say("after" + std::to_string(screen)); }
    void screensDropped() override { say("dropped"); }
    void processEnsemble() override { say("process"); }
    void endOfData() override { say("end"); }
    void beforeData() override { say("data"); }
    void parametersChanged() override { say("parameters"); }
    void overlayShown(bool on) override { say(on ? "overlay" : "no-overlay"); }
    void hide() override { say("hide"); }
    void beforeDisplaysGo() override { say("displays"); }
    bool hasUnsaved() const override { return isDirty; }
    void save() override { say("save"); }
    Group group() const override { return _group; }
    void leave() override { say("leave"); }

    bool isDirty = false;

private:
    void say(const std::string& word) { *_heard += _letter + (":" + word + " "); }

    std::string* _heard;
    char _letter;
    Group _group;
};

struct Bench {
    std::string heard;
    ToolBench bench;

    Listener* add(char letter, WindowTool::Group group = WindowTool::Group::None)
    {
        return bench.add(std::make_unique<Listener>(&heard, letter, group));
    }
    /// What has been heard since the last question.
    std::string take() { return std::exchange(heard, std::string()); }
};

}  // namespace

TEST(ToolBench, CallsItsToolsInTheOrderInWhichTheyCame)
{
    Bench f;
    f.add('a');
    f.add('b');
    f.bench.beforeRecord();
    f.bench.afterRecord(2);
    EXPECT_EQ(f.take(), "a:before b:before a:after2 b:after2 ");
    f.bench.beforeDisplaysCome();
    f.bench.screensDropped();
    EXPECT_EQ(f.take(), "a:come b:come a:dropped b:dropped ");
    f.bench.processEnsemble();
    f.bench.endOfData();
    EXPECT_EQ(f.take(), "a:process b:process a:end b:end ");
    f.bench.beforeData();
    f.bench.parametersChanged();
    EXPECT_EQ(f.take(), "a:data b:data a:parameters b:parameters ");
    f.bench.overlayShown(true);
    f.bench.overlayShown(false);
    f.bench.hide();
    EXPECT_EQ(f.take(), "a:overlay b:overlay a:no-overlay b:no-overlay a:hide b:hide ");
}

TEST(ToolBench, BeforeTheDisplaysGoTheLastToolIsToldFirst)
{
    Bench f;
    for (char letter : {'a', 'b', 'c'}) f.add(letter);
    f.bench.beforeDisplaysGo();
    EXPECT_EQ(f.take(), "c:displays b:displays a:displays ");
}

TEST(ToolBench, OnlyToolsWithSomethingUnsavedSave)
{
    Bench f;
    f.add('a');
    EXPECT_FALSE(f.bench.hasUnsaved());
    f.add('b')->isDirty = true;
    EXPECT_TRUE(f.bench.hasUnsaved());
    f.bench.save();
    EXPECT_EQ(f.take(), "b:save ");
}

TEST(ToolBench, OfAnExclusiveGroupTheOthersLeave)
{
    Bench f;
    Listener* a = f.add('a', WindowTool::Group::Mouse);
    Listener* b = f.add('b');
    f.add('c', WindowTool::Group::Mouse);
    f.bench.switchedOn(a);
    EXPECT_EQ(f.take(), "c:leave ");
    f.bench.switchedOn(b);  // of no group: nobody minds
    EXPECT_EQ(f.take(), "");
    f.bench.leave(WindowTool::Group::Mouse);
    EXPECT_EQ(f.take(), "a:leave c:leave ");
    f.bench.leave(WindowTool::Group::None);
    EXPECT_EQ(f.take(), "");
}

TEST(ToolBench, OwnsItsTools)
{
    std::string heard;
    {
        ToolBench bench;
        bench.add(std::make_unique<Listener>(&heard, 'a'));
    }
    EXPECT_EQ(heard, "a:gone ");
}
