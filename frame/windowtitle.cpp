#include "frame/windowtitle.h"

QString WindowTitle::text() const
{
    const QString gap(10, ' '), smallGap(6, ' ');
    const QString title = "Seismic Display" + gap;
    if (!isShown) return title;
    if (area.isEmpty()) return file.isEmpty() ? title : title + "File: " + file + gap;
    const QString names = "Area: " + area + smallGap + "Line: " + line;
    return title + names + (flow.isEmpty() ? QString() : smallGap + "Flow: " + flow) + gap;
}
