/// A bar above the screens: what the guess found where a file is misread, and a better picture where traces outnumber
/// pixels.
#ifndef FIRSTLOOKBAR_H
#define FIRSTLOOKBAR_H

#include <QFrame>

class QCheckBox;
class QLabel;
class QPushButton;

/// Hidden while there is nothing to say. Changes nothing but the kept setting of its box "Always": who shows it hears
/// its signals.
class FirstLookBar : public QFrame
{
    Q_OBJECT

public:
    explicit FirstLookBar(QWidget* parent = nullptr);

    /// A file is misread. @param hasSettings  there are some that read it
    void offerSettings(const QString& line, bool hasSettings);
    /// The settings were used unasked, as the box wants it.
    void tellUsed(const QString& line);
    /// Nothing more to say of the file; what is said of the density stays.
    void endOffer();
    /// More traces than pixels are shown as wiggles, or not. After "Not now" not before the next newFile().
    void offerDensity(bool isDense);
    /// Forgets all of the former file.
    void newFile();
    /// The box "Always", off at first.
    bool isAlways() const;

signals:
    void settingsWanted();
    void detailsWanted();
    void densityWanted();

private:
    void say();
    void dismiss();

    QLabel* _textLabel;  // children of the bar
    QPushButton *_useButton, *_detailsButton, *_densityButton, *_notNowButton;
    QCheckBox* _alwaysBox;
    QString _line;  // of the file; empty if there is nothing to say
    bool _hasSettings = false;
    bool _isUsed = false;
    bool _isDense = false, _isDensityRefused = false;
};

#endif
