/// What holds for each dialog and window: it fits small screens, its keys do what they do elsewhere.
#include "tests/gui/dialogtable.h"
#include "widgets/screenplace.h"

#include <QAbstractButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTemporaryDir>

class DialogsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void theTableHasEachDialog();
    void eachFitsASmallScreen_data();
    void eachFitsASmallScreen();
    void theMenuOfFilesIsAsHighAsItsFields();
    void aDialogComesBackWhereItWas();
    void aDialogBeyondTheScreenIsBroughtBack();
    void tabReachesEachFieldInReadingOrder_data() { eachDialog(); }
    void tabReachesEachFieldInReadingOrder();
    void enterPressesTheDefault_data() { eachDialog(); }
    void enterPressesTheDefault();
    void enterInAFieldOnlyEndsItsEntry();

private:
    void eachDialog();
    QTemporaryDir _folder;
};

void DialogsTest::initTestCase()
{
    QVERIFY(_folder.isValid());
    qputenv("TREVIA_HOME", _folder.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _folder.path());
}

void DialogsTest::eachDialog()
{
    QTest::addColumn<QString>("name");
    for (const auto& row : dialogTable()) QTest::newRow(qPrintable(row.first)) << row.first;
}

void DialogsTest::theTableHasEachDialog()
{
    QStringList known;
    for (const auto& row : dialogTable()) known.append(row.first);
    known.sort();
    QCOMPARE(dialogClasses(), known);
}

/// Of a window manager, less the frame that the offscreen platform has of its own.
constexpr int titleBar = 30;

void DialogsTest::eachFitsASmallScreen_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QRect>("screen");
    for (const auto& row : dialogTable()) {
        QTest::newRow(qPrintable(row.first + " on a small screen")) << row.first << QRect(0, 0, 1366, 768 - titleBar);
        QTest::newRow(qPrintable(row.first + " at scale 2")) << row.first << QRect(0, 0, 960, 540 - titleBar);
    }
}

static QScrollArea* scrollAreaOf(QWidget* widget)
{
    for (QWidget* above = widget->parentWidget(); above; above = above->parentWidget())
        if (auto* area = qobject_cast<QScrollArea*>(above)) return area;
    return nullptr;
}

/// What a user can't get at of a control; empty if all of it can be seen and clicked.
static QString hiddenPart(QWidget* window, QWidget* control)
{
    if (QScrollArea* area = scrollAreaOf(control)) {
        const QPoint centre = control->mapTo(area->widget(), control->rect().center());
        area->ensureVisible(centre.x(), centre.y(), control->width() / 2 + 1, control->height() / 2 + 1);
        QApplication::processEvents();
    }
    const QString who = control->metaObject()->className() + (" " + control->objectName());
    const QRect whole(control->mapTo(window, QPoint()), control->size());
    if (!window->rect().contains(whole)) return who + " lies outside";
    if (control->visibleRegion().boundingRect() != control->rect()) return who + " is cut";
    const QWidget* hit = window->childAt(whole.center());
    if (hit != control && !control->isAncestorOf(hit)) return who + " is covered";
    return QString();
}

/// Buttons and fields of a dialog; of a main window those that the program's own code has named.
static QList<QWidget*> controlsOf(QWidget* window)
{
    QList<QWidget*> controls;
    for (QWidget* child : window->findChildren<QWidget*>()) {
        if (child->window() != window || !child->isVisible() || child->objectName().startsWith("qt_")) continue;
        const bool isField = qobject_cast<QLineEdit*>(child) && !qobject_cast<QAbstractSpinBox*>(child->parentWidget());
        if (isField || qobject_cast<QPushButton*>(child) || qobject_cast<QCheckBox*>(child) ||
            qobject_cast<QRadioButton*>(child) || qobject_cast<QComboBox*>(child) ||
            qobject_cast<QAbstractSpinBox*>(child))
            controls.append(child);
    }
    return controls;
}

void DialogsTest::eachFitsASmallScreen()
{
    QFETCH(QString, name);
    QFETCH(QRect, screen);
    DialogHome home(_folder.path());
    QWidget* window = dialogTable().at(name)(&home);
    window->show();
    window->move(3000, 2000);  // as on a larger screen that has gone
    fitInto(window, screen);
    QApplication::processEvents();
    const QRect place = window->frameGeometry();
    QVERIFY2(
        screen.contains(place),
        qPrintable(QString("%1 x %2 at %3, %4").arg(place.width()).arg(place.height()).arg(place.x()).arg(place.y())));
    if (qobject_cast<QMainWindow*>(window)) return;  // its tool bar has an extension for what doesn't fit
    int nLooked = 0;
    QStringList faults;
    forEachPage(window, [&] {
        for (QWidget* control : controlsOf(window)) {
            const QString fault = hiddenPart(window, control);
            if (!fault.isEmpty()) faults.append(fault);
            ++nLooked;
        }
    });
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join("; ")));
    QVERIFY(nLooked > 0);
}

void DialogsTest::theMenuOfFilesIsAsHighAsItsFields()
{
    DialogHome home(_folder.path());
    QWidget* menu = dialogTable().at("SegyMenuDialog")(&home);
    QApplication::processEvents();
    int lowest = 0;
    auto* page = menu->findChild<QWidget*>("segyloadmenu");
    for (QWidget* child : page->findChildren<QWidget*>())
        if (child->isVisible()) lowest = std::max(lowest, child->mapTo(page, QPoint(0, child->height())).y());
    QVERIFY2(page->height() - lowest < 40, qPrintable(QString("%1 of %2").arg(lowest).arg(page->height())));
}

