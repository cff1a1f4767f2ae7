/// The window that shows the help pages.
#ifndef HELPVIEWER_H
#define HELPVIEWER_H

#include <QMainWindow>

class HelpBrowser;

/// A text browser on a tree of HTML pages. Closes and deletes itself.
class HelpViewer : public QMainWindow
{
    Q_OBJECT

public:
    /// @param folder   root of the installation
    /// @param page     first page, below the root
    /// @param company  stands in the title; may be empty
    HelpViewer(QWidget* parent, const QString& folder, const QString& page, const QString& company);

    HelpBrowser* browser() const { return _browser; }

private:
    void print();

    HelpBrowser* _browser;  // child of the window
};

#endif
