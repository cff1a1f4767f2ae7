#include "sources/segyguess.h"

#include "sources/formatted.h"
#include "sources/segyguessensembles.h"
#include "sources/segyguesssettings.h"
#include "sources/segyguesstextfile.h"
#include "sources/segyrecords.h"
#include "sources/segysamples.h"
#include "sources/segysortkeys.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <set>

/// Below this share trace headers are not believed.
constexpr double leastPlausible = 0.6;
/// Traces of an ensemble that the reader makes room for when nobody tells it a number.
constexpr int usualMaxTraces = 5000;
/// Of a text file's begin that are looked at; more than the reel header has, whose numbers are no text.
constexpr int64_t mostTextBytes = 65536;

namespace {

std::string orderName(bool isBigEndian)
{
    return isBigEndian ? "big-endian" : "little-endian";
}

long long wide(int64_t value)
{
    return static_cast<long long>(value);
}

std::string counted(int64_t n, const char* what)
{
    return formatted("%lld %s%s", wide(n), what, n == 1 ? "" : "s");
}

/// The steps of a guess, each adding its facts.
class Guesser
{
public:
    Guesser(const ByteSource& source, SegyGuess* guess, std::string* error)
        : _source(source), _guess(guess), _search(guess->search), _layout(guess->search.layout), _error(error)
    {
    }
    bool run(const SegyLoadParm& before);

private:
    void add(const std::string& what, const std::string& evidence, const std::string& choice)
    {
        _guess->facts.push_back({what, evidence, choice});
    }
    const SegyReelClaims& claims() const { return _search.claims[_layout.isBigEndian]; }
    bool addTextFile(bool* isText);
    void sayWhatItIs();
    void addByteOrder();
    void addOrderBesideText(bool isAscii);
    bool addText();
    void addPlace();
    void addSize();
    void addHeaders();
    bool addFormat();
    void addFormatOfFloats(const SegySampleStatistics& statistics);
    void setOtherSamples(const std::string& evidence, int format);
    void addSamples();
    void addInterval();
    SegyHeaderSample withCutTrace() const;
    void addSortAndEnsembles();
    void addScalar(const char* what, int scalarByte, const std::vector<int>& bytes, int SegyLoadParm::*field);
    void addDelay();
    void cannotFollow(const std::string& why);
    void conclude(const SegyLoadParm& before);

    const ByteSource& _source;
    SegyGuess* _guess;
    const SegyLayoutSearch& _search;
    const SegyLayout& _layout;
    std::string* _error;
    SegyTextGuess _text;
    std::vector<std::string> _reasons;  // why the reader can't follow
    bool _isList = false;               // several files share the settings
};

}  // namespace

void Guesser::cannotFollow(const std::string& why)
{
    _reasons.push_back(why);
}

/// A text file can look like anything when it is read as numbers.
bool Guesser::addTextFile(bool* isText)
{
    std::string begin(size_t(std::min<int64_t>(_source.size(), mostTextBytes)), '\0');
    const int64_t got = _source.read(0, begin.size(), begin.data(), _error);
    if (got < 0) return false;
    begin.resize(size_t(got));
    const std::string kind = textFileKind(begin);
    *isText = !kind.empty();
    if (!*isText) return true;
    add("File",
        formatted("%lld bytes; nothing but printable characters in the first %lld", wide(_source.size()), wide(got)),
        kind + ", not SEG-Y: nothing is set");
    _guess->summary = "This is " + kind + ", not a SEG-Y file.";
    return true;
}

