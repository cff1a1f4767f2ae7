/// Rows of equal length that stay where they are while more are added.
#ifndef ROWSTORE_H
#define ROWSTORE_H

#include "host/rawvector.h"

#include <algorithm>

/// Keeps rows in blocks that grow with their number up to some MiB: a row of its own from the allocator would cost
/// more than its filling.
template <class T>
class RowStore
{
public:
    /// Gives all rows back; those to come have n elements, n above 0.
    void reset(size_t n)
    {
        std::vector<RawVector<T>>().swap(_blocks);
        std::vector<T*>().swap(_rows);
        _length = n;
        _nFree = 0;
    }
    /// Adds rows until there are n, their elements without a value. Throws std::bad_alloc, with the rows that there
    /// were and maybe some more.
    /// @param most  rows that memory is ever taken for, n at the least
    void grow(size_t n, size_t most)
    {
        while (_rows.size() < n) {
            if (_rows.size() == _rows.capacity()) _rows.reserve(std::max(n, 2 * _rows.size()));
            if (_nFree == 0) addBlock(std::max(most, n) - _rows.size());
            const RawVector<T>& block = _blocks.back();
            _rows.push_back(const_cast<T*>(block.data()) + block.size() - _nFree * _length);
            --_nFree;
        }
    }
    size_t count() const { return _rows.size(); }
    T** rows() { return _rows.data(); }
    T* const* rows() const { return _rows.data(); }

private:
    static constexpr size_t mostBlockBytes = size_t(4) << 20;

    /// As many rows as there are already, at most those of a full block.
    void addBlock(size_t most)
    {
        const size_t full = std::clamp<size_t>(mostBlockBytes / (_length * sizeof(T)), 1, most);
        const size_t n = std::clamp<size_t>(_rows.size(), 1, full);
        _blocks.emplace_back(n * _length);
        _nFree = n;
    }

    size_t _length = 1;
    size_t _nFree = 0;  // rows at the end of the last block
    std::vector<RawVector<T>> _blocks;
    std::vector<T*> _rows;
};

#endif
