/// Who may change the header words of a batch of traces before a display copies them.
#ifndef BATCHHOOK_H
#define BATCHHOOK_H

#include "display/tools/orderedlist.h"

/// Called on the main thread, once for each batch that a display loads.
class BatchHook
{
public:
    virtual ~BatchHook() = default;
    /// @param heads   n headers of nWords each, the reader's own: what is written here everybody sees
    virtual void changeHeaders(int** heads, int n, int nWords) = 0;
};

/// All of them, the lowest order first. Lent until they are removed.
class BatchHooks : public BatchHook
{
public:
    /// Where the common changes stand; any other number does as well.
    enum Order { Geometry = 100, TextToHeader = 200 };

    void add(BatchHook* hook, int order) { _hooks.add(hook, order); }
    void remove(BatchHook* hook) { _hooks.remove(hook); }
    void changeHeaders(int** heads, int n, int nWords) override
    {
        for (BatchHook* hook : _hooks.members()) hook->changeHeaders(heads, n, nWords);
    }

private:
    OrderedList<BatchHook> _hooks;
};

#endif
