#include "widgets/returnkey.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

ReturnKey::ReturnKey(QDialog* dialog, QPushButton* standard) : QObject(dialog), _dialog(dialog), _standard(standard)
{
    standard->setDefault(true);
    dialog->installEventFilter(this);
}

static bool isField(const QWidget* widget)
{
    const auto* combo = qobject_cast<const QComboBox*>(widget);
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QAbstractSpinBox*>(widget) ||
           (combo && combo->isEditable());
}

/// A key comes here when the control that has the focus has no use for it, or has done with it.
bool ReturnKey::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || QWidget::keyboardGrabber() == _dialog) return false;
    const auto* key = static_cast<const QKeyEvent*>(event);
    const bool isPlain = (key->modifiers() & ~Qt::KeypadModifier) == 0;
    if (!isPlain || (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)) return false;
    QWidget* focus = _dialog->focusWidget();
    if (isField(focus)) return true;
    auto* button = qobject_cast<QPushButton*>(focus);
    if (!button) button = _standard;
    if (button->isVisible() && button->isEnabled()) button->click();
    return true;
}
