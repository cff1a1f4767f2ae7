#include "sources/menus/segyheadertext.h"

#include "host/signal/bytes.h"
#include "sources/segyrecords.h"

#include <QStringList>

#include <cstring>

constexpr int labelWidth = 46;
constexpr int columnWidth = 16;

/// Fields of the standard view: bytes from 0, and width in bytes.
static const struct {
    const char* label;
    int byte, width;
} headerRows[] = {
    {"  1) Trace sequence number in line:", 0, 4},
    {"  5) Trace sequence number in file:", 4, 4},
    {"  9) Original field record number:", 8, 4},
    {" 13) Trace number in original record number:", 12, 4},
    {" 17) Energy source point number:", 16, 4},
    {" 21) CMP ensemble number:", 20, 4},
    {" 25) Trace number in ensemble:", 24, 4},
    {" 29) Trace identifiction code:", 28, 2},
    {" 31) Number of vertically summed traces:", 30, 2},
    {" 33) Number of horizontally stacked traces:", 32, 2},
    {" 35) Data use:", 34, 2},
    {" 37) Distance from source to receiver:", 36, 4},
    {" 41) Receiver group elevation:", 40, 4},
    {" 45) Surface elevation at source:", 44, 4},
    {" 49) Source depth below surface:", 48, 4},
    {" 53) Datum elevation at receiver:", 52, 4},
    {" 57) Datum elevation at source:", 56, 4},
    {" 61) Water depth at source:", 60, 4},
    {" 65) Water depth at group:", 64, 4},
    {" 69) Scalar applied to elev/depth:", 68, 2},
    {" 71) Scalar applied to coordinates:", 70, 2},
    {" 73) Source coordinate X:", 72, 4},
    {" 77) Source coordinate Y:", 76, 4},
    {" 81) Receiver coordinate X:", 80, 4},
    {" 85) Receiver coordinate Y:", 84, 4},
    {" 89) Coordinate units:", 88, 2},
    {" 91) Weathering velocity:", 90, 2},
    {" 93) Subweathering velocity:", 92, 2},
    {" 95) Uphole time at source (msec):", 94, 2},
    {" 97) Uphole time at receiver (msec):", 96, 2},
    {" 99) Source static correction (msec):", 98, 2},
    {"101) Receiver static correction (msec):", 100, 2},
    {"103) Total static applied (msec):", 102, 2},
    {"105) Lag time A (msec):", 104, 2},
    {"107) Lag time B (msec):", 106, 2},
    {"109) Delay recording time (msec):", 108, 2},
    {"111) Mute start time (msec):", 110, 2},
    {"113) Mute end time (msec):", 112, 2},
    {"115) Number of samples in trace:", 114, 2},
    {"117) Sample interval for trace (usec):", 116, 2},
    {"119) Gain type of field instrument:", 118, 2},
    {"121) Instrument gain constant (dB):", 120, 2},
    {"123) Instrument initial gain:", 122, 2},
    {"125) Correlated Flag:", 124, 2},
    {"127) Sweep frequency at start (Hz):", 126, 2},
    {"129) Sweep frequency at end (Hz):", 128, 2},
    {"131) Sweep length (msec):", 130, 2},
    {"133) Sweep type:", 132, 2},
    {"135) Sweep taper length at start (msec):", 134, 2},
    {"137) Sweep taper length at end (msec):", 136, 2},
    {"139) Taper type:", 138, 2},
    {"141) Alias filter frequency (Hz):", 140, 2},
    {"143) Alias filter slope (dB/Octave):", 142, 2},
    {"145) Notch filter frequency (Hz):", 144, 2},
    {"147) Notch filter slope (dB/Octave):", 146, 2},
    {"149) Low-cut frequency (Hz):", 148, 2},
    {"151) High-cut frequency (Hz):", 150, 2},
    {"153) Low-cut slope (dB/Octave):", 152, 2},
    {"155) High-cut slope (dB/Octave):", 154, 2},
    {"157) Year data recorded:", 156, 2},
    {"159) Day of year:", 158, 2},
    {"161) Hour of day:", 160, 2},
    {"163) Minute of hour:", 162, 2},
    {"165) Second of minute:", 164, 2},
    {"167) Time basis code:", 166, 2},
    {"169) Trace weighting factor (2**N Volts):", 168, 2},
    {"171) Receiver num of roll switch pos one:", 170, 2},
    {"173) Receiver number of 1st trace in ffid:", 172, 2},
    {"175) Receiver number of last trace in ffid:", 174, 2},
    {"177) Gap size (receiver groups):", 176, 2},
    {"179) Over travel for taper at line:", 178, 2},
    {"181) X coordinate of ensemble (CDP):", 180, 4},
    {"185) Y coordinate of ensemble (CDP):", 184, 4},
    {"189) 3-D in-line number:", 188, 4},
    {"193) 3-D cross-line number:", 192, 4},
    {"197) Shotpoint number:", 196, 4},
    {"201) Scalar applied to shotpoint number:", 200, 2},
    {"203) Trace value measurement unit:", 202, 2},
    {"205) Transduction constant mantissa:", 204, 2},
    {"207) Transduction constant exponent:", 206, 2},
    {"209) Transduction units:", 208, 2},
    {"211) Device/Trace identifier:", 210, 2},
    {"213) Scalar applied to times:", 212, 2},
    {"215) Source type/orientation:", 214, 2},
    {"217) Source energy direction:", 216, 4},
    {"221) Source measurement:", 220, 4},
    {"225) Source measurement units:", 224, 2},
};

