#include "sources/segyguesslayout.h"

#include "host/signal/bytes.h"
#include "sources/segyrecords.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>

constexpr int mostTextBlocks = 1000;
constexpr int mostExtraHeaders = 100;
constexpr int64_t mostWalked = 4096;
constexpr int mostSamples = 1 << 28;
/// How plausible each header must be that a walk along the lengths comes to.
constexpr double leastOfEach = 0.6;

/// A number of n bytes, unsigned.
static uint64_t number(const unsigned char* bytes, int n, bool isBigEndian)
{
    uint64_t value = 0;
    for (int i = 0; i < n; ++i) value = value << 8 | bytes[isBigEndian ? i : n - 1 - i];
    return value;
}

int SegyRawHeader::int16(int byte, bool isBigEndian) const
{
    return int16_t(uint16_t(number(bytes.data() + byte, 2, isBigEndian)));
}

int32_t SegyRawHeader::int32(int byte, bool isBigEndian) const
{
    return int32_t(uint32_t(number(bytes.data() + byte, 4, isBigEndian)));
}

bool SegyRawHeader::isZero() const
{
    return std::all_of(bytes.begin(), bytes.end(), [](unsigned char b) { return b == 0; });
}

int segyStandardSampleBytes(int code)
{
    static const int widths[] = {0, 4, 4, 2, 4, 4, 8, 3, 1, 8, 4, 2, 8, 0, 0, 3, 1};
    return code >= 0 && code < int(std::size(widths)) ? widths[code] : 0;
}

int64_t readSegyRawHeader(const ByteSource& source, int64_t offset, SegyRawHeader* header, std::string* error)
{
    header->bytes.fill(0);
    return source.read(offset, header->bytes.size(), header->bytes.data(), error);
}

static bool isScalar(int value)
{
    const int size = std::abs(value);
    return size == 0 || size == 1 || size == 10 || size == 100 || size == 1000 || size == 10000;
}

static bool isWithin(int64_t value, int64_t least, int64_t most)
{
    return value >= least && value <= most;
}

double segyHeaderPlausibility(const SegyRawHeader& header, const SegyRawHeader& first, bool isBigEndian, int nSamples,
                              int interval)
{
    if (header.isZero()) return 0.4;
    const auto word = [&](int byte) { return header.int16(byte, isBigEndian); };
    const auto isLikeFirst = [&](int byte) {
        return header.rank != first.rank && !first.isZero() && word(byte) == first.int16(byte, isBigEndian);
    };
    constexpr int mostCount = 10000000;
    int nSmall = 0;
    for (int byte : {0, 4, 8, 12, 24}) nSmall += isWithin(header.int32(byte, isBigEndian), -mostCount, mostCount);
    const int year = word(156);
    const bool isDate = (isWithin(year, 0, 99) || isWithin(year, 1900, 2100)) && isWithin(word(158), 0, 366) &&
                        isWithin(word(160), 0, 24) && isWithin(word(162), 0, 60) && isWithin(word(164), 0, 60);
    const int count = header.uint16(114, isBigEndian);
    const double passed = isWithin(word(28), -1, 60) + (isScalar(word(68)) || isLikeFirst(68)) +
                          (isScalar(word(70)) || isLikeFirst(70)) +
                          (count == 0 || count == (nSamples & 0xffff) || isLikeFirst(114)) +
                          (word(116) == 0 || word(116) == interval || isLikeFirst(116)) + nSmall / 5.0 + isDate +
                          isWithin(word(88), 0, 4);
    return passed / 8.0;
}

