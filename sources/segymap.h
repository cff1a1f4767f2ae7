/// The in-memory trace map: one item a trace, sortable by two keys.
#ifndef SEGYMAP_H
#define SEGYMAP_H

#include "sources/segyrecords.h"
#include "tracedata/wordnumber.h"

#include <QStringList>

#include <cstdlib>
#include <memory>

/// The order of two items: slot segymapkey1 first, then slot segymapkey2, compared as floats. Returns
/// -1, 0 or 1. A NaN sorts behind all numbers, and equals a NaN.
int segyMapCompare(const segyMapItem& a, const segyMapItem& b, MapSlot segymapkey1, MapSlot segymapkey2);

/// Sorts nItems items by the two slots; items with equal keys stand in file order (by itrace), whatever the order
/// before. Takes 28 bytes an item of work space.
void sortSegyMap(segyMapItem* items, int nItems, MapSlot segymapkey1, MapSlot segymapkey2);

/// A key value as the integer that lists and searches use: truncated, clamped, 0 for NaN.
int segyKeyValue(float value);

/// Items and the names of their files. Grows in place, so that a build never holds two copies of a big map
/// (a std::vector would, while it moves): 96 bytes a trace is the limit that screens of many lines bear.
class SegyMap
{
public:
    /// Memory that an item takes, with the work space of a sort.
    static constexpr int64_t bytesAnItem = int64_t(sizeof(segyMapItem)) + 28;

    int count() const { return _count; }
    segyMapItem* items() { return _items.get(); }
    const segyMapItem* items() const { return _items.get(); }
    /// Slots allocated.
    int capacity() const { return _capacity; }
    /// Makes room for exactly n items; never fewer than there are. False when there is no memory.
    bool reserve(int64_t n);
    /// A new item at the end, zeroed; null when there is no memory for it.
    segyMapItem* append();
    /// n new items at the end, zeroed; there is room for them. Returns the first.
    segyMapItem* append(int n);
    /// Drops the items behind the first n.
    void cut(int n) { _count = n; }
    /// Gives slots back that were never used.
    void shrinkToFit() { reserve(_count); }

    /// Index of a file name, added when it is new.
    int fileIndex(const QString& name);
    /// Name of the file that holds a trace; empty for a bad index.
    QString fileName(uint32_t index) const;

private:
    struct Free {
        void operator()(void* p) const { std::free(p); }
    };
    std::unique_ptr<segyMapItem[], Free> _items;
    int _count = 0;
    int _capacity = 0;
    QStringList _files;
};

#endif
