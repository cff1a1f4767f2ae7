/// Displays with the dialog "Draw on Canvas" on them.
#ifndef DRAWFIXTURE_H
#define DRAWFIXTURE_H

#include "display/menus/drawdialog.h"
#include "display/tools/canvastools.h"
#include "tests/gui/displayfixture.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>

#include <cstring>
#include <memory>

/// Settings and the user's files go to a folder of the test.
inline bool useFolder(const QTemporaryDir& home)
{
    qputenv("TREVIA_HOME", home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    return home.isValid();
}

/// Whether cursor and keyboard belong to everybody again.
inline bool hasGivenBack()
{
    return !QGuiApplication::overrideCursor() && !QWidget::keyboardGrabber();
}

inline const char prefix[] = "drwc999999-";

/// The drawn items of a plot, in the order in which they were made.
template <typename Item>
QList<Item*> drawn(const QwtPlot* plot)
{
    QMap<int, Item*> items;
    for (QwtPlotItem* item : plot->itemList())
        if (auto* found = dynamic_cast<Item*>(item))
            if (found->title().text().startsWith(prefix))
                items[found->title().text().mid(int(strlen(prefix))).toInt()] = found;
    return items.values();
}

/// Displays of 20 traces of 500 samples at 4 ms, and the dialog on them.
struct DrawFixture : DisplayFixture {
    TestEnsemble ensemble{20, 500};
    std::unique_ptr<DrawDialog> dialog;

    explicit DrawFixture(int nDisplays = 1) : DisplayFixture(nDisplays)
    {
        for (int i = 0; i < nDisplays; ++i) load(ensemble, i);
        dialog = std::make_unique<DrawDialog>(nullptr, [this] {
            QList<DrawTarget> targets;
            for (const auto& display : owned)
                if (display) targets.append(displayTarget(display.get()));
            return targets;
        });
        dialog->show();
        QApplication::processEvents();
    }
    template <typename T>
    T* find(const char* name)
    {
        return dialog->findChild<T*>(name);
    }
    void click(const char* name) { find<QAbstractButton>(name)->click(); }
    void enable() { click("enableBox"); }
    QWidget* canvas(int i = 0) { return displays[i]->canvas(); }
    QList<QwtPlotCurve*> lines(int i = 0) { return drawn<QwtPlotCurve>(displays[i]); }
    QList<QwtPlotMarker*> texts(int i = 0) { return drawn<QwtPlotMarker>(displays[i]); }
    QString help() { return find<QLabel>("label")->text(); }
    /// A press, moves to the points, and a release.
    void draw(const QList<QPoint>& points, int i = 0)
    {
        QTest::mousePress(canvas(i), Qt::LeftButton, Qt::NoModifier, points.first());
        for (const QPoint& point : points) move(point, Qt::LeftButton, i);
        QTest::mouseRelease(canvas(i), Qt::LeftButton, Qt::NoModifier, points.last());
    }
    void move(const QPoint& point, Qt::MouseButtons buttons, int i = 0)
    {
        QMouseEvent event(QEvent::MouseMove, point, canvas(i)->mapToGlobal(point), Qt::NoButton, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(canvas(i), &event);
    }
    /// Position of a pixel of a display that shows all: 21 traces over the width, 2000 ms down the height.
    QPointF scaleValue(const QPoint& at, int i = 0)
    {
        return QPointF(21.0 * at.x() / (canvas(i)->width() - 1), 2000.0 * at.y() / (canvas(i)->height() - 1));
    }
};

/// How many pixels have a color.
inline int countPixels(const QImage& image, const QColor& color)
{
    int n = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) n += image.pixelColor(x, y) == color;
    return n;
}

/// Counts the mouse events of a canvas that its tools let pass.
class MouseCounter : public QObject
{
public:
    explicit MouseCounter(QWidget* widget)
    {
        widget->installEventFilter(this);
        widget->installEventFilter(widget->parentWidget());  // the plot once more, so that it comes first again
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        presses += event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
        releases += event->type() == QEvent::MouseButtonRelease;
        return false;
    }
    int presses = 0, releases = 0;
};

#define COMPARE_POINT(actual, expected) \
    do { \
        const QPointF a = (actual), b = (expected); \
        /* a pixel is 21 / 500 of a trace and 4 ms: the hand calculation is right to a fifth of one */ \
        QVERIFY2(std::abs(a.x() - b.x()) < 0.01 && std::abs(a.y() - b.y()) < 1.0, \
                 qPrintable(QString("%1 %2, not %3 %4").arg(a.x()).arg(a.y()).arg(b.x()).arg(b.y()))); \
    } while (false)

#endif
