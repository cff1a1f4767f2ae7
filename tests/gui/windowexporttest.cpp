/// What the window's own file dialogs lead to: opening, and exports by name.
#include "display/myqwtplotcanvas.h"
#include "frame/printeddisplay.h"
#include "tests/gui/modalanswer.h"
#include "tests/gui/windowfixture.h"
#include "tests/testdata.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

class WindowExportTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void aFormatThatCannotBeWrittenIsRefusedAndAskedForAgain_data();
    void aFormatThatCannotBeWrittenIsRefusedAndAskedForAgain();
    void openStartsInTheFolderOfTheLastFile();
    void aPrintFillsItsPageOnWhite();

private:
    QTemporaryDir _home;
};

void WindowExportTest::initTestCase()
{
    QVERIFY(_home.isValid());
    qputenv("TREVIA_HOME", _home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", _home.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _home.path());
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void WindowExportTest::aFormatThatCannotBeWrittenIsRefusedAndAskedForAgain_data()
{
    QTest::addColumn<QString>("action");
    QTest::newRow("image") << "imageAct";
    QTest::newRow("snapshot") << "screenAct";
}

void WindowExportTest::aFormatThatCannotBeWrittenIsRefusedAndAskedForAgain()
{
    QFETCH(QString, action);
    const QTemporaryDir folder;
    WindowFixture fixture;
    QStringList names = {folder.filePath("shot.gif"), folder.filePath("shot.tif")}, told;
    ModalAnswer answer([&](QDialog* dialog) {
        if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
            told.append(box->text());
            return box->accept();
        }
        auto* files = qobject_cast<QFileDialog*>(dialog);
        if (!files || names.isEmpty()) return dialog->reject();
        files->findChild<QLineEdit*>("fileNameEdit")->setText(names.takeFirst());
        QMetaObject::invokeMethod(files, "accept");
    });
    fixture.action(qPrintable(action))->trigger();
    QCOMPARE(told.filter("shot.gif").size(), 1);
    QVERIFY(told.first().contains("shot.gif") && told.first().contains(".tif") && told.first().contains(".png"));
    QVERIFY(!QFile::exists(folder.filePath("shot.gif")));
    QVERIFY(names.isEmpty());  // asked for again
    if (action == "imageAct")  // off screen there is no screen to take a snapshot of
        QCOMPARE(QImage(folder.filePath("shot.tif")).size(), fixture.window->grab().toImage().size());
}

void WindowExportTest::openStartsInTheFolderOfTheLastFile()
{
    if (!hasTestData()) QSKIP("no real data files");
    const QString first = QString::fromStdString(testDataFile("prestack-marine/viking_small.segy"));
    const QString second = QFileInfo(first).absolutePath() + "/../poststack-3d/f3.sgy";
    WindowFixture fixture;
    QCOMPARE(fixture.action("openAct")->text(), QString("&Open SEG-Y..."));
    QVERIFY(fixture.action("openAct")->shortcut().isEmpty());
    QVERIFY(fixture.window->actionTable()->menu("&File")->actions().contains(fixture.action("openAct")));
    QCOMPARE(fixture.open(first), 1);
    QString folder;
    ModalAnswer answer([&](QDialog* dialog) {
        auto* files = qobject_cast<QFileDialog*>(dialog);
        if (!files) return dialog->reject();
        folder = files->directory().absolutePath();
        files->findChild<QLineEdit*>("fileNameEdit")->setText(QFileInfo(second).canonicalFilePath());
        QMetaObject::invokeMethod(files, "accept");
    });
    fixture.action("openAct")->trigger();
    QCOMPARE(folder, QFileInfo(first).absolutePath());
    QVERIFY(fixture.window->windowTitle().contains("f3.sgy"));
    // The next session starts where this one has ended.
    WindowFixture next;
    next.action("openAct")->trigger();
    QCOMPARE(folder, QFileInfo(second).canonicalPath());
}

void WindowExportTest::aPrintFillsItsPageOnWhite()
{
    if (!hasTestData()) QSKIP("no real data files");
    WindowFixture fixture;
    fixture.window->resize(1000, 500);
    QCOMPARE(fixture.open(QString::fromStdString(testDataFile("prestack-marine/viking_small.segy"))), 1);
    const QSizeF page(297.0, 210.0);
    const QImage picture = printedDisplay(fixture.window->display(), page).toImage();
    // The shape is the page's, so that both of its sides are used.
    QVERIFY(std::abs(double(picture.width()) / picture.height() - page.width() / page.height()) < 0.01);
    // Nothing but black and white, and the greys between them at the edges of letters: no ground of a desktop.
    int nGround = 0;
    QRect inked;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            nGround += pixel == fixture.window->palette().color(QPalette::Window).rgb();
            if (qGray(pixel) < 128) inked |= QRect(x, y, 1, 1);
        }
    QVERIFY(nGround < picture.width() * picture.height() / 1000);
    QCOMPARE(picture.pixel(2, 2), qRgb(255, 255, 255));
    QVERIFY(inked.width() > picture.width() * 9 / 10);
    QVERIFY(inked.height() > picture.height() * 9 / 10);
}

QTEST_MAIN(WindowExportTest)
#include "windowexporttest.moc"
