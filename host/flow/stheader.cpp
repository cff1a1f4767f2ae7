#include "host/flow/stheader.h"

#include "host/flow/headerlist.h"
#include "host/flow/standardwords.h"

static HeaderList flowList;

int stHdrIndex(const char* name)
{
    const HeaderWord* word = flowList.find(name);
    return word ? word->position : -1;
}

int stHdrExists(const char* name)
{
    return flowList.find(name) ? 1 : 0;
}

int stHdrFormat(const char* name)
{
    const HeaderWord* word = flowList.find(name);
    return word ? word->format : Integer4Format;
}

int stHdrLength(const char* name)
{
    const HeaderWord* word = flowList.find(name);
    return word ? word->length : 1;
}

const char* stHdrDesc(const char* name)
{
    const HeaderWord* word = flowList.find(name);
    return word ? word->description.c_str() : "";
}

const char* stHdrIndexName(int index)
{
    const HeaderWord* word = flowList.at(index);
    return word ? word->name.c_str() : "";
}

int stHdrAddStd(const char* name)
{
    return flowList.addStandard(name) ? 0 : 1;
}

int stHdrAdd(const char* name, const char* description, int length, int format)
{
    return flowList.add(name, description, length, format) ? 0 : 1;
}

void stHdrClear()
{
    flowList.clear();
}
