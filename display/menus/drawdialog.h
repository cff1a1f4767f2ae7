/// The dialog "Draw on Canvas": lines and texts by hand on a display or a map.
#ifndef DRAWDIALOG_H
#define DRAWDIALOG_H

#include "display/menus/drawtarget.h"
#include "display/tools/canvastool.h"

#include <QDialog>
#include <QList>
#include <QMap>
#include <QPoint>

class DrawStyle;
class NumberEdit;
class QCheckBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QVBoxLayout;
class QwtPlotCurve;
class QwtPlotItem;
class QwtPlotMarker;

/// While its box is checked it is the active tool of the targets, the keyboard is the dialog's, and the cursor is a
/// hand. All three end with the box, with the dialog, with the last target, and when another tool takes over. Any other window that gets the focus has
/// the keyboard until the next press on a target.
///
/// What is drawn belongs to the plot that it stands on, in scale values, so that it stays through repaints, zooms
/// and new data; the dialog forgets it when that plot goes. With Ctrl the mouse buttons keep what they do without
/// the dialog.
class DrawDialog : public QDialog, public CanvasTool
{
    Q_OBJECT

public:
    /// @param targets  asked each time that drawing begins; the first one gets the first object
    DrawDialog(QWidget* parent, std::function<QList<DrawTarget>()> targets);
    ~DrawDialog() override;

    bool isDrawing() const { return _isDrawing; }
    /// Takes the check out of the box.
    void endDrawing();

    bool canvasEvent(QWidget* canvas, QEvent* event) override;
    QString controlText() const override { return "   Drawing is on"; }
    void leave() override { endDrawing(); }

signals:
    /// The mouse draws from now on.
    void drawingBegun();

public slots:
    void applyDraw(int state);
    void changeMethod();
    void changeText(const QString& text);
    /// Begins another line or text on the plot last drawn on; the one before stays as it is.
    void newCurrent();
    void removeCurrent();
    void removeAll();
    void setThick();

protected:
    bool event(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    void makeMethod(QVBoxLayout* column);
    void makeObjects(QVBoxLayout* column);
    void beginDrawing();
    void stopDrawing();
    void takeInput(bool on);
    void followFocus(QWindow* window);
    bool passKeyOn(QKeyEvent* event);
    bool mousePress(QWidget* canvas, const QMouseEvent* event);
    bool mouseRelease();
    void mouseMove(const QMouseEvent* event);
    void drawOn(const DrawTarget& target);
    void drawLine(const QPoint& point);
    void drawText(const QPoint& point, const QString& text);
    QwtPlotItem* current() const;
    void attach(QwtPlotItem* item);
    void dropEmpty(QwtPlotItem* item);
    void forgetPlot(QObject* plot);
    void remove(QwtPlotItem* item);
    void lastBecomesCurrent();
    void tellNothing();
    void showState();

    QCheckBox* _enableBox;  // all controls are children
    QRadioButton* _r1;
    QRadioButton* _r2;
    QLabel* _label1;
    QLineEdit* _strEdit;
    NumberEdit* _thEdit;
    DrawStyle* _style;
    QLabel* _label;

    std::function<QList<DrawTarget>()> _findTargets;
    QList<DrawTarget> _targets;       // while drawing
    QList<QWindow*> _windows;         // of the targets, and of this; only compared
    DrawTarget _target;               // last drawn on
    QList<QwtPlotCurve*> _curveList;  // owned by their plots
    QList<QwtPlotMarker*> _markerList;
    QMap<QwtPlotItem*, QObject*> _plotOf;  // where each of them stands
    QwtPlotCurve* _curve = nullptr;        // the current ones, each the last of its list
    QwtPlotMarker* _marker = nullptr;
    int _nObjects = 0;  // ever made
    int _ithick = 2;    // pixels
    bool _useText = false;
    bool _isDrawing = false;
    bool _hasInput = false;        // the cursor is ours
    bool _awaitsFocus = false;     // a modal dialog has ended, and the focus isn't back yet
    bool _wasCompressing = false;  // moves of the mouse, before they were ours
    bool _isPassing = false;       // a key is on its way to another widget
    int _buttonDown = -1;          // -1 for none
    bool _isLineDown = false;      // a press began a piece of a line, and its release is still to come
    QPoint _psave;                 // where the mouse was last
};

#endif
