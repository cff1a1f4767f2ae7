/// The dialog "Titles": each control driven as a user would, and what stands around the plots then.
#include "display/menus/titles.h"

#include "display/seismicplot.h"
#include "tests/gui/displayfixture.h"
#include "tests/gui/modalanswer.h"
#include "tests/gui/segymenufixture.h"
#include "tests/gui/windowfixture.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QFontDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <qwt_scale_draw.h>
#include <qwt_scale_widget.h>

class TitlesTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void theControlsStandWithTheirTexts();
    void theTitleStandsFirstInTheStatusBarAndGoes();
    void theReadOutKeepsItsRoomBesideTheTitle();
    void aLongTitleDoesNotWidenTheWindow();
    void markupInATitleStandsAsTyped();
    void theColorReachesLabelAndEdit();
    void theFontReachesLabelAndEditAndShowsItsKey();
    void leavingTheDialogsChangesNothing();
    void theVerticalTitleGoesToAllDisplays();
    void theEditShowsTheTitleThatANewFileBrought();
    void theEditFollowsADisplayThatCameLater();
    void theValuesOfTheAxesGoAndComeBack();
    void labelsThatComeBackHaveTheirRoom();
    void theWindowMakesItOnFirstUseAndOnce();
    void theMainTitleNamesAreaLineAndFlow();
    void theMainTitleNamesTheFileWhereNoLineIsKnown();
    void returnInAFieldHidesNothingAndDismissDoes();
    void everyControlHasATip();

private:
    QTemporaryDir _home;
};

/// Two displays of 20 traces, and the dialog on them.
struct TitlesFixture : DisplayFixture {
    TestEnsemble ensemble{20, 500};
    Titles dialog{nullptr, &displays, &status};

    TitlesFixture() : DisplayFixture(2)
    {
        load(ensemble, 0);
        load(ensemble, 1);
        status.resize(900, 24);
        status.show();
        dialog.show();
    }
    template <typename T>
    T* find(const char* name)
    {
        return dialog.findChild<T*>(name);
    }
    QLabel* titleInBar() { return status.findChild<QLabel*>("titleLabel"); }
};

/// Counts the paints of a widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
    int count = 0;
};

