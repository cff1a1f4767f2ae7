#include "tracedata/menukeys.h"

#include "tracedata/parmmenu.h"

HeaderKeys menuKeys(const parmmenu& menu)
{
    const auto word = [](int key) { return from0(WordFrom1(key)); };
    return {word(menu.ipkey), word(menu.ipkeyreal), word(menu.iskey), word(menu.iskeyreal), menu.dotrevia != 0};
}

void setMenuKeys(parmmenu* menu, WordFrom1 pri, WordFrom1 sec)
{
    menu->ipkey = menu->ipkeyreal = pri.value;
    menu->iskey = menu->iskeyreal = sec.value;
}