/// Says why a file is none, or what it is instead.
void Guesser::sayWhatItIs()
{
    const std::string size = formatted("%lld bytes", wide(_source.size()));
    if (_search.isSeg2) {
        add("File", size + ", begins with 3a55, the mark of a SEG-2 record", "not SEG-Y: nothing is set");
        _guess->summary = "This is a SEG-2 record, not a SEG-Y file.";
    } else if (_search.isSu) {
        add("File",
            formatted("%s, no reel header: %s trace headers from byte 0 on, %d samples of 4 bytes, %lld traces",
                      size.c_str(), orderName(_layout.isBigEndian).c_str(), _layout.nSamples, wide(_layout.nTraces)),
            "an SU file, not SEG-Y: nothing is set");
        _guess->summary = "This is an SU file: the reader expects 3600 bytes of reel header, which it has not.";
    } else if (_source.size() < segyReelBytes) {
        add("File", size, formatted("too small for a reel header of %d bytes: nothing is set", segyReelBytes));
        _guess->summary = _source.size() == 0 ? "The file is empty." : "The file is too small to be SEG-Y.";
    } else if (_source.size() <= segyReelBytes + segyTraceHeaderBytes) {
        add("File", size, "no room for a trace behind the reel header: nothing is set");
        _guess->summary = "The file holds no trace.";
    } else {
        for (bool isBigEndian : {true, false}) {
            const SegyReelClaims& claims = _search.claims[isBigEndian];
            add("Reel read " + orderName(isBigEndian),
                formatted("format code %d, %d samples, interval %d us", claims.format, claims.nSamples,
                          claims.interval),
                "no layout of traces fits it");
        }
        _guess->summary = "No SEG-Y layout fits this file.";
    }
}

void Guesser::addByteOrder()
{
    const SegyReelClaims& big = _search.claims[1];
    const SegyReelClaims& little = _search.claims[0];
    const auto told = [](const SegyReelClaims& c) {
        return formatted("%d%s", c.format, c.isFormatKnown() ? "" : " (unknown)");
    };
    _guess->parm.itype = _layout.isBigEndian ? 0 : 1;
    std::string evidence = formatted(
        "format code %s big-endian, %s little-endian; samples %d or %d, interval %d or %d us", told(big).c_str(),
        told(little).c_str(), big.nSamples, little.nSamples, big.interval, little.interval);
    if (big.isOrderTold || little.isOrderTold)
        evidence += "; the byte-order constant says " + orderName(big.isOrderTold);
    add("Byte order", evidence,
        orderName(_layout.isBigEndian) + ": SEGY file type " + (_layout.isBigEndian ? "Standard" : "MSDOS"));
}

bool Guesser::addText()
{
    std::vector<char> text(segyTextBytes);
    const int64_t got = _source.read(0, text.size(), text.data(), _error);
    if (got < 0) return false;
    _text = guessSegyText(text.data());
    const bool isAscii = _text.kind == SegyTextKind::Ascii || _text.kind == SegyTextKind::BlankAscii;
    const bool isEbcdic = _text.kind == SegyTextKind::Ebcdic || _text.kind == SegyTextKind::BlankEbcdic;
    std::string choice = segyTextName(_text.kind);
    const bool isText = _text.kind == SegyTextKind::Ascii || _text.kind == SegyTextKind::Ebcdic;
    if (!isText && _text.kind != SegyTextKind::Unclear && _text.hasLetters)
        choice = (_text.kind == SegyTextKind::Nul ? "NUL" : choice) + ", but for a few letters";
    if (_text.isSeg2) choice = "ASCII, the strings of a SEG-2 record padded with NUL";
    // The file type is one choice for both: the byte order has to win, since it decides over the samples.
    const bool isOther = (isAscii && _layout.isBigEndian) || (isEbcdic && !_layout.isBigEndian);
    if (isOther && !claims().isOrderTold)
        choice += formatted(": the type %s will show it garbled; the traces are not touched by that",
                            isAscii ? "Standard" : "MSDOS");
    add("Text header", _text.evidence, choice);
    if (isOther && claims().isOrderTold) addOrderBesideText(isAscii);
    return true;
}

/// The file tells its byte order by a constant: so the type can follow the text.
void Guesser::addOrderBesideText(bool isAscii)
{
    _guess->parm.itype = isAscii ? 1 : 0;
    _guess->parm.layout.byteOrder = _layout.isBigEndian ? SegyByteOrder::HighestFirst : SegyByteOrder::LowestFirst;
    add("Text and byte order", "the constant at byte 3297 tells the byte order, whatever the text is",
        std::string("SEGY file type ") + (isAscii ? "MSDOS" : "Standard") + " for the text; " +
            orderName(_layout.isBigEndian) + " by the field Byte order of the group Layout");
}

