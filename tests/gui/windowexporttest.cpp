/// What the window's own file dialogs lead to: opening, and exports by name.
#include "display/myqwtplotcanvas.h"
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

QTEST_MAIN(WindowExportTest)
#include "windowexporttest.moc"
