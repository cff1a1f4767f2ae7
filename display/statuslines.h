/// The two status lines under the displays: the read-out, and the help on the mouse.
#ifndef STATUSLINES_H
#define STATUSLINES_H

#include <QString>

class QStatusBar;

/// Both bars are lent and may be null.
class StatusLines
{
public:
    StatusLines(QStatusBar* readout, QStatusBar* control) : _readout(readout), _control(control) {}

    /// What is under the mouse, in place of a message added.
    void showReadout(const QString& line);
    /// Adds to the line until the next read-out.
    void add(const QString& message);
    /// The mouse has left.
    void clear();
    void showControl(const QString& line);

private:
    QStatusBar* _readout;
    QStatusBar* _control;
    QString _main;
};

/// What the control line adds while stored pictures are shown.
QString imageModeText();

/// The whole control line.
/// @param plainZoom       the plain buttons zoom, else they do so with Ctrl
/// @param text            what the active tool adds
/// @param hasContextMenu  a context menu is in use
QString controlLine(bool plainZoom, const QString& text, bool hasContextMenu);

#endif
