#include "sources/segyguesstext.h"

#include "host/signal/bytes.h"
#include "sources/formatted.h"
#include "sources/segyrecords.h"

#include <algorithm>

const char* segyTextName(SegyTextKind kind)
{
    static const char* const names[] = {"EBCDIC", "ASCII", "blank (EBCDIC)", "blank (ASCII)", "all NUL", "unclear"};
    return names[int(kind)];
}

static int count(const std::string& text, bool (*isWanted)(unsigned char))
{
    return int(
        std::count_if(text.begin(), text.end(), [=](char c) { return isWanted(static_cast<unsigned char>(c)); }));
}

/// The line that tells the kind of sample, without what stands around it.
static std::string formatLine(const std::string& text)
{
    for (size_t at = 0; at + 80 <= text.size(); at += 80) {
        std::string line = text.substr(at, 80), upper = line;
        for (char& c : upper) c = char(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
        const bool isAboutSamples =
            upper.find("FORMAT") != std::string::npos || upper.find("FLOAT") != std::string::npos;
        const bool isTold = upper.find("IEEE") != std::string::npos || upper.find("IBM") != std::string::npos;
        if (!isAboutSamples || !isTold) continue;
        std::string words;  // single blanks between the words
        for (char c : line) {
            const bool isBlank =
                c == ' ' || static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) > 0x7e;
            if (!isBlank)
                words += c;
            else if (!words.empty() && words.back() != ' ')
                words += ' ';
        }
        while (!words.empty() && words.back() == ' ') words.pop_back();
        return words;
    }
    return std::string();
}

/// Keywords of SEG-2 records (S. Pullan, Recommended standard for seismic (/radar) data files in the personal
/// computer environment, Geophysics 55, 1990), which converters copy into the text.
static bool hasSeg2Word(const std::string& text)
{
    for (const char* word : {"ACQUISITION_DATE ", "ACQUISITION_TIME ", "CLIENT ", "COMPANY ", "INSTRUMENT ", "JOB_ID ",
                             "LINE_ID ", "OBSERVER ", "TRACE_SORT ", "UNITS "})
        for (size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1))
            // The strings end with NUL: words of a running text stand behind a blank.
            if (at == 0 || text[at - 1] != ' ') return true;
    return false;
}

SegyTextGuess guessSegyText(const char* bytes)
{
    const std::string raw(bytes, segyTextBytes);
    std::string translated = raw;
    ebcdicToAscii(translated.data(), segyTextBytes);
    const auto isLetter = [](unsigned char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    };
    const int nNul = count(raw, [](unsigned char c) { return c == 0; });
    const int nAsciiBlank = count(raw, [](unsigned char c) { return c == ' '; });
    const int nEbcdicBlank = count(raw, [](unsigned char c) { return c == 0x40; });
    const int nHigh = count(raw, [](unsigned char c) { return c > 0x7f; });
    const int nAscii = count(raw, isLetter), nEbcdic = count(translated, isLetter);
    SegyTextGuess guess;
    guess.evidence = formatted("byte 40 (EBCDIC blank) %d times, 20 (ASCII blank) %d, 00 %d; letters and digits: %d if "
                               "EBCDIC, %d if ASCII",
                               nEbcdicBlank, nAsciiBlank, nNul, nEbcdic, nAscii);
    constexpr int fewLetters = 16;
    const bool hasText = std::max(nAscii, nEbcdic) >= fewLetters;
    guess.hasLetters = std::max(nAscii, nEbcdic) > 0;
    guess.isSeg2 = nNul > segyTextBytes / 2 && hasSeg2Word(raw);
    const bool isWords = guess.isSeg2 || (hasText && nAscii > nEbcdic && nHigh == 0);
    if (nNul > segyTextBytes * 9 / 10 && !isWords)
        guess.kind = SegyTextKind::Nul;
    else if (nEbcdicBlank > segyTextBytes * 49 / 50)
        guess.kind = SegyTextKind::BlankEbcdic;
    else if (nAsciiBlank > segyTextBytes * 49 / 50)
        guess.kind = SegyTextKind::BlankAscii;
    else if (hasText && nEbcdic > nAscii && nEbcdicBlank >= nAsciiBlank)
        guess.kind = SegyTextKind::Ebcdic;
    else if (isWords)
        guess.kind = SegyTextKind::Ascii;
    const bool isEbcdic = guess.kind == SegyTextKind::Ebcdic || guess.kind == SegyTextKind::BlankEbcdic;
    guess.formatLine = formatLine(isEbcdic ? translated : raw);
    return guess;
}
