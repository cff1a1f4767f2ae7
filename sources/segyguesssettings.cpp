#include "sources/segyguesssettings.h"

#include "sources/formatted.h"
#include "sources/segysamples.h"
#include "sources/segysortkeys.h"

#include <algorithm>

const std::vector<std::string>& segyFormatChoices()
{
    static const std::vector<std::string> names = {
        "Get From Data", "IEEE", "IBM", "Integer (4 byte)", "Integer (2 byte)", "Integer (1 byte)", "Integer W/Gain"};
    return names;
}

std::vector<SegySettingText> segySettingTexts(const SegyLoadParm& parm)
{
    const auto yes = [](int flag) { return std::string(flag != 0 ? "Yes" : "No"); };
    const auto number = [](double value) {
        return value > 0.0 ? formatted("%.7g", value) : std::string("from the reel");
    };
    static const char* const orders[] = {"By the file type", "Highest byte first", "Lowest byte first"};
    std::string other = "As the sample format says";
    for (const SegyLayoutSample& sample : segyLayoutSamples())
        if (sample.format == parm.layout.sampleFormat) other = sample.name;
    const bool isSort = parm.isort >= 1 && parm.isort <= segySortNames().size();
    const size_t format = size_t(std::clamp(parm.iformat, 0, int(segyFormatChoices().size()) - 1));
    return {{"Data sort order", isSort ? segySortNames()[parm.isort - 1].toStdString() : "Get From Data"},
            {"SEGY file type", parm.itype == 1 ? "MSDOS" : "Standard"},
            {"Data sample format", segyFormatChoices()[format]},
            {"Max traces per ensemble", number(parm.maxtr)},
            {"Num samples per trace", number(parm.nsamp)},
            {"Input sample rate", number(double(parm.srate)) + (parm.srate > 0.0f ? " msec" : "")},
            {"Variable trace length", yes(parm.ivariable)},
            {"Apply coordinate scalar", yes(parm.icscale)},
            {"Apply depth/elev scalar", yes(parm.iescale)},
            {"Build index map", yes(parm.indexbuilt)},
            {"First trace at byte", std::to_string(parm.layout.firstTrace)},
            {"Trace header length", std::to_string(parm.layout.headerBytes) + " bytes"},
            {"Other samples", other},
            {"Byte order", orders[int(parm.layout.byteOrder)]}};
}

std::string segyGuessText(const std::string& name, const SegyGuess& guess, const SegyLoadParm& before)
{
    std::string text = name + "\n" + guess.summary + "\n\nFact\tEvidence\tChoice\n";
    for (const SegyGuessFact& fact : guess.facts) text += fact.what + "\t" + fact.evidence + "\t" + fact.choice + "\n";
    if (guess.verdict != SegyGuess::Read) return text;
    text += "\nSetting\tBefore\tNow\n";
    const std::vector<SegySettingText> old = segySettingTexts(before), now = segySettingTexts(guess.parm);
    for (size_t i = 0; i < now.size(); ++i) text += now[i].label + "\t" + old[i].value + "\t" + now[i].value + "\n";
    return text;
}
