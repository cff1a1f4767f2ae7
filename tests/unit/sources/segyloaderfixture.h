/// Loaders on files that a test makes, and what came of them.
#ifndef SEGYLOADERFIXTURE_H
#define SEGYLOADERFIXTURE_H

#include "sources/segyloader.h"
#include "tests/unit/sources/segybuilder.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using Floats = std::vector<float>;

/// What a test says of an opening.
struct LoaderParm {
    std::string files;
    int isort = 0, itype = 0, iformat = 0, ivariable = 0, icscale = 0, iescale = 0, nsamp = 0, maxtr = 0;
    float srate = 0.0f;
    int iremap = 0, indexbuilt = 0;
    bool isstandalone = true;
    SegyRemapTable remapTable = {};
    SegyReadLayout layout = {};
};

inline SegyLoadParm loadParm(const LoaderParm& p)
{
    return {.files = QString::fromStdString(p.files),
            .isort = p.isort,
            .itype = p.itype,
            .iformat = p.iformat,
            .ivariable = p.ivariable,
            .icscale = p.icscale,
            .iescale = p.iescale,
            .nsamp = p.nsamp,
            .maxtr = p.maxtr,
            .srate = p.srate,
            .iremap = p.iremap,
            .indexbuilt = p.indexbuilt,
            .layout = p.layout,
            .remapTable = p.remapTable,
            .isStandAlone = p.isstandalone};
}

struct Loaded {
    CollectReport report;
    SegyLoadParm parm;
    std::unique_ptr<SegyLoader> loader;  // null before open, and for a file that was refused
    QString fileInHand;
    bool isGood = false;

    explicit Loaded(const LoaderParm& p) : parm(loadParm(p)) {}
    Loaded& open()
    {
        loader = SegyLoader::open(parm, &report, nullptr, nullptr, &fileInHand);
        isGood = loader != nullptr;
        return *this;
    }
    int word(int iTrace, const char* name)
    {
        return loader->getHeaders()[iTrace][loader->segyHeader()->OrvinHeaderIndex(name)];
    }
    float real(int iTrace, const char* name)
    {
        const int bits = word(iTrace, name);
        float value;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }
    std::vector<int> words(const char* name)
    {
        std::vector<int> all;
        for (int i = 0; i < loader->numTraces(); ++i) all.push_back(word(i, name));
        return all;
    }
    Floats firstSamples()
    {
        Floats all;
        for (int i = 0; i < loader->numTraces(); ++i) all.push_back(loader->getTraces()[i][0]);
        return all;
    }
};

class SegyLoaderTest : public testing::Test
{
protected:
    std::string save(const SegyBuilder& file, const char* name = "a.sgy")
    {
        return file.save(_folder.filePath(name).toStdString());
    }
    /// Shots of the given sizes: FFID 10, 20, ..., channels from 1, first sample FFID + channel.
    static SegyBuilder shots(const std::vector<int>& sizes)
    {
        SegyBuilder file(3);
        for (size_t shot = 0; shot < sizes.size(); ++shot)
            for (int channel = 1; channel <= sizes[shot]; ++channel) {
                const int ffid = 10 * (int(shot) + 1);
                file.addTrace(Floats{float(ffid + channel), 0.5f, -0.5f});
                const size_t i = file.traceStarts.size() - 1;
                file.setHeader<int32_t>(i, 0, int(i) + 1);
                file.setHeader<int32_t>(i, 8, ffid);
                file.setHeader<int32_t>(i, 12, channel);
                file.setHeader<int16_t>(i, 28, 1);
                file.setHeader<int32_t>(i, 36, 25 * channel);
            }
        return file;
    }
    QTemporaryDir _folder;
};

#endif
