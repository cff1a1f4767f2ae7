/// Help and "About" of a main window.
#ifndef WINDOWHELP_H
#define WINDOWHELP_H

#include <QString>

class QWidget;

/// Opens pages, in windows of their own; F1 in any window that belongs to the main window does, too.
class WindowHelp
{
public:
    /// @param window  lent, outlives this
    explicit WindowHelp(QWidget* window);

    /// The name in the installation's company file; empty without one.
    const QString& company() const { return _company; }
    /// Opens the first page.
    void showContents() const;
    void showAbout() const;

private:
    void showPage(QWidget* window, const QString& page) const;

    QWidget* _window;
    QString _company;
};

#endif
