/// What stands in the title bar of a main window.
#ifndef WINDOWTITLE_H
#define WINDOWTITLE_H

#include <QString>

/// What the data are called: names of the line that they come from, or their file; empty where unknown.
struct WindowTitle {
    QString area, line, flow;
    QString file;
    bool isShown = true;  ///< the names are wanted in the title

    /// The program's name, and where wanted the line's names, else the file's.
    QString text() const;
};

#endif
