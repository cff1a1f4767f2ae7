#include "display/menus/drawdialog.h"

#include "display/images/myqwtplotcanvas.h"
#include "display/menus/drawstyle.h"
#include "widgets/dismissbox.h"
#include "widgets/namedcontrol.h"
#include "widgets/numberedit.h"

#include <QApplication>
#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <QWindow>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>
#include <qwt_scale_map.h>
#include <qwt_text.h>

#include <algorithm>
#include <utility>

/// The titles of all that is drawn begin with this, so that other code knows it as drawing.
static const char drawingPrefix[] = "drwc999999-";

DrawDialog::DrawDialog(QWidget* parent, std::function<QList<DrawTarget>()> targets)
    : QDialog(parent), _findTargets(std::move(targets))
{
    setObjectName("DrawDialog");
    setWindowTitle("Draw on Canvas");
    auto* column = new QVBoxLayout(this);
    _enableBox =
        makeControl<QCheckBox>("enableBox", tr("The mouse draws on the canvas; Escape ends it"), "Enable Drawing");
    column->addWidget(_enableBox);
    makeMethod(column);
    makeObjects(column);
    _style = new DrawStyle;
    column->addWidget(_style);
    _label = makeControl<QLabel>("label", QString());
    column->addWidget(_label);
    column->addStretch();
    column->addWidget(new DismissBox(this, tr("Ends drawing and hides this dialog; what is drawn stays")));

    connect(_enableBox, &QCheckBox::stateChanged, this, &DrawDialog::applyDraw);
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &DrawDialog::followFocus);
    showState();
}

DrawDialog::~DrawDialog()
{
    stopDrawing();
}

void DrawDialog::makeMethod(QVBoxLayout* column)
{
    _r1 = makeControl<QRadioButton>("r1", tr("The mouse draws a line"), "Draw Line");
    _r2 = makeControl<QRadioButton>("r2", tr("The mouse places a text"), "Draw Text");
    _r1->setChecked(true);
    auto* group = new QGroupBox("Draw Method");
    auto* row = new QHBoxLayout(group);
    row->addWidget(_r1);
    row->addWidget(_r2);
    row->addStretch();
    column->addWidget(group);
    connect(_r2, &QRadioButton::toggled, this, &DrawDialog::changeMethod);
}

void DrawDialog::makeObjects(QVBoxLayout* column)
{
    _label1 = makeControl<QLabel>("label1", QString(), "Current Text: ");
    _strEdit = makeControl<QLineEdit>("strEdit", tr("The text that the mouse places"));
    _thEdit = makeControl<NumberEdit>("thEdit", tr("Thickness of the line, in pixels"), 1.0, 100.0);
    _thEdit->setWhole(true);
    _thEdit->setNumber(_ithick);
    auto* form = new QFormLayout;
    form->addRow(_label1, _strEdit);
    form->addRow("Line Thickness: ", _thEdit);
    column->addLayout(form);
    connect(_strEdit, &QLineEdit::textChanged, this, &DrawDialog::changeText);
    connect(_thEdit, &NumberEdit::numberEdited, this, &DrawDialog::setThick);

    const struct {
        const char* name;
        const char* text;
        QString tip;
        void (DrawDialog::*slot)();
    } buttons[] = {
        {"newButton", "New Object", tr("Begin another line or text; without it the present one goes on"),
         &DrawDialog::newCurrent},
        {"removeButton", "Remove Current Object", tr("Take the line or text away that was made last"),
         &DrawDialog::removeCurrent},
        {"removeAllButton", "Remove All Objects", tr("Take all lines and texts away"), &DrawDialog::removeAll},
    };
    auto* row = new QHBoxLayout;
    for (const auto& button : buttons) {
        auto* made = makeControl<QPushButton>(button.name, button.tip, button.text);
        made->setAutoDefault(false);
        row->addWidget(made);
        connect(made, &QPushButton::clicked, this, button.slot);
    }
    column->addLayout(row);
}

