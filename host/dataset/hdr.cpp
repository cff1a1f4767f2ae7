#include "host/dataset/hdr.h"

#include "host/flow/headerlist.h"

#include <map>

static std::map<int, HeaderList> lists;

static HeaderList* listOf(int handle)
{
    const auto found = lists.find(handle);
    return found == lists.end() ? nullptr : &found->second;
}

int hdr_setup_()
{
    const int handle = lists.empty() ? 1 : lists.rbegin()->first + 1;
    lists[handle];
    return handle;
}

void hdr_release_(int handle)
{
    lists.erase(handle);
}

void hdr_naminfo__(int handle, const char* name, std::string* description, int* length, int* format, int* position,
                   int* status)
{
    const HeaderList* list = listOf(handle);
    const HeaderWord* word = list ? list->find(name) : nullptr;
    *status = word ? 0 : 1;
    if (!word) return;
    *description = word->description;
    *length = word->length;
    *format = word->format;
    *position = word->position + 1;
}

void hdr_indinfo_(int handle, int position, std::string* name, std::string* description, int* length, int* format,
                  int* status)
{
    const HeaderList* list = listOf(handle);
    const HeaderWord* word = list ? list->at(position - 1) : nullptr;
    *status = word ? 0 : 1;
    if (!word) return;
    *name = word->name;
    *description = word->description;
    *length = word->length;
    *format = word->format;
}

int hdr_std_add_(int handle, const char* name)
{
    HeaderList* list = listOf(handle);
    return list && list->addStandard(name) ? 0 : 1;
}

int hdr_add_(int handle, const char* name, const char* description, int position, int length, int format)
{
    HeaderList* list = listOf(handle);
    if (!list || position != list->totalLength() + 1) return 1;
    return list->add(name, description, length, format) ? 0 : 1;
}
