/// The tab "Color Bar": what its controls do to the bar, the picture and the files.
#include "display/menus/colorbardialog.h"

#include "display/images/myqwtplotcanvas.h"
#include "display/menus/colorstoptable.h"
#include "display/seismicplot.h"
#include "tests/brokenplaces.h"
#include "tests/gui/displayfixture.h"
#include "tests/gui/modalanswer.h"
#include "widgets/copymissingfiles.h"
#include "widgets/numberedit.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QInputDialog>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>

#include <functional>

class ColorBarDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void theTableShowsTheStopsFromTheTop();
    void updatePaintsWithTheTable();
    void aColorIsChosenInADialog();
    void aNewStopTakesTheColorThatTheMapHasThere();
    void resetGoesBackToTheFormerColors();
    void resetGoesBackToTheFormerFile();
    void numberOfColorsGoesToBarAndTable();
    void aSavedFileHasAsManyColorsAsTheTableHasRows();
    void scaledColorsAndScaleValuesActAtOnce();
    void theBackgroundGoesToThePicture();
    void filesAreListedAndLoaded();
    void aBrokenFileIsRefusedByNameAndLine();
    void aFileOfOnlyAFirstLineKeepsTheStops();
    void saveWritesTheRowsThatCount();
    void saveRefusesAPath();
    void saveAsksBeforeItReplaces();
    void aFileThatCannotBeWrittenKeepsTheFormerOne();
    void unusedEditsSurviveOtherControls();
    void theOverlayBoxMovesToTheOtherBar();
    void eachChangeRepaintsOnce();
    void resetGivesTheModeBackToo();
    void missingFilesAreCopiedAndOthersStay();

private:
    QString path(const QString& name) const { return _home->path() + "/port/misc/" + name; }
    void write(const QString& name, const QByteArray& text) const
    {
        QDir().mkpath(path(""));
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
    }
    std::unique_ptr<QTemporaryDir> _home;
};

void ColorBarDialogTest::init()
{
    _home = std::make_unique<QTemporaryDir>();
    QVERIFY(_home->isValid());
    qputenv("TREVIA_HOME", _home->path().toLocal8Bit());
}

/// A display in colors, and the page on it.
struct PageFixture : DisplayFixture {
    TestEnsemble ensemble{20, 500};
    std::unique_ptr<ColorBarDialog> page;

    PageFixture()
    {
        load(ensemble);
        displays[0]->seismicPlot()->setDisplayType(ColorB);
        page = std::make_unique<ColorBarDialog>(&displays, &others);
        page->show();
    }
    template <typename Control>
    Control* find(const char* name)
    {
        auto* control = page->findChild<Control*>(name);
        if (!control) qFatal("no control %s", name);
        return control;
    }
    ColorStopTable* table() { return find<ColorStopTable>("colorTable"); }
    void press(const char* name) { QTest::mouseClick(find<QPushButton>(name), Qt::LeftButton); }
    QString percent(int row) { return table()->item(row, 1) ? table()->item(row, 1)->text() : QString(); }
    QString color(int row) { return table()->item(row, 0) ? table()->item(row, 0)->text() : QString(); }
    /// Types into the cell as a user does.
    void typePercent(int row, const QString& text)
    {
        table()->setCurrentCell(row, 1);
        table()->editItem(table()->item(row, 1) ? table()->item(row, 1) : newItem(row));
        auto* editor = table()->findChild<QLineEdit*>();
        QVERIFY(editor);
        editor->selectAll();
        if (text.isEmpty()) QTest::keyClick(editor, Qt::Key_Delete);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_VERIFY(!table()->findChild<QLineEdit*>());  // the table takes the text in an event of its own
    }
    void choose(const QString& file)
    {
        const auto found = find<QListWidget>("fileList")->findItems(file, Qt::MatchExactly);
        QCOMPARE(found.size(), 1);
        find<QListWidget>("fileList")->setCurrentItem(found.first());
    }

private:
    QTableWidgetItem* newItem(int row)
    {
        auto* item = new QTableWidgetItem;
        table()->setItem(row, 1, item);
        return item;
    }
};

