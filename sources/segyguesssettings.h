/// The settings of the SEG-Y menu, and a guess of them, as text.
#ifndef SEGYGUESSSETTINGS_H
#define SEGYGUESSSETTINGS_H

#include "sources/segyguess.h"

/// The sample format choices of the menu, by their index.
enum SegyFormatChoice { FromData, ChooseIeee, ChooseIbm, ChooseInteger4, ChooseInteger2, ChooseInteger1, ChooseGain };
/// Their names, of the index 0 to 6.
const std::vector<std::string>& segyFormatChoices();

/// A setting as the menu names it.
struct SegySettingText {
    std::string label, value;
};

/// All settings that a guess fills, in the order of the menu, as the menu shows them.
std::vector<SegySettingText> segySettingTexts(const SegyLoadParm& parm);
/// Facts and settings as text, with a tab between columns: for the clipboard and spreadsheets.
std::string segyGuessText(const std::string& name, const SegyGuess& guess, const SegyLoadParm& before);

#endif
