#include "frame/helpkeys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTabWidget>
#include <QWidget>

/// Windows by name; where a tab has a page of its own, the tab's row stands before its window's.
static const struct {
    const char* window;
    const char* tab;
    const char* page;
} pages[] = {
    {"MainWindow", "", "display.html"},         {"ParmMenuDialog", "Image", "movie.html"},
    {"ParmMenuDialog", "", "parameters.html"},  {"ImageDialog", "", "movie.html"},
    {"SegyMenuDialog", "Load", "open.html"},    {"SegyMenuDialog", "", "headers.html"},
    {"SegyRemapDialog", "", "headers.html"},    {"SegyGuessDialog", "", "guess.html"},
    {"SegyRecDialog", "", "seek.html"},         {"RecordList", "", "seek.html"},
    {"SectionExportDialog", "", "export.html"}, {"Titles", "", "titles.html"},
    {"DrawDialog", "", "titles.html"},          {"AssumptionsPanel", "", "assumed.html"},
};

QString helpPageOf(const QWidget* window)
{
    const auto* tabs = window->findChild<const QTabWidget*>();
    const QString tab = tabs ? tabs->tabText(tabs->currentIndex()) : QString();
    for (const auto& row : pages)
        if (window->objectName() == row.window && (!*row.tab || tab == row.tab)) return row.page;
    return "index.html";
}

HelpKeys::HelpKeys(QWidget* mainWindow, std::function<void(QWidget*, const QString&)> show)
    : QObject(mainWindow), _mainWindow(mainWindow), _show(std::move(show))
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool HelpKeys::isOurs(const QWidget* window) const
{
    while (window && window != _mainWindow) window = window->parentWidget();
    return window != nullptr;
}

/// A key that no control has taken comes to the window at last.
bool HelpKeys::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !object->isWidgetType()) return false;
    auto* window = static_cast<QWidget*>(object);
    const auto* key = static_cast<const QKeyEvent*>(event);
    const bool isHelp = key->key() == Qt::Key_F1 && key->modifiers() == Qt::NoModifier;
    const bool isSheet = key->text() == "?";
    if ((!isHelp && !isSheet) || !window->isWindow() || !isOurs(window) || QWidget::keyboardGrabber()) return false;
    _show(window, isHelp ? helpPageOf(window) : QString("keys.html"));
    return true;
}
