#include "host/flow/headerlist.h"

#include "host/flow/standardwords.h"

constexpr size_t nameLength = 8;

static std::string_view withoutBlanks(std::string_view name)
{
    const size_t last = name.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string_view() : name.substr(0, last + 1);
}

const HeaderWord* HeaderList::find(std::string_view name) const
{
    for (const HeaderWord& word : _words)
        if (withoutBlanks(word.name) == withoutBlanks(name)) return &word;
    return nullptr;
}

const HeaderWord* HeaderList::at(int position) const
{
    for (const HeaderWord& word : _words)
        if (word.position == position) return &word;
    return nullptr;
}

bool HeaderList::add(std::string_view name, std::string_view description, int length, int format)
{
    const std::string_view bare = withoutBlanks(name);
    if (bare.empty() || bare.size() > nameLength || length < 1) return false;
    if (find(bare)) return true;
    std::string padded(bare);
    padded.resize(nameLength, ' ');
    _words.push_back({padded, std::string(description), _totalLength, length, format});
    _totalLength += length;
    return true;
}

bool HeaderList::addStandard(std::string_view name)
{
    for (const StandardWord& word : standardWords)
        if (withoutBlanks(word.name) == withoutBlanks(name)) return add(name, word.description, 1, word.format);
    return false;
}

void HeaderList::clear()
{
    _words.clear();
    _totalLength = 0;
}
