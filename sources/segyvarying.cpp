#include "sources/segyvarying.h"

#include "sources/formatted.h"
#include "sources/segyheaderreader.h"
#include "sources/segyrecords.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>

/// The standard's fields: bytes from 1, their width, a short name.
static const struct {
    int byte, width;
    const char* name;
} fields[] = {
    {1, 4, "Trace in line"},
    {5, 4, "Trace in file"},
    {9, 4, "Field record"},
    {13, 4, "Channel"},
    {17, 4, "Source point"},
    {21, 4, "CMP ensemble"},
    {25, 4, "Trace in ensemble"},
    {29, 2, "Trace id"},
    {31, 2, "Vertical sum"},
    {33, 2, "Stack fold"},
    {35, 2, "Data use"},
    {37, 4, "Offset"},
    {41, 4, "Receiver elevation"},
    {45, 4, "Source elevation"},
    {49, 4, "Source depth"},
    {53, 4, "Receiver datum"},
    {57, 4, "Source datum"},
    {61, 4, "Water depth at source"},
    {65, 4, "Water depth at receiver"},
    {69, 2, "Elevation scalar"},
    {71, 2, "Coordinate scalar"},
    {73, 4, "Source X"},
    {77, 4, "Source Y"},
    {81, 4, "Receiver X"},
    {85, 4, "Receiver Y"},
    {89, 2, "Coordinate units"},
    {91, 2, "Weathering velocity"},
    {93, 2, "Subweathering velocity"},
    {95, 2, "Uphole time at source"},
    {97, 2, "Uphole time at receiver"},
    {99, 2, "Source static"},
    {101, 2, "Receiver static"},
    {103, 2, "Total static"},
    {105, 2, "Lag time A"},
    {107, 2, "Lag time B"},
    {109, 2, "Recording delay"},
    {111, 2, "Mute start"},
    {113, 2, "Mute end"},
    {115, 2, "Samples"},
    {117, 2, "Sample interval"},
    {119, 2, "Gain type"},
    {121, 2, "Gain constant"},
    {123, 2, "Initial gain"},
    {125, 2, "Correlated"},
    {127, 2, "Sweep start"},
    {129, 2, "Sweep end"},
    {131, 2, "Sweep length"},
    {133, 2, "Sweep type"},
    {135, 2, "Sweep taper at start"},
    {137, 2, "Sweep taper at end"},
    {139, 2, "Taper type"},
    {141, 2, "Alias filter"},
    {143, 2, "Alias slope"},
    {145, 2, "Notch filter"},
    {147, 2, "Notch slope"},
    {149, 2, "Low cut"},
    {151, 2, "High cut"},
    {153, 2, "Low-cut slope"},
    {155, 2, "High-cut slope"},
    {157, 2, "Year"},
    {159, 2, "Day of year"},
    {161, 2, "Hour"},
    {163, 2, "Minute"},
    {165, 2, "Second"},
    {167, 2, "Time basis"},
    {169, 2, "Weighting factor"},
    {171, 2, "Roll switch group"},
    {173, 2, "First trace group"},
    {175, 2, "Last trace group"},
    {177, 2, "Gap size"},
    {179, 2, "Over travel"},
    {181, 4, "CDP X"},
    {185, 4, "CDP Y"},
    {189, 4, "Inline"},
    {193, 4, "Crossline"},
    {197, 4, "Shot point"},
    {201, 2, "Shot point scalar"},
    {203, 2, "Measurement unit"},
    {205, 4, "Transduction mantissa"},
    {209, 2, "Transduction exponent"},
    {211, 2, "Transduction units"},
    {213, 2, "Device id"},
    {215, 2, "Time scalar"},
    {217, 2, "Source type"},
};

const char* segyBehaviourName(SegyBehaviour behaviour)
{
    static const char* const names[] = {"repeats by ensemble", "counts up", "looks like coordinates", "varies",
                                        "constant"};
    return names[int(behaviour)];
}

