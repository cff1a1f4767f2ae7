/// What the window's own file dialogs lead to: opening, and exports by name.
#include "display/images/imagestorage.h"
#include "display/images/myqwtplotcanvas.h"
#include "frame/printeddisplay.h"
#include "sources/menus/segyebcdicmenu.h"
#include "sources/menus/segyremapdialog.h"
#include "tests/gui/modalanswer.h"
#include "tests/gui/segymenufixture.h"
#include "tests/gui/windowfixture.h"
#include "tests/testdata.h"
#include "widgets/pictureexport.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPrinter>
#include <QPushButton>
#include <QSettings>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QtTest>

Q_DECLARE_METATYPE(std::function<void(WindowFixture*, const QString&)>)

class WindowExportTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void aFormatThatCannotBeWrittenIsRefusedAndAskedForAgain_data();
    void aFormatThatCannotBeWrittenIsRefusedAndAskedForAgain();
    void openStartsInTheFolderOfTheLastFile();
    void aPrintFillsItsPageOnWhite();
    void eachExportTellsWhatItWroteAndWhere_data();
    void eachExportTellsWhatItWroteAndWhere();

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

void WindowExportTest::eachExportTellsWhatItWroteAndWhere_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<std::function<void(WindowFixture*, const QString&)>>("write");
    using Write = std::function<void(WindowFixture*, const QString&)>;
    const auto byAction = [](const char* action) -> Write {
        return [action](WindowFixture* fixture, const QString&) { fixture->action(action)->trigger(); };
    };
    QTest::newRow("PDF") << "window.pdf" << byAction("pdfAct");
    QTest::newRow("section") << "section.svg" << byAction("sectionAct");
    QTest::newRow("image") << "image.png" << byAction("imageAct");
    QTest::newRow("print to a file") << "print.pdf" << Write([](WindowFixture*, const QString& path) {
        QPrinter printer;
        printer.setOutputFileName(path);
        QString error;
        QVERIFY(printPicture(QPixmap(20, 10), &printer, &error));
    });
    QTest::newRow("movie") << "movie-001.png" << Write([](WindowFixture* fixture, const QString& path) {
        ImageStorage* store = fixture->window->imageStorage();
        store->putImage(QImage(20, 10, QImage::Format_RGB32), QwtScaleMap(), QwtScaleMap());
        store->setSavedFile(QString(path).replace("movie-001", "movie"));
        store->setSaved(true);
        store->performSaveFile2();
    });
    QTest::newRow("color file") << "mine.col" << Write([](WindowFixture* fixture, const QString&) {
        fixture->window->parameterMenu();
        fixture->window->findChild<QWidget*>("ColorBarDialog")->findChild<QPushButton*>("saveButton")->click();
    });
    QTest::newRow("text header") << "text.txt" << Write([](WindowFixture* fixture, const QString& path) {
        fixture->window->segyMenu();
        QVERIFY(fixture->window->findChild<SegyEbcdicMenu*>()->saveText(path));
    });
    QTest::newRow("remap table") << "table.remap" << Write([](WindowFixture*, const QString& path) {
        SegyRemapTable table;
        table.cells[0] = {"CDP", "4I", "IEEE", "21"};
        SegyRemapDialog dialog;
        dialog.setTable(table);
        QVERIFY(dialog.saveTable(path));
    });
}

void WindowExportTest::eachExportTellsWhatItWroteAndWhere()
{
    QFETCH(QString, name);
    using Write = std::function<void(WindowFixture*, const QString&)>;
    QFETCH(Write, write);
    const QTemporaryDir folder;
    const bool isInHome = name.endsWith(".col");
    const QString path = isInHome ? _home.path() + "/port/misc/" + name : folder.filePath(name);
    WindowFixture fixture;
    QCOMPARE(fixture.open(writeSegy(folder.filePath("data.sgy")), 1, 1), 1);
    ModalAnswer answer([&](QDialog* dialog) {
        if (auto* asked = qobject_cast<QInputDialog*>(dialog)) {
            asked->setTextValue(name);
            return asked->accept();
        }
        auto* files = qobject_cast<QFileDialog*>(dialog);
        if (!files) return dialog->accept();
        files->findChild<QLineEdit*>("fileNameEdit")->setText(path);
        QMetaObject::invokeMethod(files, "accept");
    });
    write(&fixture, path);
    const QFileInfo file(path);
    QVERIFY2(file.size() > 0, qPrintable(path));
    const QString told = fixture.window->statusBar()->currentMessage();
    QVERIFY2(told.startsWith("Wrote " + path + " ("), qPrintable(told));
}

QTEST_MAIN(WindowExportTest)
#include "windowexporttest.moc"