/// First trace and header length, where these are not the usual ones.
void Guesser::addPlace()
{
    const SegyReelClaims& reel = claims();
    const bool isPlain = _layout.firstTrace == segyReelBytes && _layout.headerBytes == segyTraceHeaderBytes;
    std::string evidence = formatted("revision %d; extended text headers told: %d; extra trace headers told: %d",
                                     reel.revision, reel.nExtendedText, reel.nExtraHeaders);
    if (reel.firstTrace > 0) evidence += formatted("; first trace told: byte %lld", wide(reel.firstTrace));
    if (_search.endStanzaBlocks > 0) evidence += formatted("; end stanza in text header %d", _search.endStanzaBlocks);
    if (isPlain) {
        const bool isTold = reel.nExtendedText != 0 || reel.nExtraHeaders != 0 || reel.firstTrace > segyReelBytes;
        add("First trace", evidence,
            isTold ? "byte 3600, header 240 bytes: the words above don't fit the file" : "byte 3600, header 240 bytes");
        return;
    }
    _guess->parm.layout.firstTrace = _layout.firstTrace;
    _guess->parm.layout.headerBytes = _layout.headerBytes;
    add("First trace", evidence,
        formatted("byte %lld, header %d bytes: set in the group Layout", wide(_layout.firstTrace),
                  _layout.headerBytes));
}

void Guesser::addSize()
{
    const int64_t traceBytes = _source.size() - _layout.firstTrace;
    _guess->parm.ivariable = _layout.isVariable ? 1 : 0;
    if (_layout.isVariable) {
        const char* end = _layout.tailBytes > 0 ? ", the last one cut by the end of the file"
                          : _layout.isWalkWhole ? ", to the very end of the file"
                                                : ", and on";
        add("Trace length",
            formatted("no fixed length fits %lld bytes; the counts in the trace headers lead through %lld traces%s",
                      wide(traceBytes), wide(_layout.nTraces), end),
            "variable: Yes");
        if (_layout.nSamples > INT16_MAX) cannotFollow("a trace of variable length has more than 32767 samples");
        return;
    }
    const std::string record =
        formatted("%lld bytes of traces by %d + %d x %d = %lld bytes a trace", wide(traceBytes), _layout.headerBytes,
                  _layout.nSamples, _layout.sampleBytes, wide(_layout.recordBytes()));
    if (_layout.tailBytes == 0)
        add("Trace length", record + ": without remainder", "fixed, " + counted(_layout.nTraces, "trace"));
    else
        add("Trace length", record + formatted(": remainder %lld bytes", wide(_layout.tailBytes)),
            "fixed, " + counted(_layout.nTraces, "whole trace") +
                ": the file is cut, or ends with something else; the reader shows the rest as one more, cut "
                "trace");
}

void Guesser::addHeaders()
{
    std::string evidence = "plausible fields of 8";
    for (size_t i = 0; i < _search.probes.size(); ++i)
        evidence += formatted("%s trace %lld: %.3g", i == 0 ? ":" : ",", wide(_search.probes[i].rank + 1),
                              8.0 * _search.probeScores[i]);
    const double share = _layout.plausibility;
    const bool isEmpty =
        std::all_of(_search.probes.begin(), _search.probes.end(), [](const SegyRawHeader& h) { return h.isZero(); });
    add("Trace headers", isEmpty ? "all that were looked at are empty" : evidence,
        isEmpty                   ? "they tell nothing; the size alone speaks for this layout"
        : share >= 0.8            ? "first, middle and last ones stand where they should"
        : share >= leastPlausible ? "mostly plausible"
                                  : "doubtful: the bytes where headers should be don't look like headers");
}

