/// Random events at every window: whatever the user does, nothing crashes, hangs or loses the data.
///
/// MERIDUNE_MONKEY_SEED repeats a run; MERIDUNE_MONKEY_EVENTS sets the events for each window, and with
/// MERIDUNE_MONKEY_TRACE each event is printed before it is sent.
#include "display/images/imagestorage.h"
#include "display/menus/drawdialog.h"
#include "display/menus/titles.h"
#include "display/seismicdisplay.h"
#include "frame/assumptionspanel.h"
#include "frame/mainwindow.h"
#include "frame/windowactions.h"
#include "sources/menus/segyguessdialog.h"
#include "sources/menus/segymenudialog.h"
#include "sources/menus/segyrecdialog.h"
#include "sources/menus/segyremapdialog.h"
#include "sources/segyloader.h"
#include "tests/gui/segymenufixture.h"
#include "tracedata/menudefaults.h"
#include "tracedata/parmmenu.h"
#include "tracedata/seismicdata.h"
#include "widgets/helpviewer.h"

#include <QCheckBox>
#include <QDrag>
#include <QPushButton>
#include <QSettings>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QWheelEvent>

#include <qwt_scale_div.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <random>

class MonkeyTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void mainWindow();
    void parameterMenu_data() { eachTab({"Display", "Plot", "Image", "Color Bar"}); }
    void parameterMenu();
    void segyMenuTabs_data() { eachTab({"Load", "EBCDIC", "Binary", "Trace"}); }
    void segyMenuTabs();
    void guessPanel();
    void seekDialog();
    void remapDialog();
    void helpViewer();
    void assumptionsPanel();
    void titles();
    void drawing();
    void drawingOnTheWindow();

private:
    void eachTab(const QStringList& tabs);

    QTemporaryDir _home;
    unsigned _seed = 1;
    int _nEvents = 10000;
};

/// nGathers of nTraces of nSamples, IEEE at 4 ms; sample j of trace i holds a sine of its own.
static QByteArray gatherBytes(int nGathers, int nTraces, int nSamples)
{
    QByteArray file = segyBytes(0);
    put16(&file, 3212, nTraces);
    put16(&file, 3216, 4000);
    put16(&file, 3220, nSamples);
    for (int i = 0; i < nGathers * nTraces; ++i) {
        QByteArray trace(240 + 4 * nSamples, '\0');
        put32(&trace, 0, i + 1);
        put32(&trace, 8, 10 + i / nTraces);
        put32(&trace, 12, 1 + i % nTraces);
        put32(&trace, 20, 101 + i);
        put32(&trace, 36, 25 * (i % nTraces));
        put16(&trace, 28, 1 + i % 2);
        put16(&trace, 114, nSamples);
        put16(&trace, 116, 4000);
        for (int j = 0; j < nSamples; ++j) {
            const float value = 1000.0f * std::sin(0.1f * j + i);
            int bits;
            std::memcpy(&bits, &value, 4);
            put32(&trace, 240 + 4 * j, bits);
        }
        file += trace;
    }
    return file;
}

/// FNV-1a over the samples of a display.
static quint64 checksum(const SeismicData* data)
{
    quint64 sum = 14695981039346656037ull;
    for (int i = 0; data && i < data->traceCount(); ++i) {
        const float* trace = data->getTraceValues(i, 0);
        for (int j = 0; j < data->sampleCount(); ++j) {
            quint32 bits;
            std::memcpy(&bits, trace + j, 4);
            sum = (sum ^ bits) * 1099511628211ull;
        }
    }
    return sum;
}

/// Whether the data are the loader's traces from the given sample on.
static bool holdsLoaderTraces(const SeismicData* data, SegyLoader* loader, int first)
{
    if (!data || data->traceCount() != loader->numTraces() || first + data->sampleCount() > loader->numSamples())
        return false;
    for (int i = 0; i < data->traceCount(); ++i)
        if (std::memcmp(data->getTraceValues(i, 0), loader->getTraces()[i] + first, 4 * size_t(data->sampleCount())))
            return false;
    return true;
}