void TitlesTest::initTestCase()
{
    QVERIFY(_home.isValid());
    qputenv("TREVIA_HOME", _home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", _home.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _home.path());
}

void TitlesTest::theControlsStandWithTheirTexts()
{
    TitlesFixture fixture;
    QCOMPARE(fixture.dialog.windowTitle(), QString("Titles"));
    QCOMPARE(fixture.find<QCheckBox>("enabBox")->text(), QString("Enable status bar title"));
    QCOMPARE(fixture.find<QPushButton>("colorButton")->text(), QString("Color"));
    QCOMPARE(fixture.find<QPushButton>("fontButton")->text(), QString("Font"));
    QCOMPARE(fixture.find<QCheckBox>("titleVBox")->text(), QString("Show correct values on vertical axis"));
    QVERIFY(fixture.find<QCheckBox>("titleVBox")->isChecked());
    QCOMPARE(fixture.find<QCheckBox>("areaBox")->text(), QString("Show area/line in main title"));
    QVERIFY(fixture.find<QCheckBox>("areaBox")->isChecked());
    QVERIFY(!fixture.find<QCheckBox>("enabBox")->isChecked());
    QCOMPARE(fixture.find<QLabel>("colorLabel")->palette().color(QPalette::Window), QColor(Qt::red));
}

void TitlesTest::theTitleStandsFirstInTheStatusBarAndGoes()
{
    TitlesFixture fixture;
    auto* other = new QLabel("other");
    fixture.status.addPermanentWidget(other);
    QVERIFY(!fixture.titleInBar());
    for (int turn = 0; turn < 3; ++turn) {
        fixture.find<QCheckBox>("enabBox")->click();
        QVERIFY(fixture.titleInBar());
        fixture.find<QLineEdit>("titleEdit")->setText("Final stack");
        QApplication::processEvents();
        QVERIFY(fixture.titleInBar()->isVisible());
        QCOMPARE(fixture.titleInBar()->text(), QString("Final stack"));
        QVERIFY(fixture.titleInBar()->geometry().right() < other->geometry().left());
        int stretch = -1;
        for (const QBoxLayout* layout : fixture.status.findChildren<QBoxLayout*>())
            if (layout->indexOf(fixture.titleInBar()) >= 0)
                stretch = layout->stretch(layout->indexOf(fixture.titleInBar()));
        QCOMPARE(stretch, 1000);
        fixture.find<QCheckBox>("enabBox")->click();
        QVERIFY(!fixture.titleInBar());
        fixture.find<QLineEdit>("titleEdit")->setText("typed while it is off");
    }
    fixture.find<QCheckBox>("enabBox")->click();
    QCOMPARE(fixture.titleInBar()->text(), QString("typed while it is off"));
}

void TitlesTest::theReadOutKeepsItsRoomBesideTheTitle()
{
    TitlesFixture fixture;
    fixture.find<QCheckBox>("enabBox")->click();
    fixture.find<QLineEdit>("titleEdit")->setText("A title");
    fixture.status.showMessage("FFID    : 7");
    QApplication::processEvents();
    QVERIFY(fixture.titleInBar()->isVisible());
    QVERIFY2(fixture.titleInBar()->x() > 600, qPrintable(QString::number(fixture.titleInBar()->x())));
}

void TitlesTest::aLongTitleDoesNotWidenTheWindow()
{
    TitlesFixture fixture;
    fixture.find<QCheckBox>("enabBox")->click();
    const int before = fixture.status.minimumSizeHint().width();
    fixture.find<QLineEdit>("titleEdit")->setText(QString(2000, 'M'));
    QApplication::processEvents();
    QVERIFY(fixture.status.minimumSizeHint().width() <= before);
    QCOMPARE(fixture.titleInBar()->toolTip().size(), 2000);
}

void TitlesTest::markupInATitleStandsAsTyped()
{
    TitlesFixture fixture;
    fixture.find<QCheckBox>("enabBox")->click();
    fixture.find<QLineEdit>("titleEdit")->setText("<b>x</b>");
    QCOMPARE(fixture.titleInBar()->textFormat(), Qt::PlainText);
    fixture.find<QLineEdit>("titleVEdit")->selectAll();
    QTest::keyClicks(fixture.find<QLineEdit>("titleVEdit"), "TWT <ms>");
    const QwtText title = fixture[0]->axisTitle(QwtPlot::yLeft);
    QwtText asTyped("TWT <ms>", QwtText::PlainText);
    asTyped.setFont(title.font());
    QCOMPARE(title.textSize(), asTyped.textSize());
}

void TitlesTest::theColorReachesLabelAndEdit()
{
    TitlesFixture fixture;
    const auto textColor = [&](const char* name, QPalette::ColorRole role) {
        return fixture.find<QWidget>(name)->palette().color(role);
    };
    QCOMPARE(textColor("titleLabel", QPalette::WindowText), QColor(Qt::red));
    ModalAnswer answer([](QDialog* dialog) {
        qobject_cast<QColorDialog*>(dialog)->setCurrentColor(QColor(1, 2, 250));
        dialog->accept();
    });
    fixture.find<QPushButton>("colorButton")->click();
    QCOMPARE(answer.count, 1);
    QCOMPARE(textColor("titleLabel", QPalette::WindowText), QColor(1, 2, 250));
    QCOMPARE(textColor("titleEdit", QPalette::Text), QColor(1, 2, 250));
    QCOMPARE(textColor("colorLabel", QPalette::Window), QColor(1, 2, 250));
}

void TitlesTest::theFontReachesLabelAndEditAndShowsItsKey()
{
    TitlesFixture fixture;
    QFont wanted("Liberation Serif", 17);
    wanted.setItalic(true);
    ModalAnswer answer([&](QDialog* dialog) {
        qobject_cast<QFontDialog*>(dialog)->setCurrentFont(wanted);
        dialog->accept();
    });
    fixture.find<QPushButton>("fontButton")->click();
    QCOMPARE(answer.count, 1);
    for (const char* name : {"titleLabel", "titleEdit", "fontLabel"}) {
        QCOMPARE(fixture.find<QWidget>(name)->font().pointSize(), 17);
        QVERIFY(fixture.find<QWidget>(name)->font().italic());
    }
    QCOMPARE(fixture.find<QLabel>("fontLabel")->text(), fixture.find<QLabel>("fontLabel")->font().key());
}

void TitlesTest::leavingTheDialogsChangesNothing()
{
    TitlesFixture fixture;
    const QFont before = fixture.find<QLineEdit>("titleEdit")->font();
    ModalAnswer answer([](QDialog* dialog) { dialog->reject(); });
    fixture.find<QPushButton>("colorButton")->click();
    fixture.find<QPushButton>("fontButton")->click();
    QCOMPARE(answer.count, 2);
    QCOMPARE(fixture.find<QLabel>("titleLabel")->palette().color(QPalette::WindowText), QColor(Qt::red));
    QCOMPARE(fixture.find<QLineEdit>("titleEdit")->font(), before);
}

void TitlesTest::theVerticalTitleGoesToAllDisplays()
{
    TitlesFixture fixture;
    auto* edit = fixture.find<QLineEdit>("titleVEdit");
    QCOMPARE(edit->text(), QString("Time (msec)"));
    edit->selectAll();
    QTest::keyClicks(edit, "Depth (m)");
    for (int i = 0; i < 2; ++i)
        for (const int axis : {QwtPlot::yLeft, QwtPlot::yRight})
            QCOMPARE(fixture[i]->axisTitle(axis).text(), QString("Depth (m)"));
    QVERIFY(fixture[0]->readoutAt(QPoint(100, 100)).contains("Depth (m): "));
    edit->clear();
    QTest::keyClick(edit, Qt::Key_Backspace);
    fixture.load(fixture.ensemble);  // the next ensemble keeps it
    QCOMPARE(edit->text(), fixture[0]->axisTitle(QwtPlot::yLeft).text());
}

void TitlesTest::theEditShowsTheTitleThatANewFileBrought()
{
    TitlesFixture fixture;
    auto* edit = fixture.find<QLineEdit>("titleVEdit");
    QTest::keyClicks(edit, "!");
    QCOMPARE(fixture[0]->axisTitle(QwtPlot::yLeft).text(), QString("Time (msec)!"));
    fixture[0]->setNewFile(fixture.menu.get());
    fixture.load(fixture.ensemble);
    QCOMPARE(fixture[0]->axisTitle(QwtPlot::yLeft).text(), QString("Time (msec)"));
    QCOMPARE(edit->text(), QString("Time (msec)"));
}

void TitlesTest::theEditFollowsADisplayThatCameLater()
{
    TitlesFixture fixture;
    SeismicDisplay* late = fixture.displays.takeAt(0);
    Titles dialog(nullptr, &fixture.displays, &fixture.status);
    fixture.displays.insert(0, late);
    late->setAxisTitle("Depth (m)");
    fixture.load(fixture.ensemble);
    QCOMPARE(dialog.findChild<QLineEdit*>("titleVEdit")->text(), QString("Depth (m)"));
}

void TitlesTest::theValuesOfTheAxesGoAndComeBack()
{
    TitlesFixture fixture;
    auto* box = fixture.find<QCheckBox>("titleVBox");
    const auto label = [&](int i, int axis, double value) {
        return fixture[i]->axisScaleDraw(axis)->label(value).text();
    };
    box->click();
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(label(i, QwtPlot::yLeft, 500.0), QString());
        QCOMPARE(label(i, QwtPlot::yRight, 500.0), QString());
        QCOMPARE(label(i, QwtPlot::xTop, 3.0), QString("0"));
    }
    box->click();
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(label(i, QwtPlot::yLeft, 500.0), QString("500"));
        QCOMPARE(label(i, QwtPlot::xTop, 3.0), QString("103"));
    }
}

