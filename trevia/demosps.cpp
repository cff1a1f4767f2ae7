#include "trevia/demosps.h"

#include "trevia/demosurvey.h"

#include <cmath>
#include <cstdio>

constexpr int lineNumber = 1, dayOfYear = 153;

static const char* headerLines = "H00 Geometry of the demo survey, metres\n"
                                 "H26 Points are whole numbers; azimuth 60 degrees, skidded shots 8 m to the right\n";

/// Columns from 0: S or R, line 1-16, point 17-24, index 25, code 26-27, static 28-31, depth 32-35, datum
/// 36-39, uphole 40-41, water 42-45, easting 46-54, northing 55-64, elevation 65-70, day 71-73, time 74-79.
static std::string pointRecord(char kind, int point, const char* code, double x, DemoPlace place, int clock)
{
    const DemoPlace map = demoMapPlace(place);
    char line[120];
    std::snprintf(line, sizeof line, "%c%-16d%8d%1d%-2s%4d%4.1f%4d%2d%4.1f%9.2f%10.2f%6.1f%3d%02d%02d%02d\n", kind,
                  lineNumber, point, 1, code, int(std::lround(-1000.0 * demoStatic(x))), 0.0, int(DemoLine::datum), 0,
                  0.0, map.x, map.y, demoElevation(x), dayOfYear, clock / 3600, clock / 60 % 60, clock % 60);
    return line;
}

/// Columns from 0: X, tape 1-6, record 7-10, increment 11, instrument 12, line 13-28, point 29-36, index 37,
/// channels 38-41 and 42-45, increment 46, line 47-62, stations 63-70 and 71-78, index 79.
static std::string relationRecord(const DemoShot& shot, int from, int to)
{
    char line[120];
    std::snprintf(line, sizeof line, "X%6d%4d%1d%1d%-16d%8d%1d%4d%4d%1d%-16d%8d%8d%1d\n", 1, shot.ffid, 1, 1,
                  lineNumber, shot.shotPoint, 1, from, to, 1, lineNumber, shot.firstLive + from - 1,
                  shot.firstLive + to - 1, 1);
    return line;
}

std::string spsSources(int nShots)
{
    std::string text = headerLines;
    for (int k = 0; k < nShots; ++k) {
        const DemoShot shot = demoShot(k);
        text += pointRecord('S', shot.shotPoint, "E1", shot.place.x, shot.place, 8 * 3600 + 90 * k);
    }
    return text;
}

std::string spsReceivers()
{
    std::string text = headerLines;
    for (int i = 0; i < DemoLine::stationCount; ++i) {
        const int station = DemoLine::firstStation + i;
        const double x = demoStationX(station);
        text += pointRecord('R', station, "G1", x, {x, 0.0}, 8 * 3600);
    }
    return text;
}

std::string spsRelations(int nShots)
{
    std::string text = headerLines;
    constexpr int half = DemoLine::channelCount / 2;
    for (int k = 0; k < nShots; ++k) {
        const DemoShot shot = demoShot(k);
        if (shot.shotPoint % 2 == 0) {
            text += relationRecord(shot, 1, half);
            text += relationRecord(shot, half + 1, DemoLine::channelCount);
        } else {
            text += relationRecord(shot, 1, DemoLine::channelCount);
        }
    }
    return text;
}