/// Answers the next dialog of a kind; the timer runs in that dialog's own event loop.
template <typename Dialog>
static void answerNext(std::function<void(Dialog*)> answer)
{
    QTimer::singleShot(0, [answer] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (dialog)
            answer(dialog);
        else
            answerNext<Dialog>(answer);
    });
}

void ColorBarDialogTest::theTableShowsTheStopsFromTheTop()
{
    PageFixture f;
    QCOMPARE(f.table()->rowCount(), 256);
    QCOMPARE(f.table()->horizontalHeaderItem(0)->text(), QString("Color"));
    QCOMPARE(f.table()->horizontalHeaderItem(1)->text(), QString("Percentage"));
    const QStringList percents = {"100", "75", "50", "25", "0", ""};
    const QStringList colors = {"#ffff00", "#ff0000", "#ffffff", "#0000ff", "#000000", ""};
    for (int row = 0; row < 6; ++row) {
        QCOMPARE(f.percent(row), percents[row]);
        QCOMPARE(f.color(row), colors[row]);
    }
}

void ColorBarDialogTest::updatePaintsWithTheTable()
{
    PageFixture f;
    f.typePercent(1, "60");
    f.typePercent(3, "");
    QCOMPARE(f.bar.colorMap().rgb(0.0, 1.0, 0.75), qRgb(255, 0, 0));  // not in use yet
    f.press("updateButton");
    QCOMPARE(f.bar.colorMap().rgb(0.0, 1.0, 0.6), qRgb(255, 0, 0));
    QCOMPARE(f.bar.colorMap().rgb(0.0, 1.0, 0.25), qRgb(128, 128, 128));  // halfway from black to white
    QCOMPARE(f.percent(3), QString("0"));                                 // the dropped row has gone
}

void ColorBarDialogTest::aColorIsChosenInADialog()
{
    PageFixture f;
    answerNext<QColorDialog>([](QColorDialog* dialog) {
        dialog->setCurrentColor(QColor(10, 200, 30));
        dialog->accept();
    });
    f.table()->setCurrentCell(0, 0);
    QTest::keyClick(f.table(), Qt::Key_Return);
    QCOMPARE(f.color(0), QString("#0ac81e"));
    f.press("updateButton");
    QCOMPARE(f.bar.colorMap().color2(), qRgb(10, 200, 30));
    QCOMPARE(f.bar.getColorRGB2(1e9), qRgb(10, 200, 30));
}

void ColorBarDialogTest::aNewStopTakesTheColorThatTheMapHasThere()
{
    PageFixture f;
    f.typePercent(5, "62.5");  // between white at 50 and red at 75
    QCOMPARE(f.color(5), QString("#ff8080"));
    f.press("updateButton");
    QCOMPARE(f.percent(2), QString("62.5"));
}

void ColorBarDialogTest::resetGoesBackToTheFormerColors()
{
    PageFixture f;
    f.find<NumberEdit>("numColorsEdit")->setText("16");
    QTest::keyClick(f.find<NumberEdit>("numColorsEdit"), Qt::Key_Return);
    f.typePercent(1, "99");
    f.press("updateButton");
    QCOMPARE(f.bar.numColors(), 16);
    f.press("resetButton");
    QCOMPARE(f.bar.numColors(), 256);
    QCOMPARE(f.bar.colorMap().rgb(0.0, 1.0, 0.75), qRgb(255, 0, 0));
    QCOMPARE(f.percent(1), QString("75"));
}

void ColorBarDialogTest::numberOfColorsGoesToBarAndTable()
{
    PageFixture f;
    auto* edit = f.find<NumberEdit>("numColorsEdit");
    QCOMPARE(edit->text(), QString("256"));
    const auto type = [&](const QString& text) {
        edit->setText(text);
        QTest::keyClick(edit, Qt::Key_Return);
    };
    type("8");
    QCOMPARE(f.bar.numColors(), 8);
    QCOMPARE(f.table()->rowCount(), 8);
    type("0");
    QCOMPARE(edit->text(), QString("8"));
    type("2");  // no stop is lost: there are five
    QCOMPARE(f.bar.numColors(), 2);
    QCOMPARE(f.table()->rowCount(), 5);
}

