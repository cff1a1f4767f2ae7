/// Named settings of conditioning and scaling.
#ifndef CONDITIONINGPRESET_H
#define CONDITIONINGPRESET_H

#include "tracedata/plotparm.h"

#include <QStringList>

#include <vector>

class QSettings;
class SeismicPlot;

/// What a preset keeps of a plot: the rows of presetFields(), nothing of the others.
using ConditioningPreset = PlotParm;
using PresetField = ParmField<ConditioningPreset>;
/// The rows that presets keep; saving, loading and their tests walk them.
std::vector<PresetField> presetFields();

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

/// Sets what a preset keeps and conditions the traces once; the caller replots.
void applyPreset(const ConditioningPreset& preset, SeismicPlot* plot);

#endif
