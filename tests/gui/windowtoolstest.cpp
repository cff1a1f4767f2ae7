/// The tools of a main window hear what it does.
#include "display/menus/drawdialog.h"
#include "sources/menus/segyrecdialog.h"
#include "sources/segyloader.h"
#include "tests/gui/modalanswer.h"
#include "tests/gui/segymenufixture.h"
#include "tests/gui/windowfixture.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QMessageBox>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QtTest>

class WindowToolsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void aToolHearsBeforeAndAfterEachRecord();
    void aToolHearsOfEachScreen();
    void aToolGetsEnsemblesThatAreNotDrawn();
    void aToolHearsTheEndOfTheData();
    void theEndOfAProcessedFlowSavesPicks();
    void aToolHearsOfAnotherFile();
    void aToolHearsOfAnotherFileWhileAllOfTheOldOneIsThere();
    void aToolHearsOfASeekBeforeItsRecordLeaves();
    void aToolHearsOfFewerScreens();
    void aToolHearsBeforeTheDisplaysAreMade();
    void closingAsksForUnsavedPicks();
    void closingAsksNobodyWithoutUnsavedPicks();
    void aToolIsHiddenWithTheWindow();
    void aToolLeavesWhenAnotherOfItsGroupIsSwitchedOn();
    void drawingEndsWhenAnotherToolTakesTheMouse();

private:
    QString shots();

    QTemporaryDir _home;
};

