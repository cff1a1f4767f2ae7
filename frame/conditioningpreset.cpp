#include "frame/conditioningpreset.h"

#include "display/seismicplot.h"
#include "frame/parmsettings.h"
#include "widgets/appsettings.h"

#include <QUrl>

std::vector<PresetField> presetFields()
{
    std::vector<PresetField> fields;
    for (const PresetField& field : plotParmFields())
        if (field.rule.uses & InPreset) fields.push_back(field);
    return fields;
}

/// A slash in a name would make a group of its own.
static QString groupOf(const QString& name)
{
    return QString(SettingsKey::presets) + "/" + QString::fromLatin1(QUrl::toPercentEncoding(name, " "));
}

QStringList presetNames(QSettings* settings)
{
    settings->beginGroup(SettingsKey::presets);
    QStringList names;
    for (const QString& group : settings->childGroups()) names.append(QUrl::fromPercentEncoding(group.toLatin1()));
    settings->endGroup();
    names.sort();
    return names;
}

void savePreset(QSettings* settings, const QString& name, const ConditioningPreset& preset)
{
    settings->beginGroup(groupOf(name));
    writeParms(plotParmFields(), InPreset, preset, settings);
    settings->endGroup();
}

static bool isRising(const ConditionParm& p)
{
    return p.lowCut <= p.lowPass && p.lowPass <= p.highPass && p.highPass <= p.highCut;
}

bool loadPreset(QSettings* settings, const QString& name, ConditioningPreset* preset)
{
    if (!presetNames(settings).contains(name)) return false;
    ConditioningPreset read = *preset;
    settings->beginGroup(groupOf(name));
    const bool isSound = readParms(plotParmFields(), InPreset, settings, &read) && isRising(read);
    settings->endGroup();
    if (!isSound) return false;
    *preset = read;
    return true;
}

void removePreset(QSettings* settings, const QString& name)
{
    settings->remove(groupOf(name));
    if (presetForEveryFile(*settings) == name) setPresetForEveryFile(settings, QString());
}

QString presetForEveryFile(const QSettings& settings)
{
    return settings.value(SettingsKey::presetForEveryFile).toString();
}

void setPresetForEveryFile(QSettings* settings, const QString& name)
{
    settings->setValue(SettingsKey::presetForEveryFile, name);
}

void applyPreset(const ConditioningPreset& preset, SeismicPlot* plot)
{
    PlotParm parm = plot->parm();
    copyParms(plotParmFields(), InPreset, preset, &parm);
    plot->changeParm(parm);
}
