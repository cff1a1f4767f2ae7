#include "trevia/segycommand.h"

#include "sources/segyguesssettings.h"

#include <algorithm>
#include <cstdio>

static const char* helpText =
    "Usage: trevia segy guess FILE\n"
    "       trevia segy headers FILE\n"
    "\n"
    "  guess     looks at a SEG-Y file and says which settings read it: each fact, what speaks for it, and "
    "what\n"
    "            is chosen. Nothing is changed.\n"
    "  headers   ranks the words of the trace headers by how they behave over the file: they repeat by "
    "ensemble,\n"
    "            count up, look like coordinates, vary, or are constant. Of a long file 4096 headers are "
    "looked at.\n"
    "\n"
    "  --help    this text\n"
    "\n"
    "Ends with 0; with 1 when the file can't be read or no SEG-Y layout fits it; with 2 for a wrong call.\n";

/// Text in lines of at most `width` characters, all but the first one indented.
static std::string wrapped(const std::string& text, size_t indent, size_t width)
{
    std::string out, line;
    size_t at = 0;
    while (at < text.size()) {
        const size_t end = std::min(text.find(' ', at), text.size());
        const std::string word = text.substr(at, end - at);
        if (!line.empty() && indent + line.size() + 1 + word.size() > width) {
            out += line + "\n" + std::string(indent, ' ');
            line.clear();
        }
        line += (line.empty() ? "" : " ") + word;
        at = end + 1;
    }
    return out + line;
}

static std::string padded(const std::string& text, size_t width)
{
    return text + std::string(width > text.size() ? width - text.size() : 1, ' ');
}

static void printGuess(const std::string& file, const SegyGuess& guess)
{
    constexpr size_t labelWidth = 26, lineWidth = 110;
    std::printf("%s\n%s\n\n", file.c_str(), wrapped(guess.summary, 0, lineWidth).c_str());
    for (const SegyGuessFact& fact : guess.facts) {
        std::printf("%s%s\n", padded(fact.what, labelWidth).c_str(),
                    wrapped(fact.choice, labelWidth, lineWidth).c_str());
        std::printf("%s%s\n", std::string(labelWidth, ' ').c_str(),
                    wrapped("(" + fact.evidence + ")", labelWidth, lineWidth).c_str());
    }
    if (guess.verdict != SegyGuess::Read) return;
    std::printf("\nSettings of the SEGY Menu:\n");
    for (const SegySettingText& setting : segySettingTexts(guess.parm))
        std::printf("  %s%s\n", padded(setting.label, labelWidth - 2).c_str(), setting.value.c_str());
}

static void printHeaders(const std::string& file, const SegyGuess& guess)
{
    std::printf("%s\n%lld of %lld trace headers\n\n", file.c_str(), static_cast<long long>(guess.sample.count()),
                static_cast<long long>(guess.sample.nTraces));
    std::printf("Byte Width  Behaviour              %11s %11s %11s %8s  %-24s %s\n", "First", "Least", "Most",
                "Distinct", "Standard field", "Evidence");
    for (const SegyVaryingWord& word : rankSegyWords(guess.sample))
        std::printf("%4d %5d  %-22s %11d %11d %11d %8lld  %-24s %s\n", word.byte, word.width,
                    segyBehaviourName(word.behaviour), word.first, word.least, word.most,
                    static_cast<long long>(word.nDistinct), word.field, word.evidence.c_str());
}

int segyCommand(const std::vector<std::string>& arguments)
{
    if (std::find(arguments.begin(), arguments.end(), "--help") != arguments.end()) {
        std::fputs(helpText, stdout);
        return 0;
    }
    const std::string what = arguments.empty() ? "" : arguments[0];
    const bool isKnown = what == "guess" || what == "headers";
    if (!isKnown || arguments.size() != 2 || arguments[1].empty() || arguments[1][0] == '-') {
        const std::string file = arguments.size() > 1 ? arguments[1] : "";
        const std::string reason = what.empty()           ? "guess or headers, please"
                                   : !isKnown             ? "no \"" + what + "\""
                                   : arguments.size() > 2 ? "one file, please"
                                   : file.empty()         ? "no file named"
                                                          : "\"" + file + "\": no such option";
        std::fprintf(stderr, "trevia segy: %s\n\n%s", reason.c_str(), helpText);
        return 2;
    }
    SegyGuess guess;
    std::string error;
    const std::string& file = arguments[1];
    if (!guessSegyFile(file, SegyLoadParm(), &guess, &error)) {
        std::fprintf(stderr, "trevia segy: %s: %s\n", file.c_str(), error.c_str());
        return 1;
    }
    if (guess.verdict == SegyGuess::NotSegy && what == "headers") {
        std::fprintf(stderr, "trevia segy: %s: %s\n", file.c_str(), guess.summary.c_str());
        return 1;
    }
    if (what == "guess")
        printGuess(file, guess);
    else
        printHeaders(file, guess);
    if (guess.verdict != SegyGuess::NotSegy) return 0;
    std::fflush(stdout);
    std::fprintf(stderr, "trevia segy: %s: %s\n", file.c_str(), guess.summary.c_str());
    return 1;
}
