/// Loaders on files that a test makes, and what came of them.
#ifndef SEGYLOADERFIXTURE_H
#define SEGYLOADERFIXTURE_H

#include "sources/segyloader.h"
#include "tests/unit/sources/segybuilder.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using Floats = std::vector<float>;

/// The arguments of a loader by name.
struct LoaderParm {
    std::string files;
    int isort = 0, itype = 0, iformat = 0, ivariable = 0, icscale = 0, iescale = 0, nsamp = 0, maxtr = 0;
    float srate = 0.0f;
    int iremap = 0, indexbuilt = 0;
    bool isstandalone = true;
};

struct Loaded {
    CollectReport report;
    SegyLoader loader;
    bool isGood = false;

    explicit Loaded(const LoaderParm& p)
        : loader(1, QString::fromStdString(p.files), 0, p.isort, p.itype, p.iformat, p.ivariable, 1, p.icscale,
                 p.iescale, p.nsamp, p.maxtr, p.srate, p.iremap, p.indexbuilt, p.isstandalone, &report)
    {
    }
    Loaded& open()
    {
        isGood = loader.openFiles();
        if (isGood) loader.initBuild();
        return *this;
    }
    int word(int iTrace, const char* name)
    {
        return loader.getHeaders()[iTrace][loader.segyHeader()->OrvinHeaderIndex(name)];
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
        for (int i = 0; i < loader.numTraces(); ++i) all.push_back(word(i, name));
        return all;
    }
    Floats firstSamples()
    {
        Floats all;
        for (int i = 0; i < loader.numTraces(); ++i) all.push_back(loader.getTraces()[i][0]);
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