/// Dismisses what waits for the user in an event loop of its own: boxes, menus, file dialogs, drags.
class Dismisser : public QObject
{
public:
    explicit Dismisser(const QPointer<QWidget>& target)
    {
        connect(&_timer, &QTimer::timeout, this, [this, &target] {
            QDrag::cancel();
            if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
            QWidget* modal = QApplication::activeModalWidget();
            if (!modal || modal == target) return;
            nFileDialogs += qobject_cast<QFileDialog*>(modal) != nullptr;
            if (auto* box = qobject_cast<QMessageBox*>(modal))
                box->done(QMessageBox::Cancel);
            else if (auto* dialog = qobject_cast<QDialog*>(modal))
                dialog->reject();
            else
                modal->close();
        });
        _timer.start(1);
    }
    int nFileDialogs = 0;

private:
    QTimer _timer;
};

/// Each kind of file dialog has come up often enough by then.
constexpr int mostFileDialogs = 40;

/// A main window of two screens and a difference, on the first of two files.
class Monkey
{
public:
    Monkey(unsigned seed, const QString& home) : _random(seed)
    {
        _files << home + "/big.sgy" << home + "/small.sgy";
        setDisplayDefaults(_menu.get());
        _menu->iskeyinc = 5;
        _menu->iscreens = 2;
        _menu->idifference = 1;
        window = std::make_unique<MainWindow>(nullptr, _menu.get());
        window->buildMainPlot();
        window->imageStorage()->setLimit(100 << 20);
        // Two ways out, and a dialog of the system: nothing that a test could dismiss.
        for (const char* name : {"exitAct", "exitContAct", "printAct"}) action(name)->setEnabled(false);
        for (SeismicDisplay* display : window->displayList()) watch(display);
        // The other screens lose the old file's traces.
        QObject::connect(window.get(), &MainWindow::fileShown, [this] {
            for (SeismicDisplay* display : window->displayList()) _sums[display] = checksum(display->seismicData());
        });
        window->resize(500, 400);  // enough for all that is in it
        window->show();
        window->activateWindow();
        load(0);
    }

    /// Sends events to the widgets of a window; `again` gives that window, made anew where it has gone. Returns what
    /// is broken, empty if nothing is.
    QString run(int nEvents, const std::function<QWidget*()>& again)
    {
        const Dismisser dismisser(_target);
        for (int i = 0; i < nEvents; ++i) {
            _target = again();
            if (!_target->isVisible()) _target->show();
            sendOne();
            while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
            while (window->segyLoader()->isIndexBuilding())
                QSignalSpy(window->segyLoader(), &SegyLoader::indexBuildEnded).wait(100);
            if (dismisser.nFileDialogs >= mostFileDialogs) endFileDialogs();
            if (i % 10 == 9) QApplication::processEvents();  // most of the time goes into paints
            if (i % 100 < 99) continue;
            closeStrayWindows();
            const QString broken = brokenInvariant();
            if (!broken.isEmpty()) return QString("event %1: %2; the last: %3").arg(i).arg(broken, _last.join(" | "));
        }
        return QString();
    }

    std::unique_ptr<MainWindow> window;

private:
    int pick(int n) { return int(_random() % unsigned(n)); }
    QAction* action(const char* name) { return window->actionTable()->action(name); }
    void say(const QString& what);
    void watch(SeismicDisplay* display);
    void load(int file);
    QWidget* pickWidget();
    QPoint pickPoint(const QWidget* widget)
    {
        return QPoint(pick(widget->width() + 10) - 5, pick(widget->height() + 10) - 5);
    }
    Qt::MouseButton pickButton();
    Qt::KeyboardModifiers pickModifiers();
    void sendOne();
    void sendMouse(QWidget* widget, QEvent::Type type, const QPoint& at, Qt::MouseButton button);
    void sendDrag(QWidget* widget);
    void sendWheel(QWidget* widget);
    void sendKey(QWidget* widget);
    void sendText(QWidget* widget);
    void resizeTarget();
    void endFileDialogs();
    void useWindow();
    void closeStrayWindows();
    QString brokenInvariant();

    std::mt19937 _random;
    QStringList _files, _last;
    std::unique_ptr<parmmenu> _menu = std::make_unique<parmmenu>();
    QPointer<QWidget> _target;
    QMap<SeismicDisplay*, quint64> _sums;
};

void Monkey::say(const QString& what)
{
    if (qEnvironmentVariableIsSet("MERIDUNE_MONKEY_TRACE")) std::fprintf(stderr, "%s\n", qPrintable(what));
    _last.append(what);
    if (_last.size() > 12) _last.removeFirst();
}