static SegyReelClaims claimsOf(const unsigned char* reel, bool isBigEndian)
{
    const auto word = [&](int byte) { return int(int16_t(uint16_t(number(reel + byte, 2, isBigEndian)))); };
    SegyReelClaims claims;
    claims.format = word(3224);
    claims.nSamples = word(3220) & 0xffff;
    claims.interval = word(3216);
    claims.nTraces = word(3212);
    claims.nAux = word(3214);
    claims.sort = word(3228);
    // The revision is two bytes, major and minor, in either order; a single number is an old writer's.
    const int major = isBigEndian ? reel[3500] : std::max(reel[3500], reel[3501]);
    claims.revision = major <= 2 ? major : 0;
    const int nText = word(3504);
    claims.nExtendedText = nText == -1 || isWithin(nText, 1, mostTextBlocks) ? nText : 0;
    const int extra = word(3506);
    const auto wideExtra = int32_t(uint32_t(number(reel + 3506, 4, isBigEndian)));
    if (isWithin(extra, 1, mostExtraHeaders))
        claims.nExtraHeaders = extra;
    else if (isWithin(wideExtra, 1, mostExtraHeaders))
        claims.nExtraHeaders = wideExtra;
    const auto longSamples = int32_t(uint32_t(number(reel + 3268, 4, isBigEndian)));
    if (claims.revision >= 2 && isWithin(longSamples, 1, mostSamples)) claims.longSamples = longSamples;
    claims.isOrderTold = number(reel + 3296, 4, isBigEndian) == 0x01020304;
    const auto first = int64_t(number(reel + 3520, 8, isBigEndian));
    if (claims.revision >= 2 && first >= segyReelBytes) claims.firstTrace = first;
    return claims;
}

