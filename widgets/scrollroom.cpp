#include "widgets/scrollroom.h"

#include <QEvent>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>

ScrollRoom::ScrollRoom(QWidget* content, QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);  // it is the controls that are reached by Tab
    setWidgetResizable(true);
    setWidget(content);
    setFocusProxy(content);
    // As on a page without scroll bars: the window's ground, not that of a list.
    content->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
}

QSize ScrollRoom::sizeHint() const
{
    if (!widget()) return QSize();
    const int bar = verticalScrollBar()->sizeHint().width();
    return widget()->sizeHint().expandedTo(widget()->minimumSizeHint()) + QSize(bar, 0);
}

QSize ScrollRoom::minimumSizeHint() const
{
    if (!widget()) return QSize();
    const int most = screen() ? screen()->availableGeometry().width() * 9 / 10 : QWIDGETSIZE_MAX;
    const int width = widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width();
    return QSize(std::min(width, most), std::min(fontMetrics().height() * 8, widget()->minimumSizeHint().height()));
}

/// A content that grows or shrinks changes what the window would like to have.
bool ScrollRoom::eventFilter(QObject* object, QEvent* event)
{
    if (object == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
    return QScrollArea::eventFilter(object, event);
}