void Monkey::watch(SeismicDisplay* display)
{
    _sums[display] = checksum(display->seismicData());
    QObject::connect(display, &SeismicDisplay::ensembleShown,
                     [this, display] { _sums[display] = checksum(display->seismicData()); });
}

void Monkey::load(int file)
{
    SegyLoadParm parm;
    parm.files = _files[file];
    parm.isort = 1;
    parm.indexbuilt = 1;
    window->loadSegyFile(parm);
}

QWidget* Monkey::pickWidget()
{
    // Most widgets are labels and frames; the canvases and controls get the larger half.
    QList<QWidget*> widgets = {_target}, canvases, controls;
    for (QWidget* child : _target->findChildren<QWidget*>()) {
        if (child->isWindow() || !child->isVisibleTo(_target) || child->window() != _target->window()) continue;
        widgets.append(child);
        if (child->inherits("QwtPlotCanvas")) canvases.append(child);
        for (const char* name : {"QLineEdit", "QAbstractButton", "QComboBox", "QAbstractSlider"})
            if (child->inherits(name)) controls.append(child);
    }
    const int which = pick(3);
    const QList<QWidget*>& among = which == 0 && !canvases.isEmpty()   ? canvases
                                   : which == 1 && !controls.isEmpty() ? controls
                                                                       : widgets;
    return among[pick(among.size())];
}

Qt::MouseButton Monkey::pickButton()
{
    const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::MiddleButton,
                                       Qt::RightButton};
    return buttons[pick(5)];
}

Qt::KeyboardModifiers Monkey::pickModifiers()
{
    const Qt::KeyboardModifiers modifiers[] = {Qt::NoModifier,
                                               Qt::NoModifier,
                                               Qt::NoModifier,
                                               Qt::ShiftModifier,
                                               Qt::ControlModifier,
                                               Qt::AltModifier,
                                               Qt::ControlModifier | Qt::ShiftModifier};
    return modifiers[pick(7)];
}

void Monkey::sendMouse(QWidget* widget, QEvent::Type type, const QPoint& at, Qt::MouseButton button)
{
    const bool isMove = type == QEvent::MouseMove;
    QMouseEvent event(type, at, widget->mapToGlobal(at), isMove ? Qt::NoButton : button,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : button, pickModifiers());
    QApplication::sendEvent(widget, &event);
}

void Monkey::sendDrag(QWidget* widget)
{
    const QPointer<QWidget> guard(widget);
    const Qt::MouseButton button = pickButton();
    sendMouse(widget, QEvent::MouseButtonPress, pickPoint(widget), button);
    for (int i = pick(4); i > 0 && guard; --i) sendMouse(widget, QEvent::MouseMove, pickPoint(widget), button);
    if (guard) sendMouse(widget, QEvent::MouseButtonRelease, pickPoint(widget), button);
}

