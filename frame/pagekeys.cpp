#include "frame/pagekeys.h"

#include "widgets/appsettings.h"

#include <QAction>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>

PageKeys::PageKeys(QWidget* window, QAction* forward, QAction* back)
    : QObject(window), _forward(forward), _back(back),
      _option(new QAction("Pa&ge Up/Down page through the records", this))
{
    _option->setObjectName("pageKeysAct");
    _option->setStatusTip("Page Down shows the next record, Page Up the previous one");
    _option->setCheckable(true);
    _option->setChecked(AppSettings().value(SettingsKey::pageKeys, false).toBool());
    connect(_option, &QAction::toggled, this, [](bool on) { AppSettings().setValue(SettingsKey::pageKeys, on); });
    window->installEventFilter(this);
}

bool PageKeys::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !_option->isChecked()) return QObject::eventFilter(object, event);
    const auto* press = static_cast<QKeyEvent*>(event);
    const bool isNext = press->key() == Qt::Key_PageDown;
    const bool isPlain = (press->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!isPlain || (!isNext && press->key() != Qt::Key_PageUp)) return QObject::eventFilter(object, event);
    page(isNext ? _forward : _back, press->isAutoRepeat());
    return true;
}

void PageKeys::page(QAction* action, bool isRepeat)
{
    if (!action->isEnabled() || (isRepeat && _isBusy)) return;
    _isBusy = true;
    action->trigger();
    // Runs behind the key events that have piled up during the load.
    QTimer::singleShot(0, this, [this] { _isBusy = false; });
}
