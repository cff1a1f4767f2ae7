#include "sources/menus/segybinarymenu.h"

#include "sources/menus/fixedfont.h"
#include "sources/segyloader.h"

#include <QPlainTextEdit>

#include <variant>

constexpr int labelWidth = 40;

/// Fields in reel order; the unassigned words stand in no row.
static const struct {
    const char* label;
    std::variant<int32_t segyReel::*, int16_t segyReel::*> member;
} reelRows[] = {
    {"Job identification number:", &segyReel::jobid},
    {"Line number:", &segyReel::line},
    {"Reel number:", &segyReel::reeln},
    {"Number of data traces:", &segyReel::ntrc},
    {"Number of auxiliary traces:", &segyReel::naux},
    {"Sample interval (usec):", &segyReel::nsr},
    {"Sample interval field (usec):", &segyReel::nsrField},
    {"Number of samples per trace:", &segyReel::nsamp},
    {"Number of samples per trace (field):", &segyReel::nsampField},
    {"Data sample format code:", &segyReel::format},
    {"Ensemble fold:", &segyReel::fold},
    {"Trace sorting code:", &segyReel::sort},
    {"Vertical sum code:", &segyReel::vsum},
    {"Sweep frequency at start (Hz):", &segyReel::sweepStart},
    {"Sweep frequency at end (Hz):", &segyReel::sweepEnd},
    {"Sweep length (msec):", &segyReel::sweepLength},
    {"Sweep type code:", &segyReel::sweepType},
    {"Trace number of sweep channel:", &segyReel::sweepChannel},
    {"Sweep taper length at start (msec):", &segyReel::sweepTaperStart},
    {"Sweep taper length at end (msec):", &segyReel::sweepTaperEnd},
    {"Taper type:", &segyReel::sweepTaperType},
    {"Correlated data traces:", &segyReel::correlated},
    {"Binary gain recovered:", &segyReel::gain},
    {"Amplitude recovery method:", &segyReel::recovery},
    {"Measurement system:", &segyReel::measurement},
    {"Impulse signal polarity:", &segyReel::signal},
    {"Vibratory polarity code:", &segyReel::vibPolarity},
    {"SEGY format revision number:", &segyReel::rev},
    {"Fixed trace length flag:", &segyReel::fixed},
};

QString segyReelLines(const segyReel& reel)
{
    QStringList lines;
    for (const auto& row : reelRows) {
        const int value = std::visit([&reel](auto member) { return int(reel.*member); }, row.member);
        lines += QString(row.label).leftJustified(labelWidth) + QString::number(value);
    }
    return lines.join('\n');
}

SegyBinaryMenu::SegyBinaryMenu(QWidget* parent) : QWidget(parent)
{
    setObjectName("segybinarymenu");
    _textEdit = fillWithText(this, tr("The binary reel header as it is in use"));
}

void SegyBinaryMenu::newLoader(SegyLoader* loader)
{
    _segyloader = loader;
}

void SegyBinaryMenu::loadBinary()
{
    const segyReel* reel = _segyloader ? _segyloader->getReelHeader() : nullptr;
    _textEdit->setPlainText(reel ? segyReelLines(*reel) : QString());
}
