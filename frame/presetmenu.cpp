#include "frame/presetmenu.h"

#include "display/displaylist.h"
#include "display/seismicdisplay.h"
#include "display/seismicplot.h"
#include "frame/conditioningpreset.h"
#include "widgets/appsettings.h"
#include "widgets/waitcursor.h"

#include <QActionGroup>
#include <QInputDialog>
#include <QMessageBox>

PresetMenu::PresetMenu(const DisplayList* displays, QWidget* parent) : QMenu("&Presets", parent), _displays(displays)
{
    setObjectName("presetMenu");
    connect(this, &QMenu::aboutToShow, this, &PresetMenu::fill);
    fill();
}

/// The name with its ampersand shown instead of taken for a mnemonic.
static QString entryOf(const QString& name)
{
    return QString(name).replace('&', "&&");
}

void PresetMenu::fill()
{
    clear();
    qDeleteAll(findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly));  // of the former list
    addAction("&Save Preset...", this, &PresetMenu::askName)->setObjectName("savePresetAct");
    AppSettings settings;
    const QStringList names = presetNames(&settings);
    auto* deletes = addMenu("&Delete Preset");
    deletes->setObjectName("deletePresetMenu");
    deletes->setEnabled(!names.isEmpty());
    for (const QString& name : names) deletes->addAction(entryOf(name), this, [this, name] { remove(name); });
    fillEveryFile(names, presetForEveryFile(settings));
    addSeparator();
    for (const QString& name : names)
        addAction(entryOf(name), this, [this, name] {
            if (!apply(name))
                QMessageBox::warning(parentWidget(), "Preset Error", "The preset " + name + " can't be used.");
        });
}

void PresetMenu::fillEveryFile(const QStringList& names, const QString& marked)
{
    auto* everyFile = addMenu("For Every &File");
    everyFile->setObjectName("everyFileMenu");
    auto* group = new QActionGroup(everyFile);
    const auto add = [&](const QString& text, const QString& name) {
        QAction* action = everyFile->addAction(text, this, [name] {
            AppSettings kept;
            setPresetForEveryFile(&kept, name);
        });
        action->setCheckable(true);
        action->setChecked(name == marked);
        group->addAction(action);
    };
    add("None", QString());
    for (const QString& name : names) add(entryOf(name), name);
}

void PresetMenu::remove(const QString& name)
{
    AppSettings settings;
    removePreset(&settings, name);
}

void PresetMenu::applyToNewFile()
{
    const QString name = presetForEveryFile(AppSettings());
    if (!name.isEmpty()) apply(name);
}

void PresetMenu::askName()
{
    const QString name = QInputDialog::getText(parentWidget(), "Save Preset", "Name of the preset:");
    if (!name.isEmpty()) save(name);
}

bool PresetMenu::save(const QString& name)
{
    if (name.trimmed().isEmpty() || _displays->isEmpty()) return false;
    AppSettings settings;
    savePreset(&settings, name.trimmed(), _displays->first()->seismicPlot()->parm());
    fill();
    return true;
}

bool PresetMenu::apply(const QString& name)
{
    AppSettings settings;
    ConditioningPreset preset;
    if (!loadPreset(&settings, name, &preset)) return false;
    const WaitCursor wait;
    for (SeismicDisplay* display : *_displays) {
        applyPreset(preset, display->seismicPlot());
        if (display->menu()) keepInMenu(preset, display->menu());  // for displays that are still to come
        display->rebuildPlot();
    }
    emit applied();
    return true;
}