/// Text blocks from the reel's end up to the one with the end stanza; 0 if there is none.
static int blocksToEndStanza(const ByteSource& source, std::string* error)
{
    std::vector<char> block(segyTextBytes);
    for (int i = 0; i < mostTextBlocks; ++i) {
        const int64_t got = source.read(segyReelBytes + int64_t(i) * segyTextBytes, block.size(), block.data(), error);
        if (got < segyTextBytes) return 0;
        for (bool isEbcdic : {false, true}) {
            std::vector<char> text = block;
            if (isEbcdic) ebcdicToAscii(text.data(), segyTextBytes);
            std::string letters;
            for (char c : text)
                if (c != ' ') letters += char(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
            if (letters.find("((SEG:ENDTEXT))") != std::string::npos) return i + 1;
        }
    }
    return 0;
}

namespace {

/// Tries layouts and keeps the best.
class LayoutTrial
{
public:
    LayoutTrial(const ByteSource& source, SegyLayoutSearch* search, std::string* error)
        : _source(source), _search(search), _error(error)
    {
    }
    void tryOrder(bool isBigEndian);
    void tryVariable();
    /// Looks for the distance of the first two headers, where no word tells a length that fits.
    void tryDistances();
    bool hasFailed() const { return _hasFailed; }

private:
    bool isSure() const;
    void tryRecord(const SegyLayout& layout, double merit);
    bool walk(SegyLayout* layout, int interval);
    bool header(int64_t offset, SegyRawHeader* header);

    const ByteSource& _source;
    SegyLayoutSearch* _search;
    std::string* _error;
    double _best = 0.0;
    bool _hasFailed = false;
};

/// Ranks worth a look: first ones, middle ones, last ones.
std::vector<int64_t> probeRanks(int64_t nTraces)
{
    std::vector<int64_t> ranks;
    for (int64_t rank : {int64_t(0), int64_t(1), int64_t(2), nTraces / 2, nTraces / 2 + 1, nTraces - 2, nTraces - 1})
        if (rank >= 0 && rank < nTraces && (ranks.empty() || rank > ranks.back())) ranks.push_back(rank);
    return ranks;
}

template <class T>
void addOnce(std::vector<T>* list, T value)
{
    if (std::find(list->begin(), list->end(), value) == list->end()) list->push_back(value);
}

}  // namespace

bool LayoutTrial::header(int64_t offset, SegyRawHeader* header)
{
    const int64_t got = readSegyRawHeader(_source, offset, header, _error);
    if (got < 0) _hasFailed = true;
    return got == segyTraceHeaderBytes;
}

/// Weighs a layout whose words are worth `merit` by themselves.
void LayoutTrial::tryRecord(const SegyLayout& trial, double merit)
{
    SegyLayout layout = trial;
    const int64_t bytes = _source.size() - layout.firstTrace;
    layout.nTraces = bytes / layout.recordBytes();
    layout.tailBytes = bytes % layout.recordBytes();
    const bool isCutInFirst = layout.nTraces == 0 && bytes > segyTraceHeaderBytes;
    if (layout.nTraces < 1 && !isCutInFirst) return;
    // One trace that is mostly missing is believed only as far as the loader would make room for it.
    constexpr int64_t most = int64_t(16) << 20;
    if (layout.nTraces < 1 && int64_t(layout.nSamples) * 4 > most + 2 * bytes) return;
    const SegyReelClaims& claims = _search->claims[layout.isBigEndian];
    std::vector<SegyRawHeader> probes;
    std::vector<double> scores;
    double sum = 0.0;
    for (int64_t rank : probeRanks(std::max<int64_t>(1, layout.nTraces))) {
        SegyRawHeader probe;
        probe.rank = rank;
        if (!header(layout.offset(rank), &probe)) return;
        probes.push_back(probe);
        scores.push_back(
            segyHeaderPlausibility(probe, probes.front(), layout.isBigEndian, layout.nSamples, claims.interval));
        sum += scores.back();
    }
    layout.plausibility = sum / double(probes.size());
    const bool isDivisible = layout.nTraces > 0 && layout.tailBytes == 0;
    const bool isEnough = claims.isFormatKnown() ? layout.plausibility >= 0.3 || isDivisible
                                                 : layout.plausibility >= 0.8 && layout.nTraces >= 2;
    const double weight = 4.0 * layout.plausibility + 1.5 * isDivisible + merit;
    if (!isEnough || weight <= _best) return;
    _best = weight;
    _search->isFound = true;
    _search->layout = layout;
    _search->probes = probes;
    _search->probeScores = scores;
}

void LayoutTrial::tryOrder(bool isBigEndian)
{
    const SegyReelClaims& claims = _search->claims[isBigEndian];
    std::vector<int64_t> starts = {segyReelBytes};
    if (claims.nExtendedText > 0)
        addOnce<int64_t>(&starts, segyReelBytes + int64_t(claims.nExtendedText) * segyTextBytes);
    if (claims.nExtendedText < 0 && _search->endStanzaBlocks > 0)
        addOnce<int64_t>(&starts, segyReelBytes + int64_t(_search->endStanzaBlocks) * segyTextBytes);
    if (claims.firstTrace > 0 && claims.firstTrace < _source.size()) addOnce(&starts, claims.firstTrace);
    std::vector<int> widths;
    // Code 6 is 8 bytes by the standard, but one byte here. Of layouts that fit alike the first one wins: the
    // shorter record, for a multiple of it finds headers, too.
    const bool isSix = claims.format == 6;
    if (isSix) widths.push_back(1);
    const int told = segyStandardSampleBytes(claims.format);
    if (told > 0) widths.push_back(told);
    for (int width : {4, 2, 1, 8}) addOnce(&widths, width);
    std::vector<int> headers = {segyTraceHeaderBytes};
    if (claims.nExtraHeaders > 0) headers.push_back(segyTraceHeaderBytes * (1 + claims.nExtraHeaders));
    for (int64_t start : starts) {
        SegyRawHeader first;
        if (!header(start, &first)) continue;
        std::vector<int> counts;
        for (int count : {claims.longSamples, claims.nSamples, first.uint16(114, isBigEndian)})
            if (count > 0) addOnce(&counts, count);
        for (int count : counts)
            for (int width : widths)
                for (int headerBytes : headers) {
                    SegyLayout layout;
                    layout.isBigEndian = isBigEndian;
                    layout.firstTrace = start;
                    layout.headerBytes = headerBytes;
                    layout.nSamples = count;
                    layout.sampleBytes = width;
                    layout.formatCode = claims.format;
                    const bool isInterval = claims.interval > 0;
                    tryRecord(layout, 1.0 * claims.isFormatKnown() + 1.0 * claims.isOrderTold +
                                          2.0 * (width == told || (isSix && width == 1)) +
                                          0.25 * (count == claims.nSamples) + 0.25 * isInterval +
                                          0.25 * (start != segyReelBytes) +
                                          0.25 * (headerBytes != segyTraceHeaderBytes));
                }
    }
}

/// Follows the lengths in the trace headers. True when they lead through the file and differ.
bool LayoutTrial::walk(SegyLayout* layout, int interval)
{
    int64_t offset = layout->firstTrace;
    SegyRawHeader first, present;
    int least = INT32_MAX, most = 0;
    layout->nTraces = 0;
    layout->tailBytes = 0;
    double sum = 0.0;
    int nScored = 0;
    while (offset < _source.size() && layout->nTraces < mostWalked) {
        if (!header(offset, &present)) {
            if (_hasFailed) return false;
            layout->tailBytes = _source.size() - offset;
            break;
        }
        present.rank = layout->nTraces;
        if (layout->nTraces == 0) first = present;
        const int count = present.uint16(114, layout->isBigEndian);
        const double score = segyHeaderPlausibility(present, first, layout->isBigEndian, count, interval);
        if (count < 1 || score < leastOfEach) return false;
        least = std::min(least, count);
        most = std::max(most, count);
        sum += score;
        ++nScored;
        const int64_t next = offset + layout->headerBytes + int64_t(count) * layout->sampleBytes;
        if (next > _source.size()) {
            layout->tailBytes = _source.size() - offset;
            break;
        }
        offset = next;
        ++layout->nTraces;
    }
    layout->isWalkWhole = offset >= _source.size() || layout->tailBytes > 0;
    layout->nSamples = most;
    layout->plausibility = nScored > 0 ? sum / double(nScored) : 0.0;
    return layout->nTraces > 1 && least < most;
}

bool LayoutTrial::isSure() const
{
    const SegyLayout& best = _search->layout;
    return _search->isFound && best.plausibility >= 0.7 && (best.tailBytes == 0 || best.nTraces > 2);
}

void LayoutTrial::tryDistances()
{
    if (isSure() || (_search->isFound && _search->layout.isVariable)) return;
    constexpr int mostCount = 65535, mostTries = 64;
    std::vector<unsigned char> block(size_t(2 * segyTraceHeaderBytes) + size_t(mostCount) * 4);
    const int64_t got = _source.read(segyReelBytes, block.size(), block.data(), _error);
    if (got < 2 * segyTraceHeaderBytes) return;
    SegyRawHeader first, second;
    second.rank = 1;
    std::memcpy(first.bytes.data(), block.data(), first.bytes.size());
    if (first.isZero()) return;  // every quiet stretch of samples would look like it
    int nTries = 0;
    for (bool isBigEndian : {true, false}) {
        const SegyReelClaims& claims = _search->claims[isBigEndian];
        SegyLayout layout;
        layout.isBigEndian = isBigEndian;
        layout.formatCode = claims.format;
        layout.sampleBytes = segyStandardSampleBytes(claims.format);
        if (layout.sampleBytes == 0) continue;
        for (layout.nSamples = 1; layout.nSamples <= mostCount && nTries < mostTries; ++layout.nSamples) {
            const int64_t at = layout.recordBytes();
            if (at + segyTraceHeaderBytes > got) break;
            // What a header repeats from trace to trace: id, scalars, count, interval.
            const auto isSame = [&](int byte, size_t n) {
                return std::memcmp(&block[size_t(at) + size_t(byte)], &block[size_t(byte)], n) == 0;
            };
            if (!isSame(28, 2) || !isSame(68, 4) || !isSame(114, 4)) continue;
            std::memcpy(second.bytes.data(), &block[size_t(at)], second.bytes.size());
            if (segyHeaderPlausibility(second, first, isBigEndian, layout.nSamples, claims.interval) < 0.9) continue;
            ++nTries;
            tryRecord(layout, 3.0);
        }
    }
}

void LayoutTrial::tryVariable()
{
    // Where lengths alternate, a fixed one may divide the size and meet every other header, or the zeros in one.
    const SegyLayout& best = _search->layout;
    const bool isDivided = _search->isFound && best.tailBytes == 0;
    const bool isEachTold =
        std::all_of(_search->probes.begin(), _search->probes.end(), [&best](const SegyRawHeader& header) {
            return header.uint16(114, best.isBigEndian) == best.nSamples;
        });
    if (isDivided && isEachTold) return;
    for (bool isBigEndian : {true, false}) {
        const SegyReelClaims& claims = _search->claims[isBigEndian];
        const int told = segyStandardSampleBytes(claims.format);
        if (told == 0) continue;
        std::vector<int> widths = {told};
        for (int width : {4, 2, 1}) addOnce(&widths, width);
        for (int width : widths) {
            SegyLayout layout;
            layout.isBigEndian = isBigEndian;
            layout.isVariable = true;
            layout.formatCode = claims.format;
            layout.sampleBytes = width;
            const int nTexts = claims.nExtendedText < 0 ? _search->endStanzaBlocks : claims.nExtendedText;
            layout.firstTrace += int64_t(nTexts) * segyTextBytes;
            if (!walk(&layout, claims.interval)) continue;
            // Against the code, or a fixed length that fits, only lengths that lead to the very end count.
            if ((isDivided || width != told) && layout.tailBytes > 0) continue;
            _search->isFound = true;
            _search->layout = layout;
            _search->probes.assign(1, SegyRawHeader());
            header(layout.firstTrace, &_search->probes[0]);
            _search->probeScores.assign(1, layout.plausibility);
            return;
        }
    }
}

/// A file of trace headers and 4-byte samples alone.
static bool looksLikeSu(const ByteSource& source, SegyLayoutSearch* search, std::string* error)
{
    for (bool isBigEndian : {true, false}) {
        SegyRawHeader first;
        const int64_t got = readSegyRawHeader(source, 0, &first, error);
        if (got < 0) return false;
        const int count = first.uint16(114, isBigEndian);
        const int64_t record = segyTraceHeaderBytes + 4 * int64_t(count);
        if (count < 1 || source.size() % record != 0 || source.size() / record < 2) continue;
        double sum = 0.0;
        const std::vector<int64_t> ranks = probeRanks(source.size() / record);
        for (int64_t rank : ranks) {
            SegyRawHeader header;
            header.rank = rank;
            if (readSegyRawHeader(source, rank * record, &header, error) < 0) return false;
            sum += segyHeaderPlausibility(header, first, isBigEndian, count, first.int16(116, isBigEndian));
        }
        if (sum / double(ranks.size()) < 0.8) continue;
        search->isSu = true;
        search->layout.isBigEndian = isBigEndian;
        search->layout.firstTrace = 0;
        search->layout.nSamples = count;
        search->layout.nTraces = source.size() / record;
        return true;
    }
    return true;
}

bool findSegyLayout(const ByteSource& source, SegyLayoutSearch* search, std::string* error)
{
    *search = SegyLayoutSearch();
    std::vector<unsigned char> reel(segyReelBytes);
    const int64_t got = source.read(0, reel.size(), reel.data(), error);
    if (got < 0) return false;
    search->isSeg2 = got >= 4 && ((reel[0] == 0x55 && reel[1] == 0x3a) || (reel[0] == 0x3a && reel[1] == 0x55));
    if (search->isSeg2) return true;
    if (got == segyReelBytes) {
        for (bool isBigEndian : {false, true}) search->claims[isBigEndian] = claimsOf(reel.data(), isBigEndian);
        if (search->claims[0].nExtendedText < 0) search->endStanzaBlocks = blocksToEndStanza(source, error);
        LayoutTrial trial(source, search, error);
        for (bool isBigEndian : {true, false}) trial.tryOrder(isBigEndian);
        trial.tryVariable();
        trial.tryDistances();
        if (trial.hasFailed()) return false;
        if (search->isFound) return true;
    }
    return looksLikeSu(source, search, error);
}
