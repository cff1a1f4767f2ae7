/// Who owns the mouse on a display, and what the control line says of it.
#ifndef MOUSEMODE_H
#define MOUSEMODE_H

#include <QString>

enum class MouseMode { Zoom, Spectrum, Headers, Velocity, Gates, FirstBreaks, Moveout, Drawing };

/// What the control line adds for a mode; empty for those that say nothing.
QString mouseModeText(MouseMode mode);

/// What it adds while stored pictures are shown.
QString imageModeText();

/// The whole control line.
/// @param plainZoom       the plain buttons zoom, else they do so with Ctrl
/// @param text            what the mode adds
/// @param hasContextMenu  a context menu is in use
QString controlLine(bool plainZoom, const QString& text, bool hasContextMenu);

#endif