/// IBM, IEEE or integer, where a sample has 4 bytes.
void Guesser::addFormatOfFloats(const SegySampleStatistics& statistics)
{
    const int code = _layout.formatCode;
    const int told = code == SegyIbm           ? ChooseIbm
                     : code == SegyInteger4    ? ChooseInteger4
                     : code == SegyIntegerGain ? ChooseGain
                     : code == SegyIeee        ? ChooseIeee
                     : code == 10              ? ChooseInteger4
                                               : FromData;
    SegySampleKind kind = segySampleKind(statistics);
    // A gain in the upper half looks like a small integer: that says nothing against it.
    if (code == SegyIntegerGain && kind == SegySampleKind::Integer4) kind = SegySampleKind::Undecided;
    const int seen = kind == SegySampleKind::Ibm        ? ChooseIbm
                     : kind == SegySampleKind::Ieee     ? ChooseIeee
                     : kind == SegySampleKind::Integer4 ? ChooseInteger4
                                                        : told;
    _guess->parm.iformat = seen;
    std::string evidence = formatted("code %d; ", code);
    if (statistics.nNonZero == 0)
        evidence += formatted("all %lld samples that were looked at are 0", wide(statistics.nSamples));
    else
        evidence += formatted("of %lld samples %lld are not 0, %.3g %% of these begin with byte 00 or FF; where bit 23 "
                              "is 0, bits 22-20 are 0 in %.3g %% (normalised IBM: 0, IEEE: about 17), over %d %s",
                              wide(statistics.nSamples), wide(statistics.nNonZero),
                              100.0 * double(statistics.nSmallInteger) / double(statistics.nNonZero),
                              100.0 * statistics.unnormalisedShare(), statistics.nEvenExponents,
                              statistics.nEvenExponents == 1 ? "exponent" : "exponents");
    if (!_text.formatLine.empty()) evidence += formatted("; the text says \"%s\"", _text.formatLine.c_str());
    const char* name = segyFormatChoices()[size_t(seen)].c_str();
    std::string choice;
    if (kind == SegySampleKind::Undecided && told == FromData)
        choice = "undecidable: neither code nor samples tell; the reader takes them as IEEE";
    else if (kind == SegySampleKind::Undecided)
        choice = formatted("%s: by the code alone, the samples don't decide", name);
    else if (seen == told)
        choice = formatted("%s: code and samples agree", name);
    else
        choice = formatted("%s: against the code, which says %s", name,
                           told == FromData ? "nothing" : segyFormatChoices()[size_t(told)].c_str());
    add("Sample format", evidence, choice);
    if (code == 10 && seen == ChooseInteger4) setOtherSamples("code 10: 4-byte integers without sign", SegyUnsigned4);
}

/// Samples that only the group Layout has an entry for.
void Guesser::setOtherSamples(const std::string& evidence, int format)
{
    const auto& list = segyLayoutSamples();
    const auto entry = std::find_if(list.begin(), list.end(), [=](const auto& e) { return e.format == format; });
    _guess->parm.layout.sampleFormat = format;
    add("Other samples", evidence, std::string(entry->name) + ": set in the group Layout");
}

bool Guesser::addFormat()
{
    const int code = _layout.formatCode;
    if (_layout.sampleBytes == 4) {
        SegySampleStatistics statistics;
        if (!countSegySamples(_source, _layout, &statistics, _error)) return false;
        addFormatOfFloats(statistics);
        return true;
    }
    const int told = segyStandardSampleBytes(code);
    std::string evidence = formatted("code %d; only %d byte%s a sample fit size and trace headers", code,
                                     _layout.sampleBytes, _layout.sampleBytes == 1 ? "" : "s");
    if (_layout.sampleBytes == 2 || _layout.sampleBytes == 1) {
        _guess->parm.iformat = _layout.sampleBytes == 2 ? ChooseInteger2 : ChooseInteger1;
        std::string choice = segyFormatChoices()[size_t(_guess->parm.iformat)];
        if (told != _layout.sampleBytes && !(code == SegyInteger1 && _layout.sampleBytes == 1))
            choice += ": against the code";
        add("Sample format", evidence, choice);
        const bool isUnsigned = told == _layout.sampleBytes && (code == 11 || code == 16);
        if (isUnsigned)
            setOtherSamples(formatted("code %d: integers without sign", code),
                            code == 11 ? SegyUnsigned2 : SegyUnsigned1);
        return true;
    }
    const bool isThree = _layout.sampleBytes == 3;
    add("Sample format", evidence,
        formatted("%d-byte samples%s: no sample format has them", _layout.sampleBytes,
                  told == _layout.sampleBytes ? "" : ", against the code"));
    setOtherSamples(formatted("code %d", code), code == 15   ? SegyUnsigned3
                                                : isThree    ? SegyInteger3
                                                : code == 9  ? SegyInteger8
                                                : code == 12 ? SegyUnsigned8
                                                             : SegyReal8);
    return true;
}