void DrawDialog::endDrawing()
{
    _enableBox->setChecked(false);
}

void DrawDialog::applyDraw(int state)
{
    if (state != 0)
        beginDrawing();
    else
        stopDrawing();
    showState();
}

void DrawDialog::beginDrawing()
{
    _targets = _findTargets();
    if (_targets.isEmpty()) return endDrawing();
    _isDrawing = true;
    _buttonDown = -1;
    _windows = {windowHandle()};
    bool isLastThere = false;
    for (const DrawTarget& target : qAsConst(_targets)) {
        _windows.append(target.plot->window()->windowHandle());
        target.borrowMouse(this, true);
        connect(target.plot, &QObject::destroyed, this, &DrawDialog::forgetPlot, Qt::UniqueConnection);
        isLastThere = isLastThere || target.plot == _target.plot;
    }
    if (!isLastThere) _target = _targets.first();
    takeInput(true);
    newCurrent();
    emit drawingBegun();
}

void DrawDialog::stopDrawing()
{
    if (!_isDrawing) return;
    _isDrawing = false;
    takeInput(false);
    // Who hears that this leaves comes back here, where nothing is left to do.
    const QList<DrawTarget> targets = std::exchange(_targets, {});
    for (const DrawTarget& target : targets) target.borrowMouse(this, false);
    _buttonDown = -1;
}

/// Takes keyboard, cursor and all moves of the mouse, or gives them back; as often as is wanted.
void DrawDialog::takeInput(bool on)
{
    if (on == _hasInput) return;
    _hasInput = on;
    if (on) {
        QApplication::setOverrideCursor(Qt::PointingHandCursor);
        _wasCompressing = QCoreApplication::testAttribute(Qt::AA_CompressHighFrequencyEvents);
        QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);  // each move is a point of the line
        grabKeyboard();
    } else {
        QApplication::restoreOverrideCursor();
        QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, _wasCompressing);
        releaseKeyboard();
    }
}

/// The user may type into other windows meanwhile. A press on a canvas takes the keyboard again: to follow the focus
/// back would never end, for taking and giving the keyboard moves the focus. Only behind a modal dialog it is followed,
/// once: the news that the dialog has lost the focus, to no window at first, may come after that of its end.
void DrawDialog::followFocus(QWindow* window)
{
    if (!_hasInput || (_awaitsFocus && !window)) return;
    if (!_windows.contains(window))
        releaseKeyboard();
    else if (std::exchange(_awaitsFocus, false) && QWidget::keyboardGrabber() != this)
        grabKeyboard();
}

bool DrawDialog::event(QEvent* event)
{
    // A modal dialog has come or gone: it has its own keys and cursor.
    if (_isDrawing && event->type() == QEvent::WindowBlocked) takeInput(false);
    if (_isDrawing && event->type() == QEvent::WindowUnblocked) {
        _awaitsFocus = true;
        takeInput(true);
    }
    return QDialog::event(event);
}

void DrawDialog::hideEvent(QHideEvent* event)
{
    if (!event->spontaneous()) endDrawing();
    QDialog::hideEvent(event);
}

/// Keys that the grab has brought here go to the control that has the focus in this dialog, whichever window is
/// in front. Returns whether there was one.
bool DrawDialog::passKeyOn(QKeyEvent* event)
{
    if (_isPassing || QWidget::keyboardGrabber() != this || event->key() == Qt::Key_Escape) return false;
    QWidget* to = focusWidget();
    if (!to || to == this) return false;
    const QScopedValueRollback<bool> passing(_isPassing, true);
    QApplication::sendEvent(to, event);
    return true;
}

void DrawDialog::keyPressEvent(QKeyEvent* event)
{
    if (passKeyOn(event)) return;
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // A Return meant for the picture must not end the drawing.
    if (!isReturn || QWidget::keyboardGrabber() != this) QDialog::keyPressEvent(event);
}

void DrawDialog::keyReleaseEvent(QKeyEvent* event)
{
    if (!passKeyOn(event)) QDialog::keyReleaseEvent(event);
}