void Monkey::sendWheel(QWidget* widget)
{
    const QPoint at = pickPoint(widget);
    const int steps = 120 * (pick(9) - 4);
    const bool isSideways = pick(4) == 0;
    QWheelEvent event(at, widget->mapToGlobal(at), QPoint(), isSideways ? QPoint(steps, 0) : QPoint(0, steps),
                      Qt::NoButton, pickModifiers(), Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

void Monkey::sendKey(QWidget* widget)
{
    static const Qt::Key keys[] = {Qt::Key_Tab,       Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter,    Qt::Key_Escape,
                                   Qt::Key_Space,     Qt::Key_Left,    Qt::Key_Right,  Qt::Key_Up,       Qt::Key_Down,
                                   Qt::Key_Home,      Qt::Key_End,     Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Delete,
                                   Qt::Key_Backspace, Qt::Key_F2,      Qt::Key_Plus,   Qt::Key_Minus,    Qt::Key_Menu};
    const int n = int(std::size(keys));
    const int k = pick(n + 36);
    const Qt::Key key = k < n ? keys[k] : k < n + 10 ? Qt::Key(Qt::Key_0 + k - n) : Qt::Key(Qt::Key_A + k - n - 10);
    QTest::keyClick(widget, key, pickModifiers());
}

void Monkey::sendText(QWidget* widget)
{
    static const char* const texts[] = {"0",      "-1",           "1",           "3.5", "nan", "inf",
                                        "1e39",   "999999999999", "-2147483648", "",    "abc", "17,18",
                                        "0.0001", "%s%n",         "\xc3\xa4",    "300", "60"};
    const QString text = QString::fromUtf8(texts[pick(int(std::size(texts)))]);
    const QPointer<QWidget> guard(widget);
    widget->setFocus();
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    for (int i = 0; i < text.size() && guard; ++i)
        QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(text[i]), Qt::NoModifier);
    if (guard && pick(2)) QTest::keyClick(widget, Qt::Key_Return);
}

void Monkey::resizeTarget()
{
    const int kind = pick(12);
    const QSize most = kind < 4 ? QSize(60, 40) : kind < 11 ? QSize(600, 450) : QSize(1200, 900);
    _target->resize(1 + pick(most.width()), 1 + pick(most.height()));
}

/// From now on nothing opens one: half of the time would go into making dialogs that aren't ours.
void Monkey::endFileDialogs()
{
    for (const char* name : {"pdfAct", "imageAct", "screenAct", "sectionAct", "openAct"})
        action(name)->setEnabled(false);
    for (QWidget* root : {static_cast<QWidget*>(window.get()), static_cast<QWidget*>(_target)})
        for (const char* name : {"browseButton", "fileButton", "loadButton", "saveButton"})
            for (auto* button : root->findChildren<QPushButton*>(name))
                if (button->isEnabled() && !button->parentWidget()->inherits("ColorBarDialog"))
                    button->setEnabled(false);
}

void Monkey::useWindow()
{
    const int what = pick(11);
    say(QString("window %1").arg(what));
    SegyLoader* loader = window->segyLoader();
    switch (what) {
    case 0:
    case 1: return window->nextRecord();
    case 2: return window->previousRecord();
    case 3: return window->firstRecord();
    case 4: return load(pick(2));
    case 5: return window->actionTable()->box("overlayBox")->toggle();
    case 6: return window->actionTable()->box("differBox")->toggle();
    case 7: return window->seekRecord();
    case 8: return window->actionTable()->box("savImageBox")->toggle();
    case 9: return window->actionTable()->box("showImageBox")->toggle();
    default:
        if (loader->numTraces() > 0)
            window->loadEnsemble(loader->getTraces(), loader->getHeaders(), loader->numTraces(), 1);
    }
}

void Monkey::sendOne()
{
    QWidget* widget = pickWidget();
    const QString name = QString(widget->metaObject()->className()) + ' ' + widget->objectName();
    const int what = pick(100);
    if (what < 94) say(QString("%1 at %2").arg(what).arg(name));
    if (what < 10)
        sendMouse(widget, QEvent::MouseButtonPress, pickPoint(widget), pickButton());
    else if (what < 18)
        sendMouse(widget, QEvent::MouseMove, pickPoint(widget), pickButton());
    else if (what < 26)
        sendMouse(widget, QEvent::MouseButtonRelease, pickPoint(widget), pickButton());
    else if (what < 40)
        sendDrag(widget);
    else if (what < 44)
        sendMouse(widget, QEvent::MouseButtonDblClick, pickPoint(widget), pickButton());
    else if (what < 52)
        sendWheel(widget);
    else if (what < 74)
        sendKey(widget);
    else if (what < 86)
        sendText(widget);
    else if (what < 91)
        resizeTarget();
    else if (what < 94)
        _target->hide();
    else
        useWindow();
}

/// Help pages and colour dialogs come one more with every click.
void Monkey::closeStrayWindows()
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget != _target && widget->isVisible() && qobject_cast<HelpViewer*>(widget)) widget->close();
    QApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QString Monkey::brokenInvariant()
{
    const auto* drawing = window->findChild<DrawDialog*>();
    const bool isDrawing = drawing && drawing->isDrawing();
    if (isDrawing != (QGuiApplication::overrideCursor() != nullptr))
        return isDrawing ? "the cursor of drawing has gone" : "an override cursor is left";
    if (!isDrawing && QWidget::keyboardGrabber()) return "the keyboard is not given back";
    for (SeismicDisplay* display : window->displayList()) {
        if (!_sums.contains(display)) watch(display);
        const QString who = QString("display %1: ").arg(display->windowNumber());
        for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
            const QwtScaleDiv& scale = display->axisScaleDiv(axis);
            if (!std::isfinite(scale.lowerBound()) || !std::isfinite(scale.upperBound()))
                return who + QString("axis %1 isn't finite").arg(axis);
        }
        const QPoint at(pick(2000) - 500, pick(2000) - 500);
        if (display->readoutAt(at).isEmpty() != (display->traceCount() == 0)) return who + "no read-out";
        // A screen for which the file has no more ensembles is cleared.
        if (display->traceCount() > 0 && _sums[display] != checksum(display->seismicData()))
            return who + "the samples have changed";
    }
    SegyLoader* loader = window->segyLoader();
    // They are on the last screen that has found an ensemble.
    const auto isShown = [loader](const SeismicDisplay* display) {
        return holdsLoaderTraces(display->seismicData(), loader, display->firstSample()) ||
               holdsLoaderTraces(display->overlayData(), loader, display->firstSample());
    };
    const QList<SeismicDisplay*>& all = window->displayList();
    if (loader->numTraces() > 0 && std::none_of(all.begin(), all.end(), isShown))
        return QString("the loader's %1 traces are not on the screen").arg(loader->numTraces());
    return QString();
}

