#include "widgets/screenplace.h"

#include <QCoreApplication>
#include <QDialog>
#include <QEvent>
#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>

#include <algorithm>

static qint64 area(const QRect& rect)
{
    return rect.isEmpty() ? 0 : qint64(rect.width()) * rect.height();
}

/// How far a point is from the nearest of a rectangle's, along both axes together.
static qint64 distance(const QPoint& from, const QRect& to)
{
    const QPoint nearest(std::clamp(from.x(), to.left(), to.right()), std::clamp(from.y(), to.top(), to.bottom()));
    return (nearest - from).manhattanLength();
}

static QRect screenFor(const QRect& place, const QVector<QRect>& screens)
{
    return *std::min_element(screens.begin(), screens.end(), [&](const QRect& a, const QRect& b) {
        const qint64 inA = area(a & place), inB = area(b & place);
        return inA != inB ? inA > inB : distance(place.topLeft(), a) < distance(place.topLeft(), b);
    });
}

QRect clampedPlace(const QRect& place, const QVector<QRect>& screens)
{
    if (screens.isEmpty()) return place;
    const QRect screen = screenFor(place, screens);
    const QSize size = place.size().boundedTo(screen.size());
    const QPoint least = screen.topLeft();
    const QPoint most = least + QPoint(screen.width() - size.width(), screen.height() - size.height());
    return QRect(QPoint(std::clamp(place.x(), least.x(), most.x()), std::clamp(place.y(), least.y(), most.y())), size);
}

QVector<QRect> presentScreens()
{
    QVector<QRect> areas;
    for (const QScreen* screen : QGuiApplication::screens()) areas.append(screen->availableGeometry());
    return areas;
}

static QMargins frameOf(const QWidget* window)
{
    const QRect outer = window->frameGeometry(), inner = window->geometry();
    if (outer == inner) return usualFrame;
    return QMargins(inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
                    outer.bottom() - inner.bottom());
}

void fitInto(QWidget* window, const QRect& screen)
{
    // Of a first size that nobody has given Qt takes two thirds of the screen at most.
    if (!window->testAttribute(Qt::WA_Resized))
        window->resize(window->sizeHint().expandedTo(window->minimumSizeHint()));
    const QMargins frame = frameOf(window);
    const QSize outer(frame.left() + frame.right(), frame.top() + frame.bottom());
    const QRect place = clampedPlace(QRect(window->pos(), window->size() + outer), {screen});
    if (place.size() - outer != window->size()) window->resize(place.size() - outer);
    // Only a place that was given counts: a new dialog is still to be put before its window.
    if (window->testAttribute(Qt::WA_Moved) && place.topLeft() != window->pos()) window->move(place.topLeft());
}

ScreenPlace::ScreenPlace(QObject* parent) : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

static QRect screenOf(const QWidget& window)
{
    const QScreen* screen = window.screen() ? window.screen() : QGuiApplication::primaryScreen();
    return screen->availableGeometry();
}

bool ScreenPlace::eventFilter(QObject* object, QEvent* event)
{
    if ((event->type() != QEvent::Show && event->type() != QEvent::Hide) || event->spontaneous()) return false;
    auto* window = qobject_cast<QWidget*>(object);
    if (!window || !window->isWindow()) return false;
    auto* dialog = qobject_cast<QDialog*>(window);
    if (!dialog && !qobject_cast<QMainWindow*>(window)) return false;
    if (event->type() == QEvent::Show)
        fitInto(window, screenOf(*window));
    else if (dialog)
        dialog->move(dialog->pos());  // a dialog that was never moved is centred again at each show
    return false;
}
