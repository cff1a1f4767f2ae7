/// Named settings of conditioning and scaling.
#ifndef CONDITIONINGPRESET_H
#define CONDITIONINGPRESET_H

#include <QStringList>

#include <variant>
#include <vector>

class QSettings;
class SeismicPlot;

/// What a preset keeps of a plot.
struct ConditioningPreset {
    bool isAGC = false;
    int agcWindow = 500;  ///< ms
    bool isPhase = false;
    int phaseAngle = 0;  ///< degrees
    bool isFilter = false;
    int lowCut = 4, lowPass = 12, highPass = 50, highCut = 60;  ///< Hz
    bool isTimeFilter = false;  ///< the band-pass works in the time domain
    float gain = 0.0f;          ///< dB
    float clip = 2.0f;          ///< trace widths
    int scaling = 0;            ///< a Normalize
};

/// One field of a preset and its key in the settings.
struct PresetField {
    const char* key;
    std::variant<bool ConditioningPreset::*, int ConditioningPreset::*, float ConditioningPreset::*> member;
};
/// All fields; saving, loading and their tests walk this list.
const std::vector<PresetField>& presetFields();

/// Names under "presets/", sorted.
QStringList presetNames(QSettings* settings);
void savePreset(QSettings* settings, const QString& name, const ConditioningPreset& preset);
/// The stored fields, the former values of *preset for the others. False, with *preset untouched, where there is no
/// such preset or a value is out of its range.
bool loadPreset(QSettings* settings, const QString& name, ConditioningPreset* preset);

/// A preset that is marked for every file loses its mark, too.
void removePreset(QSettings* settings, const QString& name);
/// The preset that each file gets when it is opened; empty for none.
QString presetForEveryFile(const QSettings& settings);
void setPresetForEveryFile(QSettings* settings, const QString& name);

ConditioningPreset presetOf(const SeismicPlot& plot);
/// Sets all of it and conditions the traces once; the caller replots.
void applyPreset(const ConditioningPreset& preset, SeismicPlot* plot);

#endif
