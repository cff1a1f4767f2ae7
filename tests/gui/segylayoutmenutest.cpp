/// The group "Layout" of the Load tab: its fields, and a file that only opens with them.
#include "sources/segysamples.h"
#include "tests/gui/modalanswer.h"
#include "tests/gui/segymenufixture.h"
#include "tests/gui/windowfixture.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

class SegyLayoutMenuTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void theGroupStandsAtTheStandardValues();
    void whatIsTypedReachesTheReader();
    void placesThatCannotBeAreRefused();
    void theGuessFillsTheGroupAndTheFileOpens();

private:
    QTemporaryDir _folder;
    QString _file;
};

/// The file of the fixture behind two extended text headers that the reel tells of.
static QByteArray extended()
{
    QByteArray bytes = segyBytes();
    bytes[3505] = 2;
    return bytes.insert(3600, QByteArray(6400, ' '));
}

void SegyLayoutMenuTest::initTestCase()
{
    qputenv("HOME", _folder.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _folder.path());
    _file = writeSegy(_folder.path() + "/extended.sgy", extended());
}

void SegyLayoutMenuTest::theGroupStandsAtTheStandardValues()
{
    MenuFixture menu;
    QCOMPARE(menu.find<QGroupBox>("layoutGroup")->title(), QString("Layout"));
    QCOMPARE(menu.edit("firstTraceVal")->text(), QString("3600"));
    QCOMPARE(menu.edit("headerVal")->text(), QString("240"));
    QCOMPARE(menu.box("layoutFormatBox")->currentIndex(), 0);
    QCOMPARE(menu.box("layoutFormatBox")->count(), 9);
    QCOMPARE(menu.box("orderBox")->currentText(), QString("By the file type"));
    QVERIFY(menu.dialog->loadParm().layout.isStandard());
    menu.edit("firstTraceVal")->clear();
    menu.edit("headerVal")->clear();
    emit menu.edit("firstTraceVal")->editingFinished();
    emit menu.edit("headerVal")->editingFinished();
    QVERIFY(menu.dialog->loadParm().layout.isStandard());
}

void SegyLayoutMenuTest::whatIsTypedReachesTheReader()
{
    MenuFixture menu;
    menu.edit("firstTraceVal")->setText("10000");
    menu.edit("headerVal")->setText("480");
    emit menu.edit("firstTraceVal")->editingFinished();
    emit menu.edit("headerVal")->editingFinished();
    menu.box("layoutFormatBox")->setCurrentText("Unsigned (2 byte)");
    menu.box("orderBox")->setCurrentText("Lowest byte first");
    const SegyReadLayout layout = menu.dialog->loadParm().layout;
    QCOMPARE(layout.firstTrace, int64_t(10000));
    QCOMPARE(layout.headerBytes, 480);
    QCOMPARE(layout.sampleFormat, int(SegyUnsigned2));
    QCOMPARE(layout.byteOrder, SegyByteOrder::LowestFirst);
    SegyLoadParm parm;
    parm.layout = layout;
    menu.dialog->setLoadParm(SegyLoadParm());
    QVERIFY(menu.dialog->loadParm().layout.isStandard());
    menu.dialog->setLoadParm(parm);
    QVERIFY(menu.dialog->loadParm().layout == layout);
}

void SegyLayoutMenuTest::placesThatCannotBeAreRefused()
{
    MenuFixture menu;
    for (const auto& [name, text, old] :
         {std::tuple{"firstTraceVal", "3599", "3600"}, std::tuple{"firstTraceVal", "x", "3600"},
          std::tuple{"headerVal", "239", "240"}, std::tuple{"headerVal", "24241", "240"}}) {
        menu.edit(name)->setText(text);
        const ModalAnswer answer([](QDialog* box) { box->accept(); });
        emit menu.edit(name)->editingFinished();
        QCOMPARE(answer.count, 1);
        QCOMPARE(menu.edit(name)->text(), QString(old));
    }
    QVERIFY(menu.dialog->loadParm().layout.isStandard());
}

void SegyLayoutMenuTest::theGuessFillsTheGroupAndTheFileOpens()
{
    WindowFixture fixture;
    fixture.window->segyMenu();
    auto* dialog = fixture.window->findChild<SegyMenuDialog*>("SegyMenuDialog");
    dialog->findChild<QLineEdit*>("fileField")->setText(_file);
    dialog->findChild<QPushButton*>("guessButton")->click();
    QCOMPARE(dialog->findChild<QLineEdit*>("firstTraceVal")->text(), QString("10000"));
    dialog->findChild<QPushButton*>("openButton")->click();
    QTRY_COMPARE(fixture.traces(), 2);
    QCOMPARE(fixture.shownKey(), QString("FFID :10"));
    QCOMPARE(fixture.window->segyLoader()->layout().firstTrace, int64_t(10000));
}

QTEST_MAIN(SegyLayoutMenuTest)
#include "segylayoutmenutest.moc"