void ColorBarDialogTest::resetGoesBackToTheFormerFile()
{
    write("a.col", "32,1\n0,4278190080\n1,4294967295\n");
    PageFixture f;
    f.choose("a.col");
    f.press("loadButton");
    QCOMPARE(f.bar.colorFile(), path("a.col"));
    f.press("resetButton");
    QCOMPARE(f.bar.colorFile(), QString());  // the next start must not load what was given up
    QCOMPARE(f.bar.numColors(), 256);
}

void ColorBarDialogTest::aSavedFileHasAsManyColorsAsTheTableHasRows()
{
    PageFixture f;
    f.find<NumberEdit>("numColorsEdit")->setText("2");
    QTest::keyClick(f.find<NumberEdit>("numColorsEdit"), Qt::Key_Return);
    QCOMPARE(f.table()->rowCount(), 5);
    f.press("updateButton");
    QCOMPARE(f.bar.numColors(), 2);  // the field's, although there are five stops
    QCOMPARE(f.find<NumberEdit>("numColorsEdit")->text(), QString("2"));
    answerNext<QInputDialog>([](QInputDialog* dialog) {
        dialog->setTextValue("five");
        dialog->accept();
    });
    f.press("saveButton");
    QCOMPARE(read("five.col").split('\n').first(), QByteArray("5,1"));
    QCOMPARE(f.bar.numColors(), 5);  // what is on the screen is what was saved
    QCOMPARE(f.find<NumberEdit>("numColorsEdit")->text(), QString("5"));
}

void ColorBarDialogTest::scaledColorsAndScaleValuesActAtOnce()
{
    PageFixture f;
    QVERIFY(f.find<QCheckBox>("scaledBox")->isChecked());
    f.find<QCheckBox>("scaledBox")->click();
    QCOMPARE(f.bar.colorMode(), 0);
    QCOMPARE(f.bar.colorMap().rgb(0.0, 1.0, 0.7), qRgb(255, 255, 255));  // of the stop below, not mixed
    f.find<QCheckBox>("drawScaleBox")->click();
    QVERIFY(!f.bar.isScaleDrawn());
    QCOMPARE(f.bar.width(), 15);
}

void ColorBarDialogTest::theBackgroundGoesToThePicture()
{
    PageFixture f;
    answerNext<QColorDialog>([](QColorDialog* dialog) {
        dialog->setCurrentColor(QColor(1, 2, 3));
        dialog->accept();
    });
    f.press("backgroundButton");
    QCOMPARE(f.bar.backRGB(), qRgb(1, 2, 3));
    // The first trace begins a trace width from the left edge.
    QCOMPARE(f[0]->grab().toImage().pixel(f[0]->canvas()->mapTo(f[0], QPoint(2, 100))), qRgb(1, 2, 3));
}

void ColorBarDialogTest::filesAreListedAndLoaded()
{
    write("b.col", "64,0\n0,4278190335\n1,4294901760\n");
    write("a.col", "32,1\n0,4278190080\n1,4294967295\n");
    write("notes.txt", "no colors\n");
    PageFixture f;
    auto* list = f.find<QListWidget>("fileList");
    QCOMPARE(list->count(), 2);
    QCOMPARE(list->item(0)->text(), QString("a.col"));
    f.choose("b.col");
    f.press("loadButton");
    QCOMPARE(f.bar.numColors(), 64);
    QCOMPARE(f.bar.colorMode(), 0);
    QCOMPARE(f.bar.colorMap().color1(), qRgb(0, 0, 255));
    QCOMPARE(f.bar.colorFile(), path("b.col"));
    QCOMPARE(f.percent(0), QString("100"));
    QCOMPARE(f.color(0), QString("#ff0000"));
    QVERIFY(!f.find<QCheckBox>("scaledBox")->isChecked());
    QCOMPARE(f.find<NumberEdit>("numColorsEdit")->text(), QString("64"));
}

