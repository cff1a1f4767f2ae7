/// The list of words that a trace header holds, as a flow or a dataset keeps it.
#ifndef HEADERLIST_H
#define HEADERLIST_H

#include <deque>
#include <string>
#include <string_view>

/// A word of the list. Its position counts from 0.
struct HeaderWord {
    std::string name;  ///< padded with blanks to eight characters
    std::string description;
    int position;
    int length;  ///< in 4-byte cells
    int format;  ///< a HeaderFormat
};

/// Words one behind the other. Names are compared without trailing blanks. Words keep their address
/// for the life of the list.
class HeaderList
{
public:
    const HeaderWord* find(std::string_view name) const;
    /// The word that begins at a position counted from 0; null if none does.
    const HeaderWord* at(int position) const;
    /// Adds a word behind the others. False when the name is empty or longer than eight
    /// characters or the length is below 1. A word that exists stays as it is.
    bool add(std::string_view name, std::string_view description, int length, int format);
    /// Adds a standard word. False when the name is none.
    bool addStandard(std::string_view name);
    /// Cells of all words together.
    int totalLength() const { return _totalLength; }
    void clear();

private:
    std::deque<HeaderWord> _words;
    int _totalLength = 0;
};

#endif
