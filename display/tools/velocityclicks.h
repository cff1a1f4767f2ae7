/// Clicks on the canvas while velocities are picked.
#ifndef VELOCITYCLICKS_H
#define VELOCITYCLICKS_H

#include "display/tools/canvastool.h"
#include "display/tools/velocityoverlay.h"

#include <QObject>
#include <QTimer>

class QMouseEvent;
class SeismicDisplay;

/// The left button adds a mark, the right one takes the nearest away, a double click with the left edits it. A click
/// acts when it can't become a double one any more. Stands behind SeismicDisplay.
class VelocityClicks : public QObject, public CanvasTool
{
    Q_OBJECT

public:
    explicit VelocityClicks(SeismicDisplay* display);

    /// Lent; null for none.
    void setOverlay(VelocityOverlay* overlay) { _overlay = overlay; }
    VelocityOverlay* overlay() const { return _overlay; }

    bool canvasEvent(QWidget* canvas, QEvent* event) override;
    void leave() override { _timer.stop(); }

private:
    bool press(const QMouseEvent* event);
    void edit(const QMouseEvent* event);
    void oneClick();
    QPointF onAxes(const QPoint& pos) const;
    VelocityClick clickAt(const QPointF& at) const;

    SeismicDisplay* _display;
    VelocityOverlay* _overlay = nullptr;
    QTimer _timer;
    QPoint _pos;
    Qt::MouseButton _button = Qt::NoButton;
};

#endif