int32_t SegyHeaderSample::value(size_t i, int byte, int width) const
{
    return width == 2 ? headers[i].int16(byte, isBigEndian) : headers[i].int32(byte, isBigEndian);
}

std::vector<int32_t> SegyHeaderSample::values(int byte, int width) const
{
    std::vector<int32_t> list(headers.size());
    for (size_t i = 0; i < list.size(); ++i) list[i] = value(i, byte, width);
    return list;
}

std::vector<int64_t> sampledRanks(int64_t nTraces)
{
    std::vector<int64_t> ranks;
    const auto add = [&](int64_t begin, int64_t n) {
        for (int64_t i = 0; i < n; ++i) ranks.push_back(begin + i);
    };
    if (nTraces <= mostSampledHeaders) {
        add(0, nTraces);
        return ranks;
    }
    constexpr int64_t quarter = mostSampledHeaders / 4;
    // Two parts of such a file would meet: then the runs are simply longer.
    const int64_t middle = std::max(2 * quarter, nTraces / 2);
    add(0, 2 * quarter);
    add(std::min(middle, nTraces - 2 * quarter), quarter);
    add(nTraces - quarter, quarter);
    return ranks;
}

bool readSegyHeaders(const ByteSource& source, const std::vector<int64_t>& ranks, const std::vector<int64_t>& offsets,
                     SegyHeaderSample* sample, std::string* error)
{
    const int64_t apart =
        offsets.size() > 1 ? std::max<int64_t>(segyTraceHeaderBytes, offsets[1] - offsets[0]) : segyTraceHeaderBytes;
    SegyHeaderReader reader(source, apart);
    sample->headers.clear();
    sample->headers.reserve(ranks.size());
    for (size_t i = 0; i < std::min(ranks.size(), offsets.size()); ++i) {
        int nPresent = 0;
        const unsigned char* bytes = reader.header(offsets[i], &nPresent, error);
        if (nPresent < 0) return false;
        if (nPresent < segyTraceHeaderBytes) continue;
        SegyRawHeader header;
        header.rank = ranks[i];
        std::memcpy(header.bytes.data(), bytes, header.bytes.size());
        sample->headers.push_back(header);
    }
    return true;
}

bool readSegyHeaders(const ByteSource& source, const SegyLayout& layout, SegyHeaderSample* sample, std::string* error)
{
    sample->isBigEndian = layout.isBigEndian;
    sample->nTraces = layout.nTraces;
    std::vector<int64_t> ranks, offsets;
    if (!layout.isVariable) {
        ranks = sampledRanks(layout.nTraces);
        for (int64_t rank : ranks) offsets.push_back(layout.offset(rank));
        return readSegyHeaders(source, ranks, offsets, sample, error);
    }
    int64_t offset = layout.firstTrace;
    for (int64_t rank = 0; rank < std::min(layout.nTraces, mostSampledHeaders); ++rank) {
        SegyRawHeader header;
        const int64_t got = readSegyRawHeader(source, offset, &header, error);
        if (got < 0) return false;
        ranks.push_back(rank);
        offsets.push_back(offset);
        offset += layout.headerBytes + int64_t(header.uint16(114, layout.isBigEndian)) * layout.sampleBytes;
    }
    return readSegyHeaders(source, ranks, offsets, sample, error);
}

double meanRun(const SegyHeaderSample& sample, const std::vector<int32_t>& values)
{
    int64_t nRuns = 0;
    for (size_t i = 0; i < values.size(); ++i) nRuns += !sample.isNeighbour(i) || values[i] != values[i - 1];
    return nRuns > 0 ? double(values.size()) / double(nRuns) : 0.0;
}