void ColorBarDialogTest::aBrokenFileIsRefusedByNameAndLine()
{
    write("bad.col", "64,0\n0.5,green\n");
    PageFixture f;
    f.choose("bad.col");
    QString told;
    answerNext<QMessageBox>([&](QMessageBox* box) {
        told = box->text();
        box->accept();
    });
    f.press("loadButton");
    QCOMPARE(told, path("bad.col") + ", line 2: color: \"green\" is not the number of a color");
    QCOMPARE(f.bar.numColors(), 256);
    QCOMPARE(int(f.bar.colorMap().colorStops().size()), 5);
    QCOMPARE(f.bar.colorFile(), QString());  // nothing to load at the next start
}

void ColorBarDialogTest::aFileOfOnlyAFirstLineKeepsTheStops()
{
    write("first.col", "12,0\n");
    PageFixture f;
    f.choose("first.col");
    f.press("loadButton");
    QCOMPARE(f.bar.numColors(), 12);
    QCOMPARE(f.bar.colorMode(), 0);
    QCOMPARE(f.percent(1), QString("75"));
}

void ColorBarDialogTest::saveWritesTheRowsThatCount()
{
    PageFixture f;
    f.find<NumberEdit>("numColorsEdit")->setText("10");
    QTest::keyClick(f.find<NumberEdit>("numColorsEdit"), Qt::Key_Return);
    f.typePercent(1, "150");  // beyond the bar
    f.typePercent(2, "33.25");
    f.typePercent(3, "");      // dropped
    f.typePercent(5, "some");  // no number
    QString title;
    answerNext<QInputDialog>([&](QInputDialog* dialog) {
        title = dialog->windowTitle();
        dialog->setTextValue("mine");
        dialog->accept();
    });
    f.press("saveButton");
    QCOMPARE(title, QString("Save Colorbar to File "));
    // Yellow, white and black with all of their opacity: 0xffffff00, 0xffffffff, 0xff000000.
    QCOMPARE(read("mine.col"), QByteArray("10,1\n1,4294967040\n0.3325,4294967295\n0,4278190080\n"));
    QCOMPARE(f.find<QListWidget>("fileList")->count(), 1);
    QCOMPARE(f.bar.colorFile(), path("mine.col"));
}

void ColorBarDialogTest::saveRefusesAPath()
{
    PageFixture f;
    answerNext<QInputDialog>([](QInputDialog* dialog) {
        dialog->setTextValue("../outside");
        dialog->accept();
    });
    bool told = false;
    QTimer::singleShot(50, [&] {
        answerNext<QMessageBox>([&](QMessageBox* box) {
            told = true;
            box->accept();
        });
    });
    f.press("saveButton");
    QVERIFY(told);
    QVERIFY(!QFile::exists(_home->path() + "/port/outside.col"));
}

void ColorBarDialogTest::saveAsksBeforeItReplaces()
{
    write("mine.col", "old\n");
    PageFixture f;
    for (const bool replaces : {false, true}) {
        answerNext<QInputDialog>([](QInputDialog* dialog) {
            dialog->setTextValue("mine.col");
            dialog->accept();
        });
        QTimer::singleShot(50, [=] {
            answerNext<QMessageBox>(
                [=](QMessageBox* box) { box->button(replaces ? QMessageBox::Yes : QMessageBox::No)->click(); });
        });
        f.press("saveButton");
        QCOMPARE(read("mine.col").startsWith("256,1\n"), replaces);
    }
}

