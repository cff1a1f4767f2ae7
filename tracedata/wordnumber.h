/// The numberings of a header word, each a type of its own: one can't be taken for another.
///
/// Records that stand in files, menus and the host's memory keep their plain integers; whoever reads them says
/// once, by naming the type, what they count.
#ifndef WORDNUMBER_H
#define WORDNUMBER_H

enum class WordNumbering { From0, From1, MapSlot, SortCode, Key };

/// A number in one of the numberings; `unset` is what it holds where there is none.
template <WordNumbering numbering, int unset>
struct WordNumber {
    int value = unset;

    constexpr WordNumber() = default;
    constexpr explicit WordNumber(int number) : value(number) {}
    constexpr bool operator==(const WordNumber&) const = default;
};

/// Position in a header, counted from 0; -1 for none.
using WordFrom0 = WordNumber<WordNumbering::From0, -1>;
/// The same counted from 1, as menus and the host count; 0 for none.
using WordFrom1 = WordNumber<WordNumbering::From1, 0>;
/// Entry of a map item's key values, from 0; see segyData2::itemList.
using MapSlot = WordNumber<WordNumbering::MapSlot, 0>;
/// A sort of SEG-Y data, 1 to 11; 0 leaves it to the reel.
using SortCode = WordNumber<WordNumbering::SortCode, 0>;
/// Number of a 32-bit word of a SEG-Y trace header, from 1, by which sorts name their keys; -1 for none.
using KeyNumber = WordNumber<WordNumbering::Key, -1>;

constexpr WordFrom0 from0(WordFrom1 word)
{
    return WordFrom0(word.value - 1);
}
constexpr WordFrom1 from1(WordFrom0 word)
{
    return WordFrom1(word.value + 1);
}

#endif