void Guesser::addSamples()
{
    const SegyReelClaims& reel = claims();
    std::set<int> counts;
    for (size_t i = 0; i < _guess->sample.count(); ++i)
        counts.insert(_guess->sample.headers[i].uint16(114, _layout.isBigEndian));
    std::string inTraces;
    int nNamed = 0;
    for (int count : counts)
        if (++nNamed <= 3) inTraces += formatted("%s%d", nNamed > 1 ? ", " : "", count);
    if (counts.size() > 3) inTraces += " ...";
    std::string evidence = formatted("reel %d, trace headers %s", reel.nSamples, inTraces.c_str());
    if (reel.longSamples > 0) evidence += formatted(", revision 2 word %d", reel.longSamples);
    const bool isReelRight = reel.nSamples == _layout.nSamples;
    const bool isOthers =
        counts.size() > 1 || (!counts.empty() && *counts.begin() != 0 && *counts.begin() != _layout.nSamples);
    const bool isLeft = _isList && isReelRight;
    _guess->parm.nsamp = isLeft ? 0 : _layout.nSamples;
    const char* why = isLeft               ? " (the field stays empty: the other files may have other numbers)"
                      : _layout.isVariable ? " (the longest trace)"
                      : !isReelRight       ? (counts.count(_layout.nSamples) > 0 || reel.longSamples == _layout.nSamples
                                                  ? " (against the reel)"
                                                  : " (against all words: so far apart are the trace headers)")
                      : isOthers           ? " (the reel is right, the trace headers are not)"
                                           : "";
    add("Samples", evidence, formatted("%d%s", _layout.nSamples, why));
}

void Guesser::addInterval()
{
    const SegyReelClaims& reel = claims();
    const int inTrace = _guess->sample.count() > 0 ? _guess->sample.headers[0].uint16(116, _layout.isBigEndian) : 0;
    const int inReel = reel.interval & 0xffff;
    // A negative word is a large number or a mistake; where the trace header tells another one, a mistake.
    const bool isReelGood = reel.interval > 0 || (inTrace == 0 && inReel > 0);
    // Two negative words are two mistakes: no interval is made out of them.
    const int us = isReelGood ? inReel : inTrace <= INT16_MAX ? inTrace : 0;
    const std::string evidence = formatted("reel %d us, first trace header %d us", reel.interval, inTrace);
    if (us < 1 && _guess->parm.srate > 0.0f) {
        add("Sample interval", evidence, formatted("%.7g ms, as it was typed", double(_guess->parm.srate)));
        return;
    }
    if (us < 1) {
        add("Sample interval", evidence, "undecidable: neither header tells; it has to be typed");
        cannotFollow("its sample interval is told nowhere; type it as \"Input sample rate\" and open the file");
        return;
    }
    // Recorders that divide 1 ms by powers of two can't tell their interval in whole microseconds.
    const double meant = us == 62 ? 62.5 : us == 31 ? 31.25 : us == 15 ? 15.625 : double(us);
    // A float times 1000 may fall short of the whole number: then the reel's own word serves better.
    const auto rate = float(meant / 1000.0);
    const bool isReelEnough = us == reel.interval && meant == us;
    _guess->parm.srate = isReelEnough && (_isList || int(double(rate) * 1000.0) != us) ? 0.0f : rate;
    std::string choice = formatted("%.7g ms", meant / 1000.0);
    if (meant != us)
        choice += formatted(": the word has no room for the fraction of %.7g us (1 ms / %d)", meant,
                            int(std::lround(1000.0 / meant)));
    else if (!isReelGood)
        choice += " (from the trace header)";
    else if (us != inTrace && inTrace != 0)
        choice += " (the reel's; the trace header differs)";
    if (us >= 10000)
        choice += "; coarse for time: it may be depth in steps of " +
                  formatted("%.7g m or ft, which no word tells", double(us) / 1000.0);
    add("Sample interval", evidence, choice);
}