void MonkeyTest::initTestCase()
{
    QVERIFY(_home.isValid());
    qputenv("TREVIA_HOME", _home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", _home.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _home.path());
    QVERIFY(QDir::setCurrent(_home.path()));
    writeSegy(_home.path() + "/big.sgy", gatherBytes(4, 60, 300));
    writeSegy(_home.path() + "/small.sgy", gatherBytes(3, 25, 120));
    QDir().mkpath(_home.path() + "/docs/meridune-docs");
    for (const char* name : {"index", "second"}) {
        QFile page(_home.path() + "/docs/meridune-docs/" + name + ".html");
        QVERIFY(page.open(QIODevice::WriteOnly));
        page.write("<a href=index.html>first</a> <a href=second.html>second</a> <a href=none.html>none</a>");
    }
    bool isNumber = false;
    const int nEvents = qEnvironmentVariableIntValue("MERIDUNE_MONKEY_EVENTS", &isNumber);
    if (isNumber) _nEvents = nEvents;
    const int seed = qEnvironmentVariableIntValue("MERIDUNE_MONKEY_SEED", &isNumber);
    _seed = isNumber ? unsigned(seed) : 1u;
    std::printf("MERIDUNE_MONKEY_SEED=%u, %d events for each window\n", _seed, _nEvents);
}

void MonkeyTest::eachTab(const QStringList& tabs)
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("nTabs");
    for (int i = 0; i < tabs.size(); ++i) QTest::newRow(qPrintable(tabs[i])) << i << int(tabs.size());
}

void MonkeyTest::mainWindow()
{
    Monkey monkey(_seed, _home.path());
    const QString broken = monkey.run(_nEvents, [&] { return monkey.window.get(); });
    QVERIFY2(broken.isEmpty(), qPrintable(broken));
}

/// A dialog of the window, asked for again when it isn't in view: to raise it at every event would paint all windows anew.
template <typename Dialog>
static Dialog* shown(MainWindow* window, const char* name, void (MainWindow::*ask)())
{
    auto* dialog = window->findChild<Dialog*>(name);
    if (dialog && dialog->isVisible()) return dialog;
    (window->*ask)();
    return window->findChild<Dialog*>(name);
}

/// The dialog with that tab in view, whichever the last event has chosen.
static QWidget* tabOf(QWidget* dialog, const char* name, int tab)
{
    auto* tabs = dialog->findChild<QTabWidget*>(name);
    if (!dialog->isVisible()) dialog->show();
    tabs->setCurrentIndex(tab);
    return tabs->parentWidget();
}

void MonkeyTest::parameterMenu()
{
    QFETCH(int, tab);
    QFETCH(int, nTabs);
    Monkey monkey(_seed, _home.path());
    const QString broken = monkey.run(_nEvents / nTabs, [&] {
        return tabOf(shown<QDialog>(monkey.window.get(), "ParmMenuDialog", &MainWindow::parameterMenu), "tabView", tab);
    });
    QVERIFY2(broken.isEmpty(), qPrintable(broken));
}

void MonkeyTest::segyMenuTabs()
{
    QFETCH(int, tab);
    QFETCH(int, nTabs);
    Monkey monkey(_seed, _home.path());
    const QString broken = monkey.run(_nEvents / nTabs, [&] {
        return tabOf(shown<SegyMenuDialog>(monkey.window.get(), "SegyMenuDialog", &MainWindow::segyMenu), "tabWidget",
                     tab);
    });
    QVERIFY2(broken.isEmpty(), qPrintable(broken));
}

