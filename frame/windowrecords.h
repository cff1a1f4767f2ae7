/// Where among its records a main window is.
#ifndef WINDOWRECORDS_H
#define WINDOWRECORDS_H

#include "frame/recordnavigator.h"

#include <QObject>

#include <functional>

class IndexBar;
class QAction;
class QLabel;
class QMainWindow;
class RecordList;
class ScreenRow;
struct parmmenu;

/// What the navigator asks of the window: tells the records on the screens in the status bar and marks them in the list
/// beside the picture. Loads nothing by itself.
class WindowRecords : public QObject, public RecordScreens
{
    Q_OBJECT

public:
    /// Shows the present ensemble on a screen; false when there is no memory for it.
    using Show = std::function<bool(int screen)>;

    /// @param window  gets the list, and in its status bar the label
    /// @param bar     offers an index at the end of the data
    /// All are lent and outlive this.
    WindowRecords(QMainWindow* window, ScreenRow* screens, IndexBar* bar, const parmmenu* menu, Show show);

    /// Shows the list, or hides it.
    QAction* toggle() const { return _toggle; }
    /// Whose records these are; lent.
    void setNavigator(const RecordNavigator* navigator) { _navigator = navigator; }
    /// The records of a source, after an index has come or a new sort. @param files  that it reads
    void list(const EnsembleSource& source, const QString& files);

    int screenCount() const override;
    int moveUp() const override;
    bool showEnsemble(int screen) override { return _show(screen); }
    void clearScreens(int from) override;
    void recordsShown() override;
    void recordsEnded() override;
    void sortChanged() override { emit sortTaken(); }

signals:
    /// The user wants this record of the list, counted from 0.
    void recordChosen(int entry);
    /// The data have come to their end.
    void ended();
    /// Another sort is in force.
    void sortTaken();

private:
    QMainWindow* _window;
    ScreenRow* _screens;
    IndexBar* _bar;
    const parmmenu* _menu;
    Show _show;
    const RecordNavigator* _navigator = nullptr;
    RecordList* _list;  // these two are children of the window
    QLabel* _label;     // in the status bar, where the read-out doesn't cover it
    QAction* _toggle;   // of the list
};

#endif