/// The headers, with that of a trace that the end of the file cuts: the reader shows it, so it needs room.
SegyHeaderSample Guesser::withCutTrace() const
{
    SegyHeaderSample sample = _guess->sample;
    if (_layout.tailBytes == 0) return sample;
    SegyRawHeader cut;
    const int64_t offset = _source.size() - _layout.tailBytes;
    if (readSegyRawHeader(_source, offset, &cut, _error) < 1) return sample;
    cut.rank = sample.nTraces++;
    if (sample.headers.empty() || sample.headers.back().rank < cut.rank) sample.headers.push_back(cut);
    return sample;
}

void Guesser::addSortAndEnsembles()
{
    const SegyReelClaims& reel = claims();
    if (_guess->sample.count() == 0) return;
    const SegySortGuess sort = _layout.plausibility >= leastPlausible
                                   ? guessSegySort(_guess->sample, reel.sort)
                                   : SegySortGuess{0, "the trace headers are doubtful"};
    _guess->parm.isort = sort.code;
    const std::string name = sort.code > 0 ? segySortName(SortCode(sort.code)).toStdString() : "Get From Data";
    add("Sort order", formatted("reel's sort word %d; %s", reel.sort, sort.evidence.c_str()),
        sort.code > 0 ? name : name + ": the headers don't decide");
    const SegySortKeys keys = segySortKeys(SortCode(sort.code), reel.sort);
    const int keyByte = std::clamp(keys.ipkey.value - 1, 0, segyTraceHeaderBytes / 4 - 1) * 4;
    const SegyEnsembleGuess ensembles = guessSegyEnsembles(withCutTrace(), keyByte);
    _guess->longestEnsemble = ensembles.longest;
    int64_t capacity = reel.nTraces + int64_t(std::max(0, reel.nAux));
    if (capacity < 1) capacity = usualMaxTraces;
    // Part of a file may not show its largest ensemble; room is made only for traces that come.
    const int64_t wanted = _guess->sample.isWhole() ? ensembles.longest : std::max(2 * ensembles.longest, capacity);
    _guess->parm.maxtr = int(std::clamp<int64_t>(wanted, 1, INT32_MAX / 2));
    const bool isLeft = _isList && capacity >= ensembles.longest;
    std::string evidence =
        formatted("reel says %d traces and %d auxiliary ones; %s", reel.nTraces, reel.nAux, ensembles.evidence.c_str());
    std::string choice = formatted("%d", _guess->parm.maxtr);
    if (isLeft) {
        _guess->parm.maxtr = 0;
        choice += " (the field stays empty: the other files may have other numbers)";
    }
    if (capacity < ensembles.longest)
        choice += ": by the reel an ensemble would end after " + counted(capacity, "trace");
    add("Traces per ensemble", evidence, choice);
    if (!ensembles.isScattered) return;
    _guess->parm.indexbuilt = 1;
    add("Index", "ensembles in several places", "Build index map: Yes, or they come in pieces");
}

/// Whether a scalar can be applied: never one that would wipe what it scales.
void Guesser::addScalar(const char* what, int scalarByte, const std::vector<int>& bytes, int SegyLoadParm::*field)
{
    std::set<int> scalars;
    int64_t nScaled = 0;
    for (size_t i = 0; i < _guess->sample.count(); ++i) {
        const SegyRawHeader& header = _guess->sample.headers[i];
        scalars.insert(header.int16(scalarByte, _layout.isBigEndian));
        nScaled += std::any_of(bytes.begin(), bytes.end(),
                               [&](int byte) { return header.int32(byte, _layout.isBigEndian) != 0; });
    }
    std::string evidence = formatted("byte %d holds", scalarByte + 1);
    int nNamed = 0;
    for (int scalar : scalars)
        if (++nNamed <= 4) evidence += formatted("%s %d", nNamed > 1 ? "," : "", scalar);
    if (scalars.size() > 4) evidence += " ...";
    evidence += formatted("; values that it scales in %lld of %lld headers", wide(nScaled),
                          wide(int64_t(_guess->sample.count())));
    const auto isValid = [](int scalar) {
        const int size = std::abs(scalar);
        return size == 1 || size == 10 || size == 100 || size == 1000 || size == 10000;
    };
    const auto bad = std::find_if_not(scalars.begin(), scalars.end(), isValid);
    const bool isDoubtful = _layout.plausibility < leastPlausible;
    const bool isApplied = bad == scalars.end() && nScaled > 0 && !isDoubtful;
    _guess->parm.*field = isApplied ? 1 : 0;
    std::string choice = isApplied      ? "Yes"
                         : nScaled == 0 ? "No: nothing to scale"
                         : isDoubtful   ? "No: the trace headers are doubtful"
                         : *bad == 0    ? "No: a scalar of 0 would make the values 0"
                                        : formatted("No: %d is no scalar", *bad);
    if (isApplied && scalars.size() > 1) choice += ": they are mixed, each trace has its own";
    add(what, evidence, choice);
}

