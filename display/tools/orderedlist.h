/// A register of those who want to be asked, in a fixed order.
#ifndef ORDEREDLIST_H
#define ORDEREDLIST_H

#include <algorithm>
#include <vector>

/// Lent pointers with an order each: the lowest is asked first; of equal ones, who came first.
template <class T>
class OrderedList
{
public:
    /// Takes one in; one that is there already gets the new order.
    void add(T* member, int order)
    {
        remove(member);
        const auto isLater = [order](const Entry& entry) { return entry.order > order; };
        _entries.insert(std::find_if(_entries.begin(), _entries.end(), isLater), {order, member});
    }
    void remove(T* member)
    {
        const auto isIt = [member](const Entry& entry) { return entry.member == member; };
        _entries.erase(std::remove_if(_entries.begin(), _entries.end(), isIt), _entries.end());
    }
    bool isEmpty() const { return _entries.empty(); }
    /// All of them, in order; a copy, so that who is asked may leave.
    std::vector<T*> members() const
    {
        std::vector<T*> found;
        for (const Entry& entry : _entries) found.push_back(entry.member);
        return found;
    }

private:
    struct Entry {
        int order;
        T* member;
    };
    std::vector<Entry> _entries;
};

#endif
