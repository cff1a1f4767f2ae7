/// Makes SEG-Y files in memory, byte by byte and without any code of the readers.
#ifndef SEGYBUILDER_H
#define SEGYBUILDER_H

#include "host/report.h"
#include "sources/segydata2.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

/// A file that grows trace by trace; positions are offsets in the file or in a trace header, from 0.
class SegyBuilder
{
public:
    explicit SegyBuilder(int nsamp, int format = 5, bool isBigEndian = true) : _isBig(isBigEndian)
    {
        bytes.assign(3600, 0);
        std::memset(bytes.data(), 0x40, 3200);  // blanks
        put<int16_t>(3216, 2000);
        put<int16_t>(3220, int16_t(nsamp));
        put<int16_t>(3224, int16_t(format));
        put<int16_t>(3228, 1);
    }
    /// Writes a number in the file's byte order.
    template <typename T>
    void put(size_t offset, T value)
    {
        char raw[sizeof(T)];
        std::memcpy(raw, &value, sizeof value);
        if (_isBig) std::reverse(raw, raw + sizeof value);
        if (bytes.size() < offset + sizeof value) bytes.resize(offset + sizeof value);
        std::memcpy(bytes.data() + offset, raw, sizeof value);
    }
    /// Adds an empty trace header; returns its offset.
    size_t addHeader()
    {
        traceStarts.push_back(bytes.size());
        bytes.resize(bytes.size() + 240);
        return traceStarts.back();
    }
    template <typename T>
    size_t addTrace(const std::vector<T>& samples)
    {
        const size_t start = addHeader();
        for (T sample : samples) put<T>(bytes.size(), sample);
        return start;
    }
    template <typename T>
    void setHeader(size_t iTrace, int byte, T value)
    {
        put<T>(traceStarts[iTrace] + size_t(byte), value);
    }
    std::string save(const std::string& path) const
    {
        std::ofstream(path, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
        return path;
    }

    std::vector<char> bytes;
    std::vector<size_t> traceStarts;

private:
    bool _isBig;
};

/// Keeps what a reader says.
class CollectReport : public Report
{
public:
    void line(const std::string& words) override { text += words; }
    void box(const std::string& title, const std::string& words) override { boxes.push_back(title + ": " + words); }
    void assumed(const std::string& words) override { assumptions.push_back(words); }
    bool has(const std::string& words) const { return text.find(words) != std::string::npos; }
    bool hasAssumed(const std::string& words) const
    {
        return std::any_of(assumptions.begin(), assumptions.end(),
                           [&](const std::string& a) { return a.find(words) != std::string::npos; });
    }

    std::string text;
    std::vector<std::string> boxes, assumptions;
};

/// Bytes that can't be read from a position on, as on a failing disk.
class FailingSource : public MemorySource
{
public:
    FailingSource(const std::vector<char>& bytes, int64_t failsAt)
        : MemorySource(bytes.data(), bytes.size()), _failsAt(failsAt)
    {
    }
    int64_t read(int64_t offset, size_t n, void* out, std::string* error) const override
    {
        if (offset + int64_t(n) <= _failsAt) return MemorySource::read(offset, n, out, error);
        *error = "Input/output error";
        return -1;
    }

private:
    int64_t _failsAt;
};

/// A reader on bytes in memory, opened as far as the reel.
struct OpenedSegy {
    CollectReport report;
    segyData2 data;
    bool isReelGood;
    std::vector<char> buffer;

    OpenedSegy(const std::vector<char>& bytes, SegyReadParm parm) : data(parm, &report)
    {
        data.openSource(std::make_unique<MemorySource>(bytes.data(), bytes.size()), "memory");
        isReelGood = data.reelHeader(false);
        data.setTraceBytes();
        buffer.resize(size_t(std::max(240, data.maxBytes())));
    }
    static SegyReadParm bigEndian()
    {
        SegyReadParm parm;
        parm.iswap = 1;
        return parm;
    }
    explicit OpenedSegy(const SegyBuilder& builder) : OpenedSegy(builder.bytes, bigEndian()) {}
    OpenedSegy(const SegyBuilder& builder, const SegyReadParm& parm) : OpenedSegy(builder.bytes, parm) {}

    int read() { return data.readTrace(buffer.data()); }
    float sample(int i) const
    {
        float value;
        std::memcpy(&value, buffer.data() + 240 + 4 * size_t(i), 4);
        return value;
    }
    std::vector<float> samples() const
    {
        std::vector<float> out(size_t(std::max(0, data.numSamples())));
        for (size_t i = 0; i < out.size(); ++i) out[i] = sample(int(i));
        return out;
    }
    const segyTrace* trace() const { return reinterpret_cast<const segyTrace*>(buffer.data()); }
};

#endif