void WindowToolsTest::initTestCase()
{
    QVERIFY(_home.isValid());
    qputenv("TREVIA_HOME", _home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", _home.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _home.path());
}

/// Stands in for a picker: writes down what it is told.
class StandIn : public WindowTool
{
public:
    void beforeDisplaysCome() override { heard += "come"; }
    void beforeRecord() override
    {
        heard += "before";
        if (look) seen += look();
    }
    void afterRecord(int screen) override { heard += QString("after%1").arg(screen); }
    void screensDropped() override { heard += "dropped"; }
    void processEnsemble() override { heard += "process"; }
    void endOfData() override { heard += "end"; }
    void beforeData() override
    {
        heard += "data";
        if (look) seen += look();
    }
    void parametersChanged() override { heard += "parameters"; }
    bool hasUnsaved() const override { return isDirty; }
    void save() override
    {
        heard += "save";
        isDirty = false;
    }
    void hide() override { heard += "hide"; }
    Group group() const override { return Group::Mouse; }
    void leave() override { heard += "leave"; }

    QStringList heard;
    std::function<QString()> look;  ///< at the window, before its data leave
    QStringList seen;
    bool isDirty = false;
};

/// A window with the stand-in behind its own tools.
struct ToolsFixture : WindowFixture {
    StandIn* tool = nullptr;

    ToolsFixture() { tool = window->tools()->add(std::make_unique<StandIn>()); }
    /// What it has heard since the last question.
    QStringList take() { return std::exchange(tool->heard, QStringList()); }
};

/// Three shots of two traces.
QString WindowToolsTest::shots()
{
    return writeSegy(_home.filePath("shots.sgy"));
}

void WindowToolsTest::aToolHearsBeforeAndAfterEachRecord()
{
    ToolsFixture f;
    QVERIFY(f.open(shots(), 1, 1));
    f.take();
    f.window->nextRecord();
    QCOMPARE(f.take(), QStringList({"before", "after0"}));
    QCOMPARE(f.window->segyLoader()->priCurKey(), 1);
    f.window->previousRecord();
    QCOMPARE(f.take(), QStringList({"before", "after0"}));
}

void WindowToolsTest::aToolHearsOfEachScreen()
{
    ToolsFixture f;
    QVERIFY(f.open(shots(), 1, 1));
    f.take();
    f.window->findChild<QAction*>("screens2Act")->trigger();
    QCOMPARE(f.take(), QStringList({"after1"}));
    f.window->firstRecord();
    QCOMPARE(f.take(), QStringList({"before", "after0", "after1"}));
}

void WindowToolsTest::aToolGetsEnsemblesThatAreNotDrawn()
{
    ToolsFixture f;
    f.window->performProcessing();
    QCOMPARE(f.take(), QStringList({"process"}));
}

void WindowToolsTest::aToolHearsTheEndOfTheData()
{
    ToolsFixture f;
    QVERIFY(f.open(shots(), 1));  // without an index the end is found by reading on
    for (int i = 0; i < 2; ++i) f.window->nextRecord();
    f.take();
    f.window->nextRecord();
    QCOMPARE(f.take(), QStringList({"before", "end"}));
    f.window->setLastEnsemble(false);
    QCOMPARE(f.take(), QStringList());
}

void WindowToolsTest::theEndOfAProcessedFlowSavesPicks()
{
    ToolsFixture f;
    f.tool->isDirty = true;
    f.window->setLastEnsemble(true);  // the user may still go back
    QCOMPARE(f.take(), QStringList({"end"}));
    QVERIFY(!f.window->atExit());
    f.window->closeProcess();
    f.take();
    f.window->setLastEnsemble(true);
    QCOMPARE(f.take(), QStringList({"end", "save"}));
    QVERIFY(f.window->atExit());
}

void WindowToolsTest::aToolHearsOfAnotherFile()
{
    ToolsFixture f;
    QVERIFY(f.open(shots(), 1));
    QCOMPARE(f.take(), QStringList({"data", "after0", "parameters"}));
}

/// What is saved of the old data needs their loader, their words, their keys and their traces.
void WindowToolsTest::aToolHearsOfAnotherFileWhileAllOfTheOldOneIsThere()
{
    ToolsFixture f;
    QVERIFY(f.open(shots(), 1, 1));
    f.tool->look = [&] {
        return QString("%1 of %2 by word %3, %4 traces")
            .arg(f.shownKey())
            .arg(f.window->segyLoader()->currentFile().section('/', -1))
            .arg(f.menu->ipkey)
            .arg(f.traces());
    };
    const QString before = f.tool->look();
    QVERIFY(f.open(writeSegy(_home.filePath("other.sgy"), segyBytes(8)), 2, 1));
    QVERIFY(f.tool->look() != before);
    QCOMPARE(f.tool->seen, QStringList({before}));
}

void WindowToolsTest::aToolHearsOfASeekBeforeItsRecordLeaves()
{
    for (const int sort : {1, 2}) {
        ToolsFixture f;
        QVERIFY(f.open(shots(), 1, 1));
        f.tool->look = [&] { return f.shownKey(); };
        const QString before = f.shownKey();
        f.take();
        ModalAnswer answer([&](QDialog* dialog) {
            dialog->findChild<QComboBox*>("seekPriBox")->setCurrentIndex(sort - 1);
            auto* value = dialog->findChild<QSpinBox*>("seekSpin");
            value->setValue(value->maximum());
            dialog->accept();
        });
        f.window->seekRecord();
        QCOMPARE(answer.count, 1);
        QVERIFY(f.shownKey() != before);
        QCOMPARE(f.take(), sort == 1 ? QStringList({"before", "after0"}) : QStringList({"before", "data", "after0"}));
        for (const QString& seen : qAsConst(f.tool->seen)) QCOMPARE(seen, before);
    }
}

void WindowToolsTest::aToolHearsOfFewerScreens()
{
    ToolsFixture f;
    QVERIFY(f.open(shots(), 1, 1));
    f.window->findChild<QAction*>("screens3Act")->trigger();
    f.take();
    f.window->findChild<QAction*>("screens2Act")->trigger();
    QCOMPARE(f.take(), QStringList({"dropped"}));
}

void WindowToolsTest::aToolHearsBeforeTheDisplaysAreMade()
{
    parmmenu menu;
    setDisplayDefaults(&menu);
    MainWindow window(nullptr, &menu);
    StandIn* tool = window.tools()->add(std::make_unique<StandIn>());
    window.buildMainPlot();
    QCOMPARE(tool->heard.first(), QString("come"));
    QCOMPARE(tool->heard.count("come"), 1);
}

void WindowToolsTest::closingAsksForUnsavedPicks()
{
    for (const bool isYes : {true, false}) {
        ToolsFixture f;
        f.tool->isDirty = true;
        QString title, text;
        ModalAnswer answer([&](QDialog* dialog) {
            auto* box = qobject_cast<QMessageBox*>(dialog);
            title = box->windowTitle();
            text = box->text();
            box->button(isYes ? QMessageBox::Yes : QMessageBox::No)->click();
        });
        f.window->close();
        QCOMPARE(answer.count, 1);
        QCOMPARE(title, QString("Seismic Display"));
        QCOMPARE(text, QString("Save edits?"));
        QCOMPARE(f.take(), isYes ? QStringList({"save", "hide"}) : QStringList({"hide"}));
        QVERIFY(f.window->isHidden());
    }
}

void WindowToolsTest::closingAsksNobodyWithoutUnsavedPicks()
{
    ToolsFixture f;
    ModalAnswer answer([](QDialog* dialog) { dialog->reject(); });
    f.window->close();
    QCOMPARE(answer.count, 0);
    QCOMPARE(f.take(), QStringList({"hide"}));
}

void WindowToolsTest::aToolIsHiddenWithTheWindow()
{
    ToolsFixture f;
    f.window->closeProcessHide();
    QCOMPARE(f.take(), QStringList({"hide"}));
    QVERIFY(f.window->isHidden());
}

void WindowToolsTest::aToolLeavesWhenAnotherOfItsGroupIsSwitchedOn()
{
    ToolsFixture f;
    f.window->drawMenu();
    QCOMPARE(f.take(), QStringList());  // the dialog alone takes nothing
    auto* box = f.window->findChild<DrawDialog*>()->findChild<QCheckBox*>("enableBox");
    box->setChecked(true);
    QCOMPARE(f.take(), QStringList({"leave"}));
    box->setChecked(false);
    QCOMPARE(f.take(), QStringList());
    f.window->checkRadioButtons();  // a mode of the tool bar
    QCOMPARE(f.take(), QStringList({"leave"}));
}

void WindowToolsTest::drawingEndsWhenAnotherToolTakesTheMouse()
{
    ToolsFixture f;
    f.window->drawMenu();
    auto* dialog = f.window->findChild<DrawDialog*>();
    dialog->findChild<QCheckBox*>("enableBox")->setChecked(true);
    QVERIFY(dialog->isDrawing());
    f.window->tools()->switchedOn(f.tool);
    QVERIFY(!dialog->isDrawing());
    QVERIFY(!dialog->findChild<QCheckBox*>("enableBox")->isChecked());
}

QTEST_MAIN(WindowToolsTest)
#include "windowtoolstest.moc"
