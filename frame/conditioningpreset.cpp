#include "frame/conditioningpreset.h"

#include "display/rasternumber.h"
#include "display/seismicplot.h"
#include "widgets/appsettings.h"

#include <QUrl>

#include <cmath>

const std::vector<PresetField>& presetFields()
{
    static const std::vector<PresetField> fields = {
        {"agc", &ConditioningPreset::isAGC},
        {"agcWindow", &ConditioningPreset::agcWindow},
        {"phase", &ConditioningPreset::isPhase},
        {"phaseAngle", &ConditioningPreset::phaseAngle},
        {"filter", &ConditioningPreset::isFilter},
        {"lowCut", &ConditioningPreset::lowCut},
        {"lowPass", &ConditioningPreset::lowPass},
        {"highPass", &ConditioningPreset::highPass},
        {"highCut", &ConditioningPreset::highCut},
        {"timeFilter", &ConditioningPreset::isTimeFilter},
        {"gain", &ConditioningPreset::gain},
        {"clip", &ConditioningPreset::clip},
        {"scaling", &ConditioningPreset::scaling},
    };
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
    for (const PresetField& field : presetFields())
        std::visit([&](auto member) { settings->setValue(field.key, preset.*member); }, field.member);
    settings->endGroup();
}

static bool isSound(const ConditioningPreset& p)
{
    const bool isRising = 0 <= p.lowCut && p.lowCut <= p.lowPass && p.lowPass <= p.highPass && p.highPass <= p.highCut;
    return isRising && p.agcWindow > 0 && std::abs(p.phaseAngle) <= 360 && std::isfinite(p.gain) &&
           std::fabs(p.gain) <= 200.0f && p.clip >= 0.0f && p.clip <= 1000.0f && p.scaling >= 0 &&
           p.scaling <= int(Normalize::None);
}

bool loadPreset(QSettings* settings, const QString& name, ConditioningPreset* preset)
{
    if (!presetNames(settings).contains(name)) return false;
    ConditioningPreset read = *preset;
    settings->beginGroup(groupOf(name));
    for (const PresetField& field : presetFields())
        std::visit(
            [&](auto member) {
                auto& value = read.*member;
                value = settings->value(field.key, value).template value<std::decay_t<decltype(value)>>();
            },
            field.member);
    settings->endGroup();
    if (!isSound(read)) return false;
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

ConditioningPreset presetOf(const SeismicPlot& plot)
{
    const TraceConditioner& conditioner = plot.conditioner();
    const int* corners = conditioner.filterCorners();
    ConditioningPreset preset;
    preset.isAGC = conditioner.isAGC();
    preset.agcWindow = conditioner.agcWindow();
    preset.isPhase = conditioner.isPhase();
    preset.phaseAngle = wholeOf(conditioner.phaseAngle());
    preset.isFilter = conditioner.isFilter();
    preset.lowCut = corners[0];
    preset.lowPass = corners[1];
    preset.highPass = corners[2];
    preset.highCut = corners[3];
    preset.isTimeFilter = conditioner.isTimeFilter();
    preset.gain = plot.gain();
    preset.clip = plot.clip();
    preset.scaling = int(plot.normalization());
    return preset;
}

void applyPreset(const ConditioningPreset& preset, SeismicPlot* plot)
{
    plot->applyAGC(preset.isAGC, preset.agcWindow);
    plot->applyPhase(preset.isPhase, preset.phaseAngle);
    plot->applyFilter(preset.isFilter, preset.lowCut, preset.lowPass, preset.highPass, preset.highCut,
                      preset.isTimeFilter);
    plot->setGain(preset.gain);
    plot->setClip(preset.clip);
    plot->setNormalization(Normalize(preset.scaling));  // also conditions
}
