#include "sources/segyguesstextfile.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <vector>

/// Lines of fixed columns that survey files have; shorter ones are something else's.
constexpr size_t leastRecord = 40;

static bool isTextByte(unsigned char c)
{
    return c >= 0x20 ? c != 0x7f : c == '\n' || c == '\r' || c == '\t' || c == '\f';
}

static std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    for (size_t at = 0; at < text.size();) {
        const size_t end = std::min(text.find('\n', at), text.size());
        std::string line = text.substr(at, end - at);
        while (!line.empty() && std::isspace(static_cast<unsigned char>(line.back()))) line.pop_back();
        if (!line.empty()) lines.push_back(line);
        at = end + 1;
    }
    return lines;
}

static bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Header records "H0100 ..." with point records of other letters behind them (P1/90 of the UKOOA, 1990).
static bool isUkooa(const std::vector<std::string>& lines)
{
    const std::string& first = lines.front();
    return first.size() > 6 && first[0] == 'H' && std::all_of(first.begin() + 1, first.begin() + 5, isDigit) &&
           first[5] == ' ';
}

/// Records of SPS files (Shell processing support format, SEG 1995) by their letters; the last line may be cut.
static std::string spsRecords(const std::vector<std::string>& lines)
{
    static const struct {
        char letter;
        const char* name;
    } kinds[] = {{'S', "source"}, {'R', "receiver"}, {'X', "relation"}};
    std::string found;
    size_t nRecords = 0, nOther = 0;
    for (const std::string& line : lines) nOther += line.size() < leastRecord || !std::strchr("HSRX", line[0]);
    for (const auto& kind : kinds) {
        const auto n = std::count_if(lines.begin(), lines.end(), [&](const std::string& line) {
            return line[0] == kind.letter && line.size() >= leastRecord;
        });
        nRecords += size_t(n);
        if (n > 0) found += (found.empty() ? "" : ", ") + std::string(kind.name);
    }
    return nRecords > 0 && nOther <= 1 ? "SPS " + found + " records" : std::string();
}

/// Numbers in columns, but for comments and one line of names.
static bool isTable(const std::vector<std::string>& lines)
{
    size_t nRows = 0, nOther = 0;
    for (const std::string& line : lines) {
        if (line[0] == '#') continue;
        (line.find_first_not_of("0123456789.+-eE \t,;") == std::string::npos ? nRows : nOther) += 1;
    }
    return nRows > 0 && nOther <= 1;
}

/// Cards of stacking velocities, or parameter lists of them.
static bool isVelocities(const std::vector<std::string>& lines)
{
    bool isTimes = false, isVelocity = false;
    for (const std::string& line : lines) {
        isTimes |= line.rfind("tnmo=", 0) == 0;
        isVelocity |= line.rfind("vnmo=", 0) == 0;
    }
    return lines.front().rfind("HANDVEL", 0) == 0 || (isTimes && isVelocity);
}

std::string textFileKind(const std::string& begin)
{
    if (!std::all_of(begin.begin(), begin.end(), [](char c) { return isTextByte(static_cast<unsigned char>(c)); }))
        return {};
    const std::vector<std::string> lines = linesOf(begin);
    if (lines.empty()) return {};
    const size_t start = begin.find_first_not_of(" \t\r\n\f");
    const std::string text = "a text file";
    if (begin[start] == '{' || begin[start] == '[') return text + ": JSON";
    if (isUkooa(lines)) return text + ": UKOOA P1 survey records";
    const std::string sps = spsRecords(lines);
    if (!sps.empty()) return text + ": " + sps;
    if (isVelocities(lines)) return text + ": velocity functions";
    if (isTable(lines)) return text + ": a table of numbers";
    // A card image of a text header has no line ends.
    return lines.size() > 1 ? text : std::string();
}
