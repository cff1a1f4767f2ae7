/// The menu of conditioning presets.
#ifndef PRESETMENU_H
#define PRESETMENU_H

#include <QMenu>

class DisplayList;

/// Saves the conditioning of the first display under a name, and gives that of a name to all displays at once, each
/// repainted once.
class PresetMenu : public QMenu
{
    Q_OBJECT

public:
    /// @param displays  lent, outlives the menu
    PresetMenu(const DisplayList* displays, QWidget* parent);

    /// Saves under a name; a blank one is refused with false.
    bool save(const QString& name);
    /// Applies a preset; false, with all as it was, where there is none or it can't be used.
    bool apply(const QString& name);

    /// Deletes a preset.
    void remove(const QString& name);
    /// Applies the preset that is marked for every file, if there is one.
    void applyToNewFile();

signals:
    /// All displays have other parameters now.
    void applied();

private:
    void fill();
    void fillEveryFile(const QStringList& names, const QString& marked);
    void askName();

    const DisplayList* _displays;
};

#endif
