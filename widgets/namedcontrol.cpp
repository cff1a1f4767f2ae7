#include "widgets/namedcontrol.h"

#include <QPushButton>

QPushButton* makeButton(const char* name, const QString& text, const QString& tip)
{
    auto* button = makeControl<QPushButton>(name, tip, text);
    button->setAutoDefault(false);
    return button;
}