namespace {

/// Steps of a word between neighbours.
struct Steps {
    int64_t n = 0, nZero = 0;
    int64_t usual = 0;  // the commonest step that is not 0
    int64_t nUsual = 0;
    int64_t nRestarts = 0;  // steps against the usual direction
    double mean = 0.0;      // size of the steps that are not 0
};

Steps stepsOf(const SegyHeaderSample& sample, const std::vector<int32_t>& values)
{
    Steps steps;
    std::map<int64_t, int64_t> counts;
    double sum = 0.0;
    for (size_t i = 1; i < values.size(); ++i) {
        if (!sample.isNeighbour(i)) continue;
        const int64_t step = int64_t(values[i]) - values[i - 1];
        ++steps.n;
        if (step == 0)
            ++steps.nZero;
        else
            ++counts[step];
        sum += double(std::llabs(step));
    }
    for (const auto& [step, count] : counts)
        if (count > steps.nUsual) steps.usual = step, steps.nUsual = count;
    for (const auto& [step, count] : counts) steps.nRestarts += (step < 0) != (steps.usual < 0) ? count : 0;
    const int64_t nMoves = steps.n - steps.nZero;
    steps.mean = nMoves > 0 ? sum / double(nMoves) : 0.0;
    return steps;
}

/// A word with what its class is decided by.
struct Candidate {
    SegyVaryingWord word;
    Steps steps;
    double run = 0.0;
};

Candidate candidateOf(const SegyHeaderSample& sample, int byte, int width)
{
    Candidate candidate;
    const std::vector<int32_t> values = sample.values(byte, width);
    SegyVaryingWord& word = candidate.word;
    word.byte = byte + 1;
    word.width = width;
    std::vector<int32_t> sorted = values;
    std::sort(sorted.begin(), sorted.end());
    word.first = values.front();
    word.least = sorted.front();
    word.most = sorted.back();
    word.nDistinct = std::unique(sorted.begin(), sorted.end()) - sorted.begin();
    for (const auto& field : fields)
        if (field.byte == word.byte && field.width == width) word.field = field.name;
    candidate.steps = stepsOf(sample, values);
    candidate.run = meanRun(sample, values);
    return candidate;
}

bool isCoordinateField(int byte)
{
    return byte == 73 || byte == 77 || byte == 81 || byte == 85 || byte == 181 || byte == 185;
}

int64_t largest(const SegyVaryingWord& word)
{
    return std::max(std::llabs(int64_t(word.least)), std::llabs(int64_t(word.most)));
}

/// Steps by more than 1, as a mere count doesn't, but by little of its size.
bool isSmooth(const Candidate& candidate)
{
    const double mean = candidate.steps.mean;
    return candidate.word.nDistinct >= 2 && mean > 1.0 && mean <= 0.2 * double(largest(candidate.word));
}

/// Coordinates come in twos of 4 bytes each, are large, and step smoothly.
bool isLikeCoordinate(const Candidate& candidate)
{
    return candidate.word.width == 4 && largest(candidate.word) >= 10000 && isSmooth(candidate);
}

/// Three digits, but whole numbers whole.
std::string average(double value)
{
    return formatted(value < 1000.0 ? "%.3g" : "%.0f", value);
}

void classify(Candidate* candidate, bool hasPartner)
{
    SegyVaryingWord& word = candidate->word;
    const Steps& steps = candidate->steps;
    const double nSteps = double(std::max<int64_t>(1, steps.n));
    const bool isGiven = isCoordinateField(word.byte) && word.width == 4;
    if (word.nDistinct == 1) {
        word.behaviour = SegyBehaviour::Constant;
        word.evidence = "never changes";
    } else if ((isGiven && isSmooth(*candidate)) || (isLikeCoordinate(*candidate) && hasPartner)) {
        word.behaviour = SegyBehaviour::Coordinates;
        word.share = isLikeCoordinate(*candidate) ? 1.0 : 0.5;
        word.evidence = "steps of " + average(steps.mean);
        if (candidate->run >= 1.5)
            word.evidence = average(candidate->run) + " traces each, " + word.evidence;
        else if (!isGiven)
            word.evidence += ", like its neighbour";
    } else if (steps.nZero > 0 && candidate->run >= 1.5) {
        word.behaviour = SegyBehaviour::RepeatsByEnsemble;
        word.share = double(steps.nZero) / nSteps;
        word.evidence = std::to_string(word.nDistinct) + " values of " + average(candidate->run) + " traces";
    } else if (double(steps.nUsual) >= 0.7 * nSteps) {
        word.behaviour = SegyBehaviour::CountsUp;
        word.share = double(steps.nUsual) / nSteps;
        word.evidence = "steps of " + std::to_string(steps.usual);
        if (steps.nRestarts > 0)
            word.evidence += ", " + average(double(steps.n + 1) / double(steps.nRestarts + 1)) + " in a row";
    } else {
        word.behaviour = SegyBehaviour::Varies;
        word.evidence = std::to_string(word.nDistinct) + " values, no steady step";
    }
}

/// True when 4 bytes are one number for sure: the first two only carry the sign of the others.
bool isSignExtended(const SegyHeaderSample& sample, int byte)
{
    for (size_t i = 0; i < sample.count(); ++i) {
        const int32_t value = sample.value(i, byte, 4);
        if (value < INT16_MIN || value > INT16_MAX) return false;
    }
    return true;
}

bool isZero(const Candidate& candidate)
{
    return candidate.word.least == 0 && candidate.word.most == 0;
}

/// The words that share 4 bytes: one long one, two short ones, or all three where nothing tells.
void addCandidates(const SegyHeaderSample& sample, int byte, std::vector<Candidate>* list)
{
    constexpr int firstShort = 88, endShort = 180, firstFree = 196;
    const bool isShort = byte == 28 || byte == 32 || byte == 68 || (byte >= firstShort && byte < endShort);
    const bool isFree = byte >= firstFree && !isSignExtended(sample, byte);
    std::vector<Candidate> words;
    if (!isShort) words.push_back(candidateOf(sample, byte, 4));
    if (isShort || isFree)
        for (int half : {byte, byte + 2}) words.push_back(candidateOf(sample, half, 2));
    for (const Candidate& word : words)
        if (!isZero(word)) list->push_back(word);
}

/// The upper half of a word holds still where the word counts or wanders: it says less than the word, and never
/// stands above it.
void keepHalvesBehind(bool isBigEndian, std::vector<SegyVaryingWord>* ranking)
{
    for (size_t i = ranking->size(); i-- > 0;) {
        const SegyVaryingWord word = (*ranking)[i];
        if (word.width != 4) continue;
        const int upper = isBigEndian ? word.byte : word.byte + 2;
        const auto end = ranking->begin() + int64_t(i);
        const auto half = std::find_if(ranking->begin(), end, [=](const SegyVaryingWord& other) {
            return other.width == 2 && other.byte == upper;
        });
        if (half != end) std::rotate(half, half + 1, end + 1);
    }
}

}  // namespace

std::vector<SegyVaryingWord> rankSegyWords(const SegyHeaderSample& sample)
{
    std::vector<SegyVaryingWord> ranking;
    if (sample.count() == 0) return ranking;
    std::vector<Candidate> candidates;
    for (int byte = 0; byte < segyTraceHeaderBytes; byte += 4) addCandidates(sample, byte, &candidates);
    for (Candidate& candidate : candidates) {
        const bool hasPartner = std::any_of(candidates.begin(), candidates.end(), [&](const Candidate& other) {
            return std::abs(other.word.byte - candidate.word.byte) == 4 && isLikeCoordinate(other);
        });
        classify(&candidate, hasPartner);
        ranking.push_back(candidate.word);
    }
    std::stable_sort(ranking.begin(), ranking.end(), [](const SegyVaryingWord& a, const SegyVaryingWord& b) {
        return a.behaviour != b.behaviour ? a.behaviour < b.behaviour : a.share > b.share;
    });
    keepHalvesBehind(sample.isBigEndian, &ranking);
    return ranking;
}
