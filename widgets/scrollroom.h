/// A page of controls that scrolls where the window is too small for it.
#ifndef SCROLLROOM_H
#define SCROLLROOM_H

#include <QScrollArea>

/// Shows its content whole where there is room, and else as much as fits, with scroll bars. The control that has
/// the focus is kept in view.
class ScrollRoom : public QScrollArea
{
    Q_OBJECT

public:
    /// Takes the content over, and its place in the order of the focus.
    explicit ScrollRoom(QWidget* content, QWidget* parent = nullptr);

    /// All of the content, however large.
    QSize sizeHint() const override;
    /// The width that the content needs, so that it is scrolled up and down only, and a few lines of it.
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
};

#endif
