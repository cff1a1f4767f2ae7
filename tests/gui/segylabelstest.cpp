/// The words of the Binary tab and of the standard view of a trace header, each as it is to stand, in order.
#include "sources/menus/segybinarymenu.h"
#include "sources/menus/segyheadertext.h"
#include "sources/segyrecords.h"

#include <QtTest>

class SegyLabelsTest : public QObject
{
    Q_OBJECT

private slots:
    void theBinaryTabHasItsLabelsInOrder();
    void theStandardViewHasItsLabelsInOrder();
};

const char* const reelLabels[] = {
    "Job identification number:",
    "Line number:",
    "Reel number:",
    "Number of data traces:",
    "Number of auxiliary traces:",
    "Sample interval (usec):",
    "Sample interval field (usec):",
    "Number of samples per trace:",
    "Number of samples per trace (field):",
    "Data sample format code:",
    "Ensemble fold:",
    "Trace sorting code:",
    "Vertical sum code:",
    "Sweep frequency at start (Hz):",
    "Sweep frequency at end (Hz):",
    "Sweep length (msec):",
    "Sweep type code:",
    "Trace number of sweep channel:",
    "Sweep taper length at start (msec):",
    "Sweep taper length at end (msec):",
    "Taper type:",
    "Correlated data traces:",
    "Binary gain recovered:",
    "Amplitude recovery method:",
    "Measurement system:",
    "Impulse signal polarity:",
    "Vibratory polarity code:",
    "SEGY format revision number:",
    "Fixed trace length flag:",
};

const char* const traceLabels[] = {
    "  1) Trace sequence number in line:",
    "  5) Trace sequence number in file:",
    "  9) Original field record number:",
    " 13) Trace number in original record number:",
    " 17) Energy source point number:",
    " 21) CMP ensemble number:",
    " 25) Trace number in ensemble:",
    " 29) Trace identifiction code:",
    " 31) Number of vertically summed traces:",
    " 33) Number of horizontally stacked traces:",
    " 35) Data use:",
    " 37) Distance from source to receiver:",
    " 41) Receiver group elevation:",
    " 45) Surface elevation at source:",
    " 49) Source depth below surface:",
    " 53) Datum elevation at receiver:",
    " 57) Datum elevation at source:",
    " 61) Water depth at source:",
    " 65) Water depth at group:",
    " 69) Scalar applied to elev/depth:",
    " 71) Scalar applied to coordinates:",
    " 73) Source coordinate X:",
    " 77) Source coordinate Y:",
    " 81) Receiver coordinate X:",
    " 85) Receiver coordinate Y:",
    " 89) Coordinate units:",
    " 91) Weathering velocity:",
    " 93) Subweathering velocity:",
    " 95) Uphole time at source (msec):",
    " 97) Uphole time at receiver (msec):",
    " 99) Source static correction (msec):",
    "101) Receiver static correction (msec):",
    "103) Total static applied (msec):",
    "105) Lag time A (msec):",
    "107) Lag time B (msec):",
    "109) Delay recording time (msec):",
    "111) Mute start time (msec):",
    "113) Mute end time (msec):",
    "115) Number of samples in trace:",
    "117) Sample interval for trace (usec):",
    "119) Gain type of field instrument:",
    "121) Instrument gain constant (dB):",
    "123) Instrument initial gain:",
    "125) Correlated Flag:",
    "127) Sweep frequency at start (Hz):",
    "129) Sweep frequency at end (Hz):",
    "131) Sweep length (msec):",
    "133) Sweep type:",
    "135) Sweep taper length at start (msec):",
    "137) Sweep taper length at end (msec):",
    "139) Taper type:",
    "141) Alias filter frequency (Hz):",
    "143) Alias filter slope (dB/Octave):",
    "145) Notch filter frequency (Hz):",
    "147) Notch filter slope (dB/Octave):",
    "149) Low-cut frequency (Hz):",
    "151) High-cut frequency (Hz):",
    "153) Low-cut slope (dB/Octave):",
    "155) High-cut slope (dB/Octave):",
    "157) Year data recorded:",
    "159) Day of year:",
    "161) Hour of day:",
    "163) Minute of hour:",
    "165) Second of minute:",
    "167) Time basis code:",
    "169) Trace weighting factor (2**N Volts):",
    "171) Receiver num of roll switch pos one:",
    "173) Receiver number of 1st trace in ffid:",
    "175) Receiver number of last trace in ffid:",
    "177) Gap size (receiver groups):",
    "179) Over travel for taper at line:",
    "181) X coordinate of ensemble (CDP):",
    "185) Y coordinate of ensemble (CDP):",
    "189) 3-D in-line number:",
    "193) 3-D cross-line number:",
    "197) Shotpoint number:",
    "201) Scalar applied to shotpoint number:",
    "203) Trace value measurement unit:",
    "205) Transduction constant mantissa:",
    "207) Transduction constant exponent:",
    "209) Transduction units:",
    "211) Device/Trace identifier:",
    "213) Scalar applied to times:",
    "215) Source type/orientation:",
    "217) Source energy direction:",
    "221) Source measurement:",
    "225) Source measurement units:",
};

void SegyLabelsTest::theBinaryTabHasItsLabelsInOrder()
{
    segyReel reel = {};
    const QStringList lines = segyReelLines(reel).split('\n');
    QCOMPARE(lines.size(), int(std::size(reelLabels)));
    for (int i = 0; i < lines.size(); ++i) QCOMPARE(lines[i], QString(reelLabels[i]).leftJustified(40) + "0");
}

void SegyLabelsTest::theStandardViewHasItsLabelsInOrder()
{
    const std::vector<char> header(240, 0);
    const QStringList lines = buildStandardHeader(header.data()).split('\n');
    QCOMPARE(lines.size(), int(std::size(traceLabels)));
    for (int i = 0; i < lines.size(); ++i) QCOMPARE(lines[i].left(46).trimmed(), QString(traceLabels[i]).trimmed());
}

QTEST_GUILESS_MAIN(SegyLabelsTest)
#include "segylabelstest.moc"
