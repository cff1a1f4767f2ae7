#include "frame/firstlookbar.h"

#include "widgets/appsettings.h"
#include "widgets/namedcontrol.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

FirstLookBar::FirstLookBar(QWidget* parent) : QFrame(parent)
{
    setObjectName("firstLookBar");
    setFrameShape(QFrame::StyledPanel);
    _textLabel = makeControl<QLabel>("textLabel", QString());
    _textLabel->setTextFormat(Qt::PlainText);
    _textLabel->setWordWrap(true);
    // A long line must not widen the window.
    _textLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    _useButton = makeControl<QPushButton>("useButton", tr("Open the file with the settings that the guess found"),
                                          tr("Use these settings"));
    _detailsButton = makeControl<QPushButton>("detailsButton", tr("Show what was found, and why; nothing changes"),
                                              tr("Details..."));
    _densityButton = makeControl<QPushButton>("densityButton", tr("Show amplitudes by colours: the display type Color"),
                                              tr("Show as Color"));
    _notNowButton = makeControl<QPushButton>("notNowButton", tr("Leave all as it is"), tr("Not now"));
    _alwaysBox =
        makeControl<QCheckBox>("alwaysBox", tr("Use such settings unasked, from the next file on"), tr("Always"));
    _alwaysBox->setChecked(AppSettings().value(SettingsKey::guessAlways, false).toBool());
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 2, 6, 2);
    row->addWidget(_textLabel, 1);
    for (QPushButton* button : {_useButton, _detailsButton, _densityButton, _notNowButton}) {
        button->setAutoDefault(false);  // in a dialog Enter belongs to others
        row->addWidget(button);
    }
    row->addWidget(_alwaysBox);
    connect(_useButton, &QPushButton::clicked, this, &FirstLookBar::settingsWanted);
    connect(_detailsButton, &QPushButton::clicked, this, &FirstLookBar::detailsWanted);
    connect(_densityButton, &QPushButton::clicked, this, &FirstLookBar::densityWanted);
    connect(_notNowButton, &QPushButton::clicked, this, &FirstLookBar::dismiss);
    connect(_alwaysBox, &QCheckBox::toggled, this,
            [](bool on) { AppSettings().setValue(SettingsKey::guessAlways, on); });
    hide();
}

bool FirstLookBar::isAlways() const
{
    return _alwaysBox->isChecked();
}

void FirstLookBar::offerSettings(const QString& line, bool hasSettings)
{
    _line = line;
    _hasSettings = hasSettings;
    _isUsed = false;
    say();
}

void FirstLookBar::tellUsed(const QString& line)
{
    _line = line;
    _hasSettings = true;
    _isUsed = true;
    say();
}

void FirstLookBar::endOffer()
{
    _line.clear();
    say();
}

void FirstLookBar::offerDensity(bool isDense)
{
    if (isDense == _isDense) return;
    _isDense = isDense;
    say();
}

void FirstLookBar::newFile()
{
    _isDensityRefused = false;
    endOffer();
}

/// The reading comes before the look.
void FirstLookBar::say()
{
    const bool isOfFile = !_line.isEmpty();
    const bool isOfDensity = !isOfFile && _isDense && !_isDensityRefused;
    if (isOfFile)
        _textLabel->setText(_line);
    else if (isOfDensity)
        _textLabel->setText(tr("More traces than pixels: colours show them all."));
    _useButton->setVisible(isOfFile && _hasSettings && !_isUsed);
    _detailsButton->setVisible(isOfFile);
    _alwaysBox->setVisible(isOfFile && _hasSettings);
    _densityButton->setVisible(isOfDensity);
    _notNowButton->setText(_isUsed && isOfFile ? tr("OK") : tr("Not now"));
    setVisible(isOfFile || isOfDensity);
}

void FirstLookBar::dismiss()
{
    if (_line.isEmpty()) _isDensityRefused = true;
    endOffer();
}
