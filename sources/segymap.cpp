#include "sources/segymap.h"

#include <algorithm>
#include <array>
#include <bit>
#include <climits>
#include <cmath>
#include <cstring>
#include <utility>
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

int segyMapCompare(const segyMapItem& a, const segyMapItem& b, MapSlot segymapkey1, MapSlot segymapkey2)
{
    const int order = compareKey(a.item[segymapkey1.value], b.item[segymapkey1.value]);
    return order != 0 ? order : compareKey(a.item[segymapkey2.value], b.item[segymapkey2.value]);
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

namespace {

/// Moves items to their places along the cycles of a permutation, in place.
///
/// One cycle alone waits for memory at each step. So several walkers share the cycles: each begins at a place of its
/// own, whose item it sets aside, and ends where the next place is another's beginning, or its own. The one that
/// arrives there takes what was set aside. A walker that ends begins anew, so there are never more items aside than
/// walkers.
class CycleWalkers
{
public:
    CycleWalkers(segyMapItem* items, std::vector<uint32_t> from) : _items(items), _from(std::move(from)) {}
    void run()
    {
        int nWalking = 0;
        for (uint32_t& to : _to) nWalking += begin(&to);
        while (nWalking > 0)
            for (uint32_t& to : _to)
                if (to != nowhere && !step(&to) && !begin(&to)) --nWalking;
    }

private:
    static constexpr int nWalkers = 16;
    static constexpr uint32_t nowhere = UINT32_MAX;
    static constexpr uint32_t taken = 0x80000000u;  // on a place where a walker stands or has begun

    bool begin(uint32_t* to);
    bool step(uint32_t* to);
    void fetch(uint32_t place) const
    {
        __builtin_prefetch(&_from[place]);
        __builtin_prefetch(&_items[place]);
        __builtin_prefetch(reinterpret_cast<const char*>(&_items[place]) + sizeof(segyMapItem) - 1);
    }

    segyMapItem* _items;
    std::vector<uint32_t> _from;  // the item that belongs at each place; the place itself once it is there
    uint32_t _next = 0;           // no walk begins before
    std::array<uint32_t, nWalkers> _to = {};
    std::array<uint32_t, nWalkers> _asidePlace = {};
    std::array<segyMapItem, nWalkers> _aside = {};
    int _nAside = 0;
};

/// A walk begins at the next place that has not its item; false if there is none.
bool CycleWalkers::begin(uint32_t* to)
{
    *to = nowhere;
    while (_next < _from.size() && (_from[_next] == _next || _from[_next] & taken)) ++_next;
    if (_next == _from.size()) return false;
    *to = _next++;
    _asidePlace[size_t(_nAside)] = *to;
    _aside[size_t(_nAside++)] = _items[*to];
    fetch(_from[*to]);
    _from[*to] |= taken;
    return true;
}

/// Fills the place where the walker stands and goes on; false where the walk ends.
bool CycleWalkers::step(uint32_t* to)
{
    const uint32_t source = _from[*to] & ~taken;
    _from[*to] = *to;
    if (_from[source] & taken || _from[source] == source) {
        const auto end = _asidePlace.begin() + _nAside;
        const auto i = size_t(std::find(_asidePlace.begin(), end, source) - _asidePlace.begin());
        _items[*to] = _aside[i];
        _aside[i] = _aside[size_t(--_nAside)];
        _asidePlace[i] = _asidePlace[size_t(_nAside)];
        return false;
    }
    _items[*to] = _items[source];
    fetch(_from[source]);
    _from[source] |= taken;
    *to = source;
    return true;
}

}  // namespace

static RankedKey rankedKey(const segyMapItem* items, int i, MapSlot segymapkey1, MapSlot segymapkey2)
{
    return {orderedBits(items[i].item[segymapkey1.value]), orderedBits(items[i].item[segymapkey2.value]), uint32_t(i)};
}

/// The keys in file order, from which a stable sort begins.
static std::vector<RankedKey> keysInFileOrder(const segyMapItem* items, int nItems, MapSlot segymapkey1,
                                              MapSlot segymapkey2)
{
    std::vector<RankedKey> keys(static_cast<size_t>(nItems), RankedKey{0, 0, UINT32_MAX});
    const auto isFree = [&](uint32_t place) { return place < uint32_t(nItems) && keys[place].rank == UINT32_MAX; };
    int i = 0;
    for (; i < nItems && isFree(items[i].itrace); ++i)
        keys[items[i].itrace] = rankedKey(items, i, segymapkey1, segymapkey2);
    if (i == nItems) return keys;
    // Items of several maps, or of a part of one: their ranks are not the places from 0 on.
    for (i = 0; i < nItems; ++i) keys[size_t(i)] = rankedKey(items, i, segymapkey1, segymapkey2);
    std::stable_sort(keys.begin(), keys.end(), [items](const RankedKey& a, const RankedKey& b) {
        return items[a.rank].itrace < items[b.rank].itrace;
    });
    return keys;
}

void sortSegyMap(segyMapItem* items, int nItems, MapSlot segymapkey1, MapSlot segymapkey2)
{
    if (nItems < 2) return;
    std::vector<uint32_t> from(nItems);  // the item that belongs at each place
    {
        std::vector<RankedKey> keys = keysInFileOrder(items, nItems, segymapkey1, segymapkey2);
        radixSort(&keys);
        for (int i = 0; i < nItems; ++i) from[i] = keys[i].rank;
    }
    CycleWalkers(items, std::move(from)).run();
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

segyMapItem* SegyMap::append(int n)
{
    segyMapItem* const first = &_items[_count];
    std::memset(first, 0, size_t(n) * sizeof(segyMapItem));
    _count += n;
    return first;
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
