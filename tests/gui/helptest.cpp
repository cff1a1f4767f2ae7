/// The help pages: whole, in step with the program, and shown.
#include "frame/mainwindow.h"
#include "frame/windowactions.h"
#include "tests/gui/dialogtable.h"
#include "widgets/copymissingfiles.h"
#include "widgets/helpbrowser.h"
#include "widgets/helpviewer.h"

#include <QDir>
#include <QRegularExpression>
#include <QScreen>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

class HelpTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("TREVIA_HOME", _home.path().toLocal8Bit()); }
    void theHelpOpensItsFirstPage();
    void aPageOfAnOlderVersionIsReplaced();
    void aMissingPageIsNamed();
    void everyLinkAndPictureIsThere();
    void everyPageIsReachedFromTheContents();
    void theSheetOfKeysHasEveryKeyOfTheWindow();
    void theMenusAreToldByTheirKeys_data();
    void theMenusAreToldByTheirKeys();
    void aWidePictureIsAsWideAsAPage();
    void f1OpensThePageOfTheWindowInFront_data();
    void f1OpensThePageOfTheWindowInFront();
    void aQuestionMarkOpensTheSheetOfKeys();
    void aQuestionMarkInAFieldIsTyped();
    void theHelpIsAsHighAsTheScreenAllows();
    void theCanvasHasTheFocusAtTheStart();

private:
    QString folder() const { return _home.path() + "/docs/meridune-docs/"; }
    static QString page(const QString& name);
    static QStringList attributes(const QString& html, const char* name);

    QTemporaryDir _home;
};