bool DrawDialog::canvasEvent(QWidget* canvas, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: return mousePress(canvas, static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease: return mouseRelease();
    case QEvent::MouseMove: mouseMove(static_cast<QMouseEvent*>(event)); return false;  // the read-out follows
    default: return false;
    }
}

/// The press of a line is kept; that of a text passes on.
bool DrawDialog::mousePress(QWidget* canvas, const QMouseEvent* event)
{
    if (_hasInput && QWidget::keyboardGrabber() != this) grabKeyboard();
    if (!current() || event->modifiers() & Qt::ControlModifier) return false;
    for (const DrawTarget& target : qAsConst(_targets))
        if (target.plot->canvas() == canvas) drawOn(target);
    _buttonDown = event->button();
    _isLineDown = !_useText;
    if (_useText) _strEdit->setFocus();  // what is typed now is the text
    return !_useText;
}

bool DrawDialog::mouseRelease()
{
    _buttonDown = -1;
    if (std::exchange(_isLineDown, false) && _curve) _curve->plot()->replot();  // its joints, too
    return false;
}

void DrawDialog::mouseMove(const QMouseEvent* event)
{
    if (_buttonDown == -1 || !_isDrawing || !current()) return;
    if (!(event->buttons() & _buttonDown)) {  // its release went astray
        _buttonDown = -1;
        return;
    }
    _psave = event->pos();
    if (_useText)
        drawText(_psave, _strEdit->text());
    else
        drawLine(_psave);
}

QwtPlotItem* DrawDialog::current() const
{
    return _useText ? static_cast<QwtPlotItem*>(_marker) : _curve;
}

/// An object stands on one plot: the mouse on another one begins a new object there.
void DrawDialog::drawOn(const DrawTarget& target)
{
    _target = target;
    if (current()->plot() == target.plot) return;
    dropEmpty(current());
    newCurrent();
}

void DrawDialog::attach(QwtPlotItem* item)
{
    item->setTitle(drawingPrefix + QString::number(++_nObjects));
    item->setAxes(_target.xAxis, _target.yAxis);
    item->setRenderHint(QwtPlotItem::RenderAntialiased);
    item->attach(_target.plot);
    _plotOf[item] = _target.plot;
}

void DrawDialog::newCurrent()
{
    if (!_target.plot) {
        const QList<DrawTarget> targets = _findTargets();
        if (targets.isEmpty()) return;
        _target = targets.first();
        connect(_target.plot, &QObject::destroyed, this, &DrawDialog::forgetPlot, Qt::UniqueConnection);
    }
    if (_useText) {
        _marker = new QwtPlotMarker;
        _marker->setVisible(false);  // until the mouse has placed it
        QwtText label(_strEdit->text(), QwtText::PlainText);
        _marker->setLabel(label);
        attach(_marker);
        _markerList.append(_marker);
    } else {
        _curve = new QwtPlotCurve;
        attach(_curve);
        _curveList.append(_curve);
    }
    showState();
}

static QPointF scaleValues(const QwtPlotItem* item, const QPoint& point)
{
    const QwtPlot* plot = item->plot();
    return QPointF(plot->canvasMap(item->xAxis()).invTransform(point.x()),
                   plot->canvasMap(item->yAxis()).invTransform(point.y()));
}

