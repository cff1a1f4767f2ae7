/// The user's settings, kept from session to session.
#ifndef APPSETTINGS_H
#define APPSETTINGS_H

#include <QSettings>

/// The settings of the program; cheap to make where they are needed.
class AppSettings : public QSettings
{
public:
    AppSettings() : QSettings("Brenlake", "SEISMICDISPLAY") {}
};

/// Every key that the program writes, or the group that its keys stand in, but for those of fields that have a table
/// (see tracedata/parmfield.h).
namespace SettingsKey {
constexpr char pos[] = "pos";            ///< QPoint, of the main window
constexpr char size[] = "size";          ///< QSize
constexpr char state[] = "state";        ///< QByteArray: tool bars and panels
constexpr char colormap[] = "colormap";  ///< colour file, empty for the built-in map
constexpr char lastFolder[] = "lastfolder";
constexpr char recentFiles[] = "recentfiles";
constexpr char guessAlways[] = "guess-always";
constexpr char pageKeys[] = "options/pageKeys";
constexpr char presetForEveryFile[] = "options/presetForEveryFile";
constexpr char presets[] = "presets";    ///< group: one a preset
constexpr char marks[] = "marks";        ///< group: one a file and key
constexpr char polarity[] = "polarity";  ///< group: one a file
}  // namespace SettingsKey

#endif
