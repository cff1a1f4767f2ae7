#include "frame/presetmenu.h"

#include "display/seismicdisplay.h"
#include "display/seismicplot.h"
#include "frame/conditioningpreset.h"
#include "tracedata/parmmenu.h"
#include "widgets/waitcursor.h"

#include <QInputDialog>
#include <QMessageBox>
#include <QSettings>

PresetMenu::PresetMenu(const QList<SeismicDisplay*>* displays, QWidget* parent)
    : QMenu("&Presets", parent), _displays(displays)
{
    setObjectName("presetMenu");
    connect(this, &QMenu::aboutToShow, this, &PresetMenu::fill);
    fill();
}

void PresetMenu::fill()
{
    clear();
    addAction("&Save Preset...", this, &PresetMenu::askName)->setObjectName("savePresetAct");
    addSeparator();
    QSettings settings("Brenlake", "SEISMICDISPLAY");
    for (const QString& name : presetNames(&settings))
        addAction(QString(name).replace('&', "&&"), this, [this, name] {
            if (!apply(name)) QMessageBox::warning(parentWidget(), "Preset Error", "The preset " + name + " can't be used.");
        });
}

void PresetMenu::askName()
{
    const QString name = QInputDialog::getText(parentWidget(), "Save Preset", "Name of the preset:");
    if (!name.isEmpty()) save(name);
}

bool PresetMenu::save(const QString& name)
{
    if (name.trimmed().isEmpty() || _displays->isEmpty()) return false;
    QSettings settings("Brenlake", "SEISMICDISPLAY");
    savePreset(&settings, name.trimmed(), presetOf(*_displays->first()->seismicPlot()));
    fill();
    return true;
}

bool PresetMenu::apply(const QString& name)
{
    QSettings settings("Brenlake", "SEISMICDISPLAY");
    ConditioningPreset preset;
    if (!loadPreset(&settings, name, &preset)) return false;
    const WaitCursor wait;
    for (SeismicDisplay* display : *_displays) {
        applyPreset(preset, display->seismicPlot());
        if (parmmenu* menu = display->menu()) {  // for displays that are still to come
            menu->iagc = preset.isAGC;
            menu->agcwinlen = preset.agcWindow;
        }
        display->rebuildPlot();
    }
    emit applied();
    return true;
}