void DrawDialog::drawLine(const QPoint& point)
{
    const int n = int(_curve->dataSize());
    QVector<QPointF> points(n + 1);
    for (int i = 0; i < n; ++i) points[i] = _curve->sample(i);
    points[n] = scaleValues(_curve, point);
    _curve->setSamples(points);
    const QPen pen(_style->color(), _ithick, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    auto* canvas = qobject_cast<MyQwtPlotCanvas*>(_curve->plot()->canvas());
    if (canvas && n > 0 && pen == _curve->pen()) {
        canvas->paintOver(*_curve, n - 1, n);
        return;
    }
    _curve->setPen(pen);
    _curve->plot()->replot();
}

void DrawDialog::drawText(const QPoint& point, const QString& text)
{
    QwtText label(text, QwtText::PlainText);
    label.setFont(_style->textFont());
    label.setColor(_style->color());
    _marker->setLabel(label);
    _marker->setValue(scaleValues(_marker, point));
    _marker->setVisible(true);
    _marker->plot()->replot();
}

void DrawDialog::changeText(const QString& text)
{
    if (_marker) {
        QwtText label = _marker->label();
        label.setText(text, QwtText::PlainText);
        _marker->setLabel(label);
        _marker->plot()->replot();
    }
    showState();
}

void DrawDialog::setThick()
{
    _ithick = int(_thEdit->number());
}

void DrawDialog::changeMethod()
{
    _useText = _r2->isChecked();
    showState();
}

/// What was begun on another plot and never drawn has come along to the new one.
void DrawDialog::dropEmpty(QwtPlotItem* item)
{
    if (!item) return;
    const bool isEmpty =
        item == _curve ? _curve->dataSize() == 0 : !_marker->isVisible() || _marker->label().text().isEmpty();
    if (isEmpty) remove(item);
}

/// Takes a current object away; the one before becomes the current one of its kind.
void DrawDialog::remove(QwtPlotItem* item)
{
    if (item == _curve)
        _curveList.removeLast();
    else
        _markerList.removeLast();
    lastBecomesCurrent();
    _plotOf.remove(item);
    QwtPlot* plot = item->plot();
    item->detach();
    delete item;
    plot->replot();
}

void DrawDialog::lastBecomesCurrent()
{
    _curve = _curveList.isEmpty() ? nullptr : _curveList.last();
    _marker = _markerList.isEmpty() ? nullptr : _markerList.last();
}

void DrawDialog::tellNothing()
{
    QMessageBox::information(this, windowTitle(), "No text or draw objects are selected.");
}

void DrawDialog::removeCurrent()
{
    if (!current()) return tellNothing();
    remove(current());
    if (_useText && _marker) {  // what is typed now goes to this one
        const QSignalBlocker quiet(_strEdit);
        _strEdit->setText(_marker->label().text());
    }
    showState();
}

void DrawDialog::removeAll()
{
    if (_curveList.isEmpty() && _markerList.isEmpty()) return tellNothing();
    while (_curve) remove(_curve);
    while (_marker) remove(_marker);
    showState();
}

/// The plot has taken what stood on it along.
void DrawDialog::forgetPlot(QObject* plot)
{
    const auto isGone = [this, plot](QwtPlotItem* item) { return _plotOf.value(item) == plot; };
    _curveList.erase(std::remove_if(_curveList.begin(), _curveList.end(), isGone), _curveList.end());
    _markerList.erase(std::remove_if(_markerList.begin(), _markerList.end(), isGone), _markerList.end());
    for (QwtPlotItem* item : _plotOf.keys(plot)) _plotOf.remove(item);
    lastBecomesCurrent();
    if (_target.plot == plot) _target.plot = nullptr;
    const auto isOnIt = [plot](const DrawTarget& target) { return target.plot == plot; };
    _targets.erase(std::remove_if(_targets.begin(), _targets.end(), isOnIt), _targets.end());
    if (_targets.isEmpty())
        endDrawing();
    else if (!_target.plot)
        _target = _targets.first();
    showState();
}

void DrawDialog::showState()
{
    for (QWidget* widget : QList<QWidget*>{_label1, _strEdit}) widget->setEnabled(_useText);
    _thEdit->setEnabled(!_useText);
    if (_useText && _strEdit->text().isEmpty())
        _label->setText("Enter text in box");
    else if (_isDrawing && !current())
        _label->setText(tr("Press \"New Object\" to begin."));
    else if (_useText)
        _label->setText("Press MB1 on canvas and move mouse to position text.");
    else
        _label->setText("Press MB1 on canvas and move mouse to draw.");
}
