/// Controls with the name that tests and scripts find them by, and their tip.
#ifndef NAMEDCONTROL_H
#define NAMEDCONTROL_H

#include <QString>

class QPushButton;

/// Makes a control from its constructor's arguments; it belongs to the layout that takes it.
template <typename Control, typename... Arguments>
Control* makeControl(const char* name, const QString& tip, Arguments... arguments)
{
    auto* control = new Control(arguments...);
    control->setObjectName(name);
    control->setToolTip(tip);
    return control;
}

/// Such a button, which Return in a field doesn't press.
QPushButton* makeButton(const char* name, const QString& text, const QString& tip);

#endif
