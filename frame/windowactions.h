/// The actions of the main window: one table, from which menus and tool bar are built.
#ifndef WINDOWACTIONS_H
#define WINDOWACTIONS_H

#include <QMap>
#include <QString>

class MainWindow;
class QAction;
class QCheckBox;
class QGroupBox;
class QMenu;
class QRadioButton;
class QToolBar;

/// Makes and keeps the window's actions, menus and tool bar with its boxes; all are children of the window.
class WindowActions
{
public:
    explicit WindowActions(MainWindow* window);

    /// By its name, for instance "exitAct"; null for an unknown one.
    QAction* action(const QString& name) const { return _actions.value(name); }
    QMenu* menu(const QString& title) const { return _menus.value(title); }
    QToolBar* fileToolBar() const { return _toolBar; }
    /// By its name, for instance "overlayBox"; null for an unknown one.
    QCheckBox* box(const QString& name) const { return _boxes.value(name); }
    QGroupBox* radioBox() const { return _radioBox; }
    QRadioButton* radio(const QString& name) const { return _radios.value(name); }

    /// Without a flow its ways out are disabled and say so.
    void setFlow(bool isRunning);

private:
    void disable(const QString& name, const QString& reason);
    void makeActions();
    void makeMenus();
    void makeToolBar();
    QGroupBox* makeRadioBox();

    MainWindow* _window;
    QMap<QString, QAction*> _actions;
    QMap<QString, QMenu*> _menus;
    QMap<QString, QCheckBox*> _boxes;
    QMap<QString, QRadioButton*> _radios;
    QGroupBox* _radioBox = nullptr;
    QToolBar* _toolBar = nullptr;
};

#endif
