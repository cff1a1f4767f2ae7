#include "sources/menus/fixedfont.h"

#include <QApplication>

QFont fixedFont()
{
    QFont font("Courier");
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    font.setPointSizeF(QApplication::font().pointSizeF());
    return font;
}