void DialogsTest::aDialogComesBackWhereItWas()
{
    const ScreenPlace place;
    DialogHome home(_folder.path());
    QWidget* menu = dialogTable().at("Titles")(&home);
    menu->move(123, 77);
    QApplication::processEvents();
    menu->hide();
    menu->show();
    QApplication::processEvents();
    QCOMPARE(menu->pos(), QPoint(123, 77));
}

void DialogsTest::aDialogBeyondTheScreenIsBroughtBack()
{
    const ScreenPlace place;
    DialogHome home(_folder.path());
    QWidget* menu = dialogTable().at("Titles")(&home);
    menu->hide();
    menu->resize(5000, 4000);
    menu->move(-4000, 9000);
    menu->show();
    QApplication::processEvents();
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QVERIFY(screen.contains(menu->geometry()));
}

static bool takesTab(const QWidget* widget)
{
    return widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) &&
           !widget->focusProxy() && !widget->objectName().startsWith("qt_");
}

static QString nameOf(const QWidget* widget)
{
    return widget->metaObject()->className() + (" " + widget->objectName());
}

/// Whether the eye comes to b first: it stands wholly above a, or left of it in the same row.
static bool isReadBefore(const QWidget* window, const QWidget* b, const QWidget* a)
{
    const QRect first(b->mapTo(window, QPoint()), b->size()), second(a->mapTo(window, QPoint()), a->size());
    const bool shareColumn = first.left() <= second.right() && second.left() <= first.right();
    const bool shareRow = first.top() <= second.bottom() && second.top() <= first.bottom();
    return (shareColumn && first.bottom() < second.top()) || (shareRow && first.right() < second.left());
}

/// The controls that Tab comes to, from the first of a dialog round to it again.
static QList<QWidget*> tabRound(QWidget* window)
{
    QList<QWidget*> round;
    QWidget* first = window->nextInFocusChain();
    while (first != window && !takesTab(first)) first = first->nextInFocusChain();
    first->setFocus();
    for (QWidget* at = first; at && !round.contains(at) && round.size() < 200; at = QApplication::focusWidget()) {
        round.append(at);
        QTest::keyClick(window->windowHandle(), Qt::Key_Tab);
        QApplication::processEvents();
    }
    return round;
}

void DialogsTest::tabReachesEachFieldInReadingOrder()
{
    QFETCH(QString, name);
    DialogHome home(_folder.path());
    QWidget* window = dialogTable().at(name)(&home);
    if (qobject_cast<QMainWindow*>(window)) return;  // of pictures and pages, which keep the focus
    window->show();
    window->activateWindow();
    QTRY_VERIFY(window->isActiveWindow());
    QStringList faults;
    forEachPage(window, [&] {
        const QList<QWidget*> round = tabRound(window);
        for (QWidget* child : window->findChildren<QWidget*>())
            if (child->window() == window && takesTab(child) && !round.contains(child))
                faults += nameOf(child) + " isn't reached";
        for (int i = 1; i < round.size(); ++i)
            if (isReadBefore(window, round[i], round[i - 1]))
                faults += nameOf(round[i - 1]) + " comes before " + nameOf(round[i]);
    });
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join("; ")));
}

void DialogsTest::enterPressesTheDefault()
{
    QFETCH(QString, name);
    DialogHome home(_folder.path());
    QWidget* window = dialogTable().at(name)(&home);
    auto* dialog = qobject_cast<QDialog*>(window);
    if (!dialog || name == "ImageDialog") return;  // a page of the parameter menu, without buttons to end it
    dialog->show();
    dialog->activateWindow();
    QTRY_VERIFY(dialog->isActiveWindow());
    QPushButton* standard = nullptr;
    for (QPushButton* button : dialog->findChildren<QPushButton*>())
        if (button->isDefault()) standard = button;
    QVERIFY(standard);
    QSignalSpy pressed(standard, &QPushButton::clicked);
    if (QWidget* focus = dialog->focusWidget()) focus->clearFocus();
    QTest::keyClick(dialog, Qt::Key_Enter);
    QCOMPARE(pressed.count(), 1);
}

void DialogsTest::enterInAFieldOnlyEndsItsEntry()
{
    DialogHome home(_folder.path());
    for (const auto& [name, field] :
         {std::make_pair("ParmMenuDialog", "clipEdit"), std::make_pair("SegyMenuDialog", "maxVal"),
          std::make_pair("Titles", "titleEdit"), std::make_pair("DrawDialog", "thEdit"),
          std::make_pair("SectionExportDialog", "tpcEdit")}) {
        QWidget* dialog = dialogTable().at(name)(&home);
        dialog->show();
        dialog->activateWindow();
        QTRY_VERIFY(dialog->isActiveWindow());
        auto* edit = dialog->findChild<QLineEdit*>(field);
        QVERIFY2(edit, field);
        edit->setFocus();
        QSignalSpy ended(edit, &QLineEdit::returnPressed);
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(ended.count(), 1);
        QVERIFY2(dialog->isVisible(), name);
    }
}

QTEST_MAIN(DialogsTest)
#include "dialogstest.moc"