void TitlesTest::labelsThatComeBackHaveTheirRoom()
{
    TitlesFixture fixture;
    QVERIFY(QTest::qWaitForWindowExposed(fixture[0]));
    QApplication::processEvents();
    const int width = fixture[0]->axisWidget(QwtPlot::yLeft)->width();
    const QImage before = fixture[0]->grab().toImage();
    PaintCounter top(fixture[0]->axisWidget(QwtPlot::xTop));
    auto* box = fixture.find<QCheckBox>("titleVBox");
    box->click();
    QTRY_VERIFY(top.count > 0);
    QVERIFY(fixture[0]->axisWidget(QwtPlot::yLeft)->width() < width);
    box->click();
    QCOMPARE(fixture[0]->axisWidget(QwtPlot::yLeft)->width(), width);
    QApplication::processEvents();
    QCOMPARE(fixture[0]->grab().toImage(), before);
}

void TitlesTest::theWindowMakesItOnFirstUseAndOnce()
{
    WindowFixture fixture;
    QVERIFY(!fixture.window->findChild<Titles*>());
    fixture.action("statusAct")->trigger();
    auto* dialog = fixture.window->findChild<Titles*>();
    QVERIFY(dialog && dialog->isVisible());
    dialog->reject();
    fixture.action("statusAct")->trigger();
    QVERIFY(dialog->isVisible());
    QCOMPARE(fixture.window->findChildren<Titles*>().size(), 1);
    dialog->findChild<QCheckBox*>("enabBox")->click();
    dialog->findChild<QLineEdit*>("titleEdit")->setText("in the window");
    QVERIFY(fixture.window->statusBar()->findChild<QLabel*>("titleLabel"));
    fixture.window->close();
    QVERIFY(!dialog->isVisible());
}