template <class T>
static T valueAt(const void* header, int byte)
{
    T value;
    std::memcpy(&value, static_cast<const char*>(header) + byte, sizeof value);
    return value;
}

/// The same bytes in the other order.
template <class T>
static T swapped(T value)
{
    endianSwap(&value, sizeof value, 1);
    return value;
}

/// Of bytes in a file's order.
template <class T>
static T fileValueAt(const void* bytes, int byte, bool isBigEndian)
{
    const T value = valueAt<T>(bytes, byte);
    return isBigEndian == littleEndian() ? swapped(value) : value;
}

static QString number(float value)
{
    return QString::number(double(value), 'g', 7);
}

static float ieee(uint32_t word)
{
    float value;
    std::memcpy(&value, &word, sizeof value);
    return value;
}

static float ibm(uint32_t word)
{
    ibmToIeee(&word, 1);
    return ieee(word);
}

/// The byte, from 1, and columns that are aligned at their right ends.
static QString line(const QString& byte, const QStringList& columns)
{
    QString text = byte.rightJustified(4);
    for (const QString& column : columns) text += column.rightJustified(columnWidth);
    return text;
}

QString buildStandardHeader(const void* header)
{
    QStringList lines;
    for (const auto& row : headerRows) {
        const int value = row.width == 4 ? valueAt<int32_t>(header, row.byte) : valueAt<int16_t>(header, row.byte);
        lines += QString(row.label).leftJustified(labelWidth) + QString::number(value);
    }
    return lines.join('\n');
}

QString buildShortHeader(const void* bytes, bool isBigEndian)
{
    QStringList lines(line("Byte", {"Short", "uShort", "Short(swap)", "uShort(swap)"}));
    for (int byte = 0; byte < segyTraceHeaderBytes; byte += 2) {
        const auto word = fileValueAt<uint16_t>(bytes, byte, isBigEndian);
        const uint16_t other = swapped(word);
        lines += line(QString::number(byte + 1), {QString::number(int16_t(word)), QString::number(word),
                                                  QString::number(int16_t(other)), QString::number(other)});
    }
    return lines.join('\n');
}

QString buildIntegerHeader(const void* bytes, bool isBigEndian)
{
    QStringList lines(line("Byte", {"Integer", "uInteger", "Integer(swap)", "uInteger(swap)"}));
    for (int byte = 0; byte < segyTraceHeaderBytes; byte += 4) {
        const auto word = fileValueAt<uint32_t>(bytes, byte, isBigEndian);
        const uint32_t other = swapped(word);
        lines += line(QString::number(byte + 1), {QString::number(int32_t(word)), QString::number(word),
                                                  QString::number(int32_t(other)), QString::number(other)});
    }
    return lines.join('\n');
}

QString buildFloatHeader(const void* bytes, bool isBigEndian)
{
    QStringList lines(line("Byte", {"IEEE", "IBM", "IEEE(swap)", "IBM(swap)"}));
    for (int byte = 0; byte < segyTraceHeaderBytes; byte += 4) {
        const auto word = fileValueAt<uint32_t>(bytes, byte, isBigEndian);
        const uint32_t other = swapped(word);
        lines += line(QString::number(byte + 1),
                      {number(ieee(word)), number(ibm(word)), number(ieee(other)), number(ibm(other))});
    }
    return lines.join('\n');
}

QString buildAsciiHeader(const void* bytes, bool)
{
    QStringList lines("Byte  Ascii");
    for (int byte = 0; byte < segyTraceHeaderBytes; ++byte) {
        const auto c = valueAt<unsigned char>(bytes, byte);
        const bool isShown = c >= 0x20 && c < 0x7f;
        lines += QString::number(byte + 1).rightJustified(4) + "  " + (isShown ? QChar(c) : QChar('.'));
    }
    return lines.join('\n');
}
