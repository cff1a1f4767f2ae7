#include "sources/segymap.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>
#include <cstring>
#include <vector>

int segyKeyValue(float value)
{
    if (std::isnan(value)) return 0;
    if (value >= 2147483648.0f) return INT_MAX;
    return value <= -2147483648.0f ? INT_MIN : int(value);
}

static int compareKey(float a, float b)
{
    if (a < b) return -1;
    if (a > b) return 1;
    return int(std::isnan(a)) - int(std::isnan(b));
}

int segyMapCompare(const segyMapItem& a, const segyMapItem& b, int segymapkey1, int segymapkey2)
{
    const int order = compareKey(a.item[segymapkey1], b.item[segymapkey1]);
    return order != 0 ? order : compareKey(a.item[segymapkey2], b.item[segymapkey2]);
}

namespace {

/// Both keys as one number of the same order, and the item's place before the sort.
struct RankedKey {
    uint32_t high, low;
    uint32_t rank;
};

constexpr int digitBits = 11;
constexpr uint32_t digitMask = (1u << digitBits) - 1;
constexpr int nDigits = 6;  // three digits of 11 bits each key

}  // namespace

/// An unsigned number in the order of the floats: both zeros alike, any NaN last.
static uint32_t orderedBits(float value)
{
    if (std::isnan(value)) return UINT32_MAX;
    const auto bits = std::bit_cast<uint32_t>(value + 0.0f);  // the sum makes -0 a 0
    return bits & 0x80000000u ? ~bits : bits | 0x80000000u;
}

static uint32_t digitOf(const RankedKey& key, int digit)
{
    return (digit < 3 ? key.low >> (digitBits * digit) : key.high >> (digitBits * (digit - 3))) & digitMask;
}

/// A stable sort by counting, lowest digit first; a digit that is the same in all keys costs nothing.
static void radixSort(std::vector<RankedKey>* keys)
{
    const size_t n = keys->size();
    std::vector<uint32_t> counts(size_t(nDigits) << digitBits);
    for (const RankedKey& key : *keys)
        for (int digit = 0; digit < nDigits; ++digit) ++counts[(size_t(digit) << digitBits) + digitOf(key, digit)];
    std::vector<RankedKey> other(n);
    for (int digit = 0; digit < nDigits; ++digit) {
        uint32_t* count = &counts[size_t(digit) << digitBits];
        if (count[digitOf((*keys)[0], digit)] == n) continue;
        uint32_t start = 0;
        for (uint32_t i = 0; i <= digitMask; ++i) start += std::exchange(count[i], start);
        for (const RankedKey& key : *keys) other[count[digitOf(key, digit)]++] = key;
        keys->swap(other);
    }
}

void sortSegyMap(segyMapItem* items, int nItems, int segymapkey1, int segymapkey2)
{
    if (nItems < 2) return;
    std::vector<uint32_t> from(nItems);  // the item that belongs at each place
    {
        std::vector<RankedKey> keys(nItems);
        for (int i = 0; i < nItems; ++i)
            keys[i] = {orderedBits(items[i].item[segymapkey1]), orderedBits(items[i].item[segymapkey2]), uint32_t(i)};
        radixSort(&keys);
        for (int i = 0; i < nItems; ++i) from[i] = keys[i].rank;
    }
    // Along each cycle every item moves once; the next ones are fetched ahead, as they lie anywhere.
    for (uint32_t start = 0; start < uint32_t(nItems); ++start) {
        if (from[start] == start) continue;
        const segyMapItem held = items[start];
        uint32_t to = start;
        while (from[to] != start) {
            const uint32_t source = from[to];
            __builtin_prefetch(&items[from[source]]);
            items[to] = items[source];
            from[to] = to;
            to = source;
        }
        items[to] = held;
        from[to] = to;
    }
}

bool SegyMap::reserve(int64_t n)
{
    n = std::max(n, int64_t(_count));
    if (n == _capacity) return true;
    if (n > INT_MAX) return false;
    if (n == 0) {
        _items.reset();
        _capacity = 0;
        return true;
    }
    void* grown = std::realloc(_items.get(), size_t(n) * sizeof(segyMapItem));
    if (!grown) return false;
    (void)_items.release();
    _items.reset(static_cast<segyMapItem*>(grown));
    _capacity = int(n);
    return true;
}

segyMapItem* SegyMap::append()
{
    constexpr int step = 2500;
    if (_count == _capacity && !reserve(int64_t(_count) + std::max(step, _count / 8))) return nullptr;
    segyMapItem* item = &_items[_count++];
    std::memset(item, 0, sizeof *item);
    return item;
}

int SegyMap::fileIndex(const QString& name)
{
    const int index = _files.indexOf(name);
    if (index >= 0) return index;
    _files.append(name);
    return _files.size() - 1;
}

QString SegyMap::fileName(uint32_t index) const
{
    return index < uint32_t(_files.size()) ? _files[int(index)] : QString();
}