QString HelpTest::page(const QString& name)
{
    QFile file(":/docs/meridune-docs/" + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList HelpTest::attributes(const QString& html, const char* name)
{
    QStringList values;
    auto found = QRegularExpression(QString(name) + "=\"([^\"]+)\"").globalMatch(html);
    while (found.hasNext()) values.append(found.next().captured(1));
    return values;
}

void HelpTest::theHelpOpensItsFirstPage()
{
    WindowFixture fixture;
    fixture.action("contentAct")->trigger();
    auto* viewer = fixture.window->findChild<HelpViewer*>("HelpViewer");
    QVERIFY(viewer);
    QVERIFY(viewer->windowTitle().startsWith("Help Viewer"));
    QVERIFY(viewer->browser()->toPlainText().contains("A first session"));
    viewer->browser()->setSource(QUrl("open.html"));
    QVERIFY(viewer->browser()->toPlainText().contains("File(s) to load"));
    QVERIFY(viewer->findChild<QAction*>("previousAct")->isEnabled());
    viewer->findChild<QAction*>("previousAct")->trigger();
    QVERIFY(viewer->findChild<QAction*>("nextAct")->isEnabled());
}

void HelpTest::aPageOfAnOlderVersionIsReplaced()
{
    QVERIFY(refreshFiles(":/docs/meridune-docs", folder()) >= 0);
    QFile stale(folder() + "index.html");
    QVERIFY(stale.open(QIODevice::WriteOnly));
    stale.write("an older page");
    stale.close();
    QCOMPARE(refreshFiles(":/docs/meridune-docs", folder()), 1);
    QCOMPARE(refreshFiles(":/docs/meridune-docs", folder()), 0);
    QVERIFY(stale.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(stale.readAll()), page("index.html"));
    QCOMPARE(refreshFiles(":/docs/meridune-docs", "/proc/none"), -1);
}

void HelpTest::aMissingPageIsNamed()
{
    HelpViewer viewer(nullptr, "/nowhere", "/docs/index.html", "");
    viewer.setAttribute(Qt::WA_DeleteOnClose, false);
    QCOMPARE(viewer.windowTitle(), QString("Help Viewer"));
    QVERIFY(viewer.browser()->toPlainText().contains("/nowhere/docs/index.html is missing"));
}

void HelpTest::everyLinkAndPictureIsThere()
{
    const QStringList pages = QDir(":/docs/meridune-docs").entryList({"*.html"}, QDir::Files);
    QVERIFY(pages.size() >= 13);
    for (const QString& name : pages) {
        const QString html = page(name);
        QVERIFY2(!html.isEmpty(), qPrintable(name));
        for (const QString& link : attributes(html, "href") + attributes(html, "src"))
            QVERIFY2(QFile::exists(":/docs/meridune-docs/" + link), qPrintable(name + ": " + link));
        for (const QString& picture : attributes(html, "src"))
            QVERIFY2(!QImage(":/docs/meridune-docs/" + picture).isNull(), qPrintable(name + ": " + picture));
    }
}

void HelpTest::everyPageIsReachedFromTheContents()
{
    const QStringList linked = attributes(page("index.html"), "href");
    for (const QString& name : QDir(":/docs/meridune-docs").entryList({"*.html"}, QDir::Files)) {
        if (name == "index.html") continue;
        QVERIFY2(linked.contains(name), qPrintable(name));
        QVERIFY2(attributes(page(name), "href").contains("index.html"), qPrintable(name));
    }
}

void HelpTest::theSheetOfKeysHasEveryKeyOfTheWindow()
{
    WindowFixture fixture;
    QSet<QString> told;
    auto rows = QRegularExpression("<tr><td>([^<]+)</td>").globalMatch(page("keys.html"));
    while (rows.hasNext())
        for (const QString& key : rows.next().captured(1).split(", ")) told.insert(key);
    int nKeys = 0;
    for (const QAction* action : fixture.window->findChildren<QAction*>()) {
        // One action is made and stands nowhere, so that its key can't be pressed.
        if (action->shortcut().isEmpty() || action->associatedWidgets().isEmpty()) continue;
        ++nKeys;
        QVERIFY2(told.contains(action->shortcut().toString()),
                 qPrintable(action->objectName() + " " + action->shortcut().toString()));
    }
    QVERIFY(nKeys >= 14);
}

void HelpTest::theMenusAreToldByTheirKeys_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("words");
    QTest::newRow("SEGY menu") << "segyAct"
                               << "SEGY Menu";
    QTest::newRow("parameters") << "parmAct"
                                << "Parameter menu";
    QTest::newRow("titles") << "statusAct"
                            << "titles";
    QTest::newRow("drawing") << "drawAct"
                             << "draw on the canvas";
    QTest::newRow("print") << "printAct"
                           << "print";
    QTest::newRow("PDF") << "pdfAct"
                         << "export as PDF";
    QTest::newRow("image") << "imageAct"
                           << "export as an image";
    QTest::newRow("snapshot") << "screenAct"
                              << "snapshot";
    QTest::newRow("seek") << "seekAct"
                          << "seek a record";
    QTest::newRow("exit") << "exitAct"
                          << "exit";
}

void HelpTest::theMenusAreToldByTheirKeys()
{
    QFETCH(QString, action);
    QFETCH(QString, words);
    WindowFixture fixture;
    const QString key = fixture.action(action.toLatin1())->shortcut().toString();
    const auto row = QRegularExpression("<tr><td>" + QRegularExpression::escape(key) + "</td><td>(.*)</td></tr>")
                         .match(page("keys.html"));
    QVERIFY(row.hasMatch());
    QVERIFY2(row.captured(1).contains(words), qPrintable(row.captured(1)));
}

void HelpTest::aWidePictureIsAsWideAsAPage()
{
    QTemporaryDir place;
    QImage wide(1400, 600, QImage::Format_RGB32), narrow(300, 200, QImage::Format_RGB32);
    wide.fill(Qt::red);
    narrow.fill(Qt::blue);
    QVERIFY(wide.save(place.path() + "/wide.png") && narrow.save(place.path() + "/narrow.png"));
    HelpBrowser browser;
    const auto load = [&](const char* name) {
        return browser.loadResource(QTextDocument::ImageResource, QUrl::fromLocalFile(place.path() + name))
            .value<QImage>();
    };
    QCOMPARE(load("/wide.png").size(), QSize(700, 300));
    QCOMPARE(load("/narrow.png").size(), QSize(300, 200));
    QCOMPARE(load("/wide.png").pixelColor(350, 150), QColor(Qt::red));
    QVERIFY(load("/none.png").isNull());
}

void HelpTest::f1OpensThePageOfTheWindowInFront_data()
{
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("page");
    QTest::newRow("window") << "MainWindow" << -1 << "display.html";
    QTest::newRow("parameters") << "ParmMenuDialog" << 0 << "parameters.html";
    QTest::newRow("movie") << "ParmMenuDialog" << 2 << "movie.html";
    QTest::newRow("files") << "SegyMenuDialog" << 0 << "open.html";
    QTest::newRow("headers") << "SegyMenuDialog" << 3 << "headers.html";
    QTest::newRow("titles") << "Titles" << -1 << "titles.html";
    QTest::newRow("drawing") << "DrawDialog" << -1 << "titles.html";
}

void HelpTest::f1OpensThePageOfTheWindowInFront()
{
    QFETCH(QString, dialog);
    QFETCH(int, tab);
    QFETCH(QString, page);
    DialogHome home(_home.path());
    QWidget* window = dialogTable().at(dialog)(&home);
    if (tab >= 0) window->findChild<QTabWidget*>()->setCurrentIndex(tab);
    window->show();
    window->activateWindow();
    QTRY_VERIFY(window->isActiveWindow());
    QWidget* focus = window->focusWidget() ? window->focusWidget() : window;
    QTest::keyClick(focus, Qt::Key_F1);
    auto* viewer = window->findChild<HelpViewer*>("HelpViewer");
    QVERIFY(viewer && viewer->isVisible());
    QCOMPARE(viewer->browser()->source().fileName(), page);
    QVERIFY(!viewer->browser()->toPlainText().isEmpty());
}

void HelpTest::aQuestionMarkOpensTheSheetOfKeys()
{
    WindowFixture fixture;
    QTest::keyClick(fixture.window->display()->canvas(), '?');
    auto* viewer = fixture.window->findChild<HelpViewer*>("HelpViewer");
    QVERIFY(viewer);
    QCOMPARE(viewer->browser()->source().fileName(), QString("keys.html"));
}

void HelpTest::aQuestionMarkInAFieldIsTyped()
{
    DialogHome home(_home.path());
    QWidget* titles = dialogTable().at("Titles")(&home);
    auto* edit = titles->findChild<QLineEdit*>("titleEdit");
    edit->setFocus();
    QTest::keyClicks(edit, "why?");
    QCOMPARE(edit->text(), QString("why?"));
    QVERIFY(!titles->findChild<HelpViewer*>("HelpViewer"));
}

void HelpTest::theHelpIsAsHighAsTheScreenAllows()
{
    HelpViewer viewer(nullptr, folder(), "index.html", QString());
    const int screen = QGuiApplication::primaryScreen()->availableGeometry().height();
    QVERIFY2(viewer.height() >= screen * 8 / 10 && viewer.height() <= screen,
             qPrintable(QString::number(viewer.height())));
}

void HelpTest::theCanvasHasTheFocusAtTheStart()
{
    WindowFixture fixture;
    fixture.window->activateWindow();
    QTRY_VERIFY(fixture.window->isActiveWindow());
    QCOMPARE(QApplication::focusWidget(), fixture.window->display()->canvas());
}

QTEST_MAIN(HelpTest)
#include "helptest.moc"