void Guesser::addDelay()
{
    std::set<int> delays;
    for (size_t i = 0; i < _guess->sample.count(); ++i)
        delays.insert(_guess->sample.headers[i].int16(108, _layout.isBigEndian));
    if (delays.empty() || (delays.size() == 1 && *delays.begin() == 0)) return;
    add("Recording delay", formatted("byte 109 holds %d to %d ms", *delays.begin(), *delays.rbegin()),
        "no setting: the time axis leaves it out");
}

void Guesser::conclude(const SegyLoadParm& before)
{
    if (_reasons.empty()) {
        _guess->verdict = SegyGuess::Read;
        _guess->summary = counted(_layout.nTraces, "trace") + (_layout.isWalkWhole ? "" : " and more") + " of " +
                          (_layout.isVariable ? "up to " : "") + counted(_layout.nSamples, "sample") + ", " +
                          orderName(_layout.isBigEndian) + ".";
        return;
    }
    _guess->verdict = SegyGuess::NotFollowed;
    _guess->parm = before;
    _guess->summary = "The reader can't follow this file: ";
    for (size_t i = 0; i < _reasons.size(); ++i) _guess->summary += (i > 0 ? "; " : "") + _reasons[i];
    _guess->summary += ". Nothing is set.";
}

bool Guesser::run(const SegyLoadParm& before)
{
    bool isText = false;
    if (!addTextFile(&isText)) return false;
    if (isText) return true;
    if (!findSegyLayout(_source, &_guess->search, _error)) return false;
    if (!_search.isFound) {
        sayWhatItIs();
        return true;
    }
    if (!readSegyHeaders(_source, _layout, &_guess->sample, _error)) return false;
    // Of a file that is cut in its first trace the header may still be whole.
    if (_guess->sample.count() == 0) _guess->sample.headers = _search.probes;
    const int comma = before.files.indexOf(',');
    _isList = comma >= 0 && !before.files.mid(comma).remove(',').trimmed().isEmpty();
    add("File", formatted("%lld bytes", wide(_source.size())), _isList ? "SEG-Y; the first one of the list" : "SEG-Y");
    addByteOrder();
    if (!addText()) return false;
    addPlace();
    addSize();
    addHeaders();
    if (!addFormat()) return false;
    addSamples();
    addInterval();
    addSortAndEnsembles();
    addScalar("Coordinate scalar", 70, {72, 76, 80, 84, 180, 184}, &SegyLoadParm::icscale);
    addScalar("Elevation scalar", 68, {40, 44, 48, 52, 56, 60, 64}, &SegyLoadParm::iescale);
    addDelay();
    conclude(before);
    return true;
}

bool guessSegy(const ByteSource& source, const SegyLoadParm& before, SegyGuess* guess, std::string* error)
{
    SegyGuess found;
    found.parm = before;
    if (!Guesser(source, &found, error).run(before)) return false;
    *guess = found;
    return true;
}

bool guessSegyFile(const std::string& path, const SegyLoadParm& before, SegyGuess* guess, std::string* error)
{
    FileSource source;
    return source.open(path, error) && guessSegy(source, before, guess, error);
}