void TitlesTest::theMainTitleNamesAreaLineAndFlow()
{
    WindowFixture fixture;
    fixture.window->setAreaLineNames("Viking", "L12", "final");
    QCOMPARE(fixture.window->windowTitle(),
             QString("Seismic Display          Area: Viking      Line: L12      Flow: final          "));
    fixture.window->titleMenu();
    auto* box = fixture.window->findChild<Titles*>()->findChild<QCheckBox*>("areaBox");
    box->click();
    QCOMPARE(fixture.window->windowTitle(), QString("Seismic Display          "));
    fixture.window->setAreaLineNames("Viking", "L13", "");
    QCOMPARE(fixture.window->windowTitle(), QString("Seismic Display          "));
    box->click();
    QCOMPARE(fixture.window->windowTitle(), QString("Seismic Display          Area: Viking      Line: L13          "));
}

void TitlesTest::theMainTitleNamesTheFileWhereNoLineIsKnown()
{
    WindowFixture fixture;
    QCOMPARE(fixture.window->windowTitle(), QString("Seismic Display          "));
    QCOMPARE(fixture.open(writeSegy(_home.path() + "/one.sgy")), 1);
    QCOMPARE(fixture.window->windowTitle(), QString("Seismic Display          File: one.sgy          "));
    fixture.window->setAreaLineTitle(false);
    QCOMPARE(fixture.window->windowTitle(), QString("Seismic Display          "));
    QCOMPARE(fixture.open(writeSegy(_home.path() + "/two.sgy")), 1);
    QCOMPARE(fixture.window->windowTitle(), QString("Seismic Display          "));
}

void TitlesTest::returnInAFieldHidesNothingAndDismissDoes()
{
    TitlesFixture fixture;
    for (const char* name : {"titleEdit", "titleVEdit"}) {
        fixture.find<QLineEdit>(name)->setFocus();
        QTest::keyClick(fixture.find<QLineEdit>(name), Qt::Key_Return);
        QVERIFY(fixture.dialog.isVisible());
    }
    fixture.find<QPushButton>("dismissButton")->click();
    QVERIFY(!fixture.dialog.isVisible());
}

void TitlesTest::everyControlHasATip()
{
    TitlesFixture fixture;
    for (const char* name :
         {"enabBox", "titleEdit", "colorButton", "fontButton", "titleVEdit", "titleVBox", "areaBox", "dismissButton"})
        QVERIFY2(!fixture.find<QWidget>(name)->toolTip().isEmpty(), name);
}

QTEST_MAIN(TitlesTest)
#include "titlestest.moc"