void MonkeyTest::guessPanel()
{
    Monkey monkey(_seed, _home.path());
    const QString broken = monkey.run(_nEvents, [&] {
        auto* menu = shown<SegyMenuDialog>(monkey.window.get(), "SegyMenuDialog", &MainWindow::segyMenu);
        auto* panel = menu->findChild<SegyGuessDialog*>();
        if (!panel || !panel->isVisible()) menu->findChild<QPushButton*>("guessButton")->click();
        return menu->findChild<SegyGuessDialog*>();
    });
    QVERIFY2(broken.isEmpty(), qPrintable(broken));
}

void MonkeyTest::seekDialog()
{
    Monkey monkey(_seed, _home.path());
    std::unique_ptr<SegyRecDialog> dialog;
    connect(monkey.window.get(), &MainWindow::fileShown, this, [&] { dialog.reset(); });  // its loader has gone
    const QString broken = monkey.run(_nEvents, [&] {
        if (!dialog) dialog = std::make_unique<SegyRecDialog>(monkey.window->segyLoader());
        return dialog.get();
    });
    QVERIFY2(broken.isEmpty(), qPrintable(broken));
}

void MonkeyTest::remapDialog()
{
    Monkey monkey(_seed, _home.path());
    SegyRemapDialog dialog;
    const QString broken = monkey.run(_nEvents, [&] { return &dialog; });
    QVERIFY2(broken.isEmpty(), qPrintable(broken));
}

void MonkeyTest::helpViewer()
{
    Monkey monkey(_seed, _home.path());
    QPointer<HelpViewer> viewer;
    const QString broken = monkey.run(_nEvents, [&] {
        if (!viewer) {
            viewer = new HelpViewer(monkey.window.get(), _home.path(), "/docs/meridune-docs/index.html", "");
            viewer->findChild<QAction*>("printAct")->setEnabled(false);
        }
        return viewer.data();
    });
    QVERIFY2(broken.isEmpty(), qPrintable(broken));
}

void MonkeyTest::assumptionsPanel()
{
    Monkey monkey(_seed, _home.path());
    AssumptionsPanel* panel = monkey.window->assumptionsPanel();
    std::vector<SegyAssumption> assumptions;
    for (int i = 0; i < 40; ++i)
        assumptions.push_back({.name = "taken for granted " + std::to_string(i), .consequence = "so"});
    panel->setAssumptions(assumptions);
    const QString broken = monkey.run(_nEvents, [&] { return panel; });
    QVERIFY2(broken.isEmpty(), qPrintable(broken));
}

void MonkeyTest::titles()
{
    Monkey monkey(_seed, _home.path());
    const QString broken =
        monkey.run(_nEvents, [&] { return shown<Titles>(monkey.window.get(), "Titles", &MainWindow::titleMenu); });
    QVERIFY2(broken.isEmpty(), qPrintable(broken));
}

void MonkeyTest::drawing()
{
    Monkey monkey(_seed, _home.path());
    const QString broken = monkey.run(
        _nEvents, [&] { return shown<DrawDialog>(monkey.window.get(), "DrawDialog", &MainWindow::drawMenu); });
    QVERIFY2(broken.isEmpty(), qPrintable(broken));
}

/// The main window gets the events while the mouse draws, most of the time.
void MonkeyTest::drawingOnTheWindow()
{
    Monkey monkey(_seed, _home.path());
    int nTurns = 0, nOn = 0;
    const QString broken = monkey.run(_nEvents, [&] {
        if (nTurns++ % 50 == 0) {
            monkey.window->drawMenu();
            auto* dialog = monkey.window->findChild<DrawDialog*>();
            auto* box = dialog->findChild<QCheckBox*>("enableBox");
            if (!box->isChecked()) box->click();
            dialog->findChild<QAbstractButton*>(nTurns % 100 == 1 ? "r1" : "r2")->click();
            dialog->findChild<QAbstractButton*>(nTurns % 1000 == 1 ? "removeAllButton" : "newButton")->click();
            dialog->findChild<QLineEdit*>("strEdit")->setText(QString::number(nTurns));
            nOn += dialog->isDrawing();
        }
        return monkey.window.get();
    });
    QVERIFY2(broken.isEmpty(), qPrintable(broken));
    QCOMPARE(nOn, (nTurns + 49) / 50);
}

QTEST_MAIN(MonkeyTest)
#include "monkeytest.moc"