void ColorBarDialogTest::aFileThatCannotBeWrittenKeepsTheFormerOne()
{
    PageFixture f;
    const auto saves = [&] {
        QString told;
        ModalAnswer answer([&](QDialog* dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
                if (!box->button(QMessageBox::Yes)) told = box->text();
                box->button(QMessageBox::Yes) ? box->button(QMessageBox::Yes)->click() : box->accept();
            } else if (auto* input = qobject_cast<QInputDialog*>(dialog)) {
                input->setTextValue("mine");
                input->accept();
            }
        });
        f.press("saveButton");
        return told;
    };
    QDir().mkpath(_home->filePath("port"));
    FullDisk disk;
    QVERIFY(QFile::link(QFileInfo(disk.path("x")).path(), _home->filePath("port/misc")));
    write("mine.col", "old\n");
    disk.fill();
    QVERIFY(saves().contains("mine.col"));
    QCOMPARE(read("mine.col"), QByteArray("old\n"));
    disk.empty();
    {
        const ReadOnlyFolder locked(path(""));
        QVERIFY(saves().contains("mine.col"));
    }
    QCOMPARE(read("mine.col"), QByteArray("old\n"));
    QVERIFY(QFile::remove(_home->filePath("port/misc")));
    QVERIFY(saves().isEmpty());  // a folder that is gone is made anew
    QVERIFY(read("mine.col").startsWith("256,1\n"));
}

void ColorBarDialogTest::unusedEditsSurviveOtherControls()
{
    PageFixture f;
    f.typePercent(1, "60");
    f.find<QCheckBox>("drawScaleBox")->click();
    f.find<QCheckBox>("scaledBox")->click();
    QCOMPARE(f.percent(1), QString("60"));
}

void ColorBarDialogTest::theOverlayBoxMovesToTheOtherBar()
{
    PageFixture f;
    QVERIFY(!f.find<QCheckBox>("overlayBox")->isEnabled());
    TestEnsemble ensemble(20, 500);
    f[0]->setOverlayMode(true);
    f.load(ensemble);
    ColorBarFrame& second = f.host.overlayBar;
    second.setNumColors(5);
    f.page->setOverlayMode(true);
    f.find<QCheckBox>("overlayBox")->click();
    QCOMPARE(f.find<NumberEdit>("numColorsEdit")->text(), QString("5"));
    f.find<QCheckBox>("scaledBox")->click();
    QCOMPARE(second.colorMode(), 0);
    QCOMPARE(f.bar.colorMode(), 1);
    f.page->setOverlayMode(false);
    QCOMPARE(f.find<NumberEdit>("numColorsEdit")->text(), QString("256"));
}

void ColorBarDialogTest::resetGivesTheModeBackToo()
{
    PageFixture f;
    QCOMPARE(f.bar.colorMode(), 1);
    f.find<QCheckBox>("scaledBox")->click();
    QCOMPARE(f.bar.colorMode(), 0);
    f.press("resetButton");
    QCOMPARE(f.bar.colorMode(), 1);
}

void ColorBarDialogTest::eachChangeRepaintsOnce()
{
    write("b.col", "64,0\n0,4278190335\n1,4294901760\n");
    PageFixture f;
    f.choose("b.col");
    for (const char* name : {"loadButton", "resetButton", "updateButton", "scaledBox"}) {
        const auto click = [&] {
            QTest::mouseClick(f.find<QAbstractButton>(name), Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
        };
        QCOMPARE(rendersOf(f[0], click), 1);
    }
}

void ColorBarDialogTest::missingFilesAreCopiedAndOthersStay()
{
    QTemporaryDir shipped;
    for (const char* name : {"/a.col", "/b.col"}) {
        QFile file(shipped.path() + name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("shipped\n");
    }
    write("b.col", "mine\n");
    QCOMPARE(copyMissingFiles(shipped.path(), path("")), 1);
    QCOMPARE(read("a.col"), QByteArray("shipped\n"));
    QCOMPARE(read("b.col"), QByteArray("mine\n"));
    QVERIFY(QFileInfo(path("a.col")).isWritable());
    QCOMPARE(copyMissingFiles(shipped.path(), path("")), 0);
    QCOMPARE(copyMissingFiles(shipped.path(), "/proc/none"), -1);
}

QTEST_MAIN(ColorBarDialogTest)
#include "colorbardialogtest.moc"
