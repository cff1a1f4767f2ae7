#include "trevia/democommand.h"

#include "trevia/demonoise.h"
#include "trevia/demosegy.h"
#include "trevia/demosps.h"
#include "trevia/demostack.h"
#include "trevia/demotruth.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>

constexpr int etaSamples = 1251;
constexpr double cdpCoherent = 0.05;

static const char* helpText =
    "Usage: trevia demo [FOLDER] [--noise SD] [--shots N] [--no-faults]\n"
    "\n"
    "Makes a survey whose every answer is known, in FOLDER (\"demo\" if none is given):\n"
    "  demo.sgy         60 shots of 120 channels, as recorded\n"
    "  demo_cdp.sgy     the same in CDP order, without statics, faults and strong ground roll\n"
    "  demo_cvs.sgy     that line stacked with constant velocities of 1800 to 3600 m/s\n"
    "  demo_eta.sgy     one CDP with anisotropic reflections to an offset of 3000 m\n"
    "  demo_3d.sgy      a stacked volume of 10 lines with 40 bins each\n"
    "  demo.s01 .r01 .x01   the geometry as SPS files\n"
    "  truth_*.txt      what the data hold: first breaks, reflections, statics, bad traces, eta\n"
    "  demo.txt         all parameters, and a checksum of each file\n"
    "\n"
    "  --noise SD    standard deviation of the noise, 0 to 1000 (0.02)\n"
    "  --shots N     the first N shots only, 1 to 60\n"
    "  --no-faults   no dead, reversed, late, spiky or noisy traces\n"
    "  --help        this text\n";

template <class Number>
static bool toNumber(const std::string& text, Number least, Number largest, Number* value)
{
    Number parsed = {};
    const char* end = text.data() + text.size();
    const auto [stop, code] = std::from_chars(text.data(), end, parsed);
    if (code != std::errc() || stop != end || !(parsed >= least && parsed <= largest)) return false;
    *value = parsed;
    return true;
}

bool parseDemoArguments(const std::vector<std::string>& arguments, DemoWish* wish, std::string* error)
{
    DemoWish parsed;
    bool hasFolder = false;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const std::string value = i + 1 < arguments.size() ? arguments[i + 1] : "";
        if (argument == "--help") {
            parsed.help = true;
        } else if (argument == "--no-faults") {
            parsed.withFaults = false;
        } else if (argument == "--noise" || argument == "--shots") {
            const bool ok = argument == "--noise" ? toNumber(value, 0.0, 1000.0, &parsed.noiseDeviation)
                                                  : toNumber(value, 1, DemoLine::shotCount, &parsed.nShots);
            if (!ok) {
                *error = argument + ": \"" + value + "\" is no number that it takes";
                return false;
            }
            ++i;
        } else if (argument.starts_with("-")) {
            *error = argument + ": no such option";
            return false;
        } else if (hasFolder || argument.empty()) {
            *error = "\"" + argument + "\": one folder, please";
            return false;
        } else {
            parsed.folder = argument;
            hasFolder = true;
        }
    }
    *wish = parsed;
    return true;
}

static std::string decimal(double value)
{
    char text[40];
    std::snprintf(text, sizeof text, "%g", value);
    return text;
}

/// All parameters, as text for demo.txt.
static std::string parameterText(const DemoWish& wish)
{
    return "Demo survey\n"
           "===========\n"
           "Made by: trevia demo --noise " +
           decimal(wish.noiseDeviation) + " --shots " + std::to_string(wish.nShots) +
           (wish.withFaults ? "" : " --no-faults") +
           "\n"
           "Everything is synthetic. x runs along the line, y to its right; metres, m/s, seconds unless told.\n"
           "\n"
           "SEG-Y          revision 1, big-endian, IEEE, EBCDIC, 2 ms, 1001 samples (demo_eta: 1251)\n"
           "stations       101..300, x = 24 (station - 101)\n"
           "shots          k = 0..59: FFID 1001 + k, shot point 201 + k, x = 468 + 48 k; k = 29 stands 12 m further,\n"
           "               on a station; k mod 5 = 2 is skidded to y = 8\n"
           "spread         120 channels from station 101 + clamp(floor(x/24) - 59, 0, 80)\n"
           "map            X = 500000 + 0.8660254 x + 0.5 y, Y = 4200000 + 0.5 x - 0.8660254 y\n"
           "CDP            1000 + floor(m/12), m = (x source + x receiver)/2; coordinates at the bin's centre\n"
           "trace headers  coordinates and elevations in 1/100 m (scalars -100); receiver station at bytes 173-174,\n"
           "               shot point at 17-20 and 197-200; statics -1000 w (whole ms, not applied to the data);\n"
           "               depth, uphole, water depths and mutes 0: sources on the surface of dry land;\n"
           "               demo_cvs: velocity of the panel at 9-12 and 205-208\n"
           "elevation      z = 400 + 22 sin(2 pi x/4100) + 5 sin(2 pi x/870 + 1)\n"
           "weathering     h = 11 + 4 sin(2 pi x/1900 + 0.4) + 2 sin(2 pi x/610)\n"
           "velocities     v0 700, v1 2000, v2 3400; layer 1 is 110 thick\n"
           "first break    the least of o/v0, o/v1 + d1(s) + d1(r), o/v2 + d2(s) + d2(r) with o = |offset|,\n"
           "               d1 = h sqrt(1/v0^2 - 1/v1^2), d2 = h sqrt(1/v0^2 - 1/v2^2) + 110 sqrt(1/v1^2 - 1/v2^2)\n"
           "wavelet        -exp(-60 t) sin(2 pi 40 t); first break 2/(1 + o/200); later ones: direct 1/(1 + o/60),\n"
           "               first refraction 0.6/(1 + o/200), second (o > 300) 0.4/(1 + o/200)\n"
           "reflections    Ricker 30 Hz at w(s) + w(r) + sqrt(t0^2 + o^2/V^2), q = (m - 2700)/1000;\n"
           "               t0 0.350 + 0.004 q, 0.560 - 0.008 q, 0.800 + 0.012 q, 1.050, 1.350 + 0.020 q\n"
           "               - 0.03 exp(-(m - 2700)^2/500^2), 1.650 - 0.015 q;\n"
           "               V (2050, 2250, 2500, 2750, 3050, 3350)(1 + 0.01 q); amplitudes 0.25, -0.2, 0.3, -0.25, "
           "0.3,\n"
           "               0.2; a multiple of the second: 2 t0, the same V, 0.12\n"
           "static         w = h (1/v0 - 1/v1) + (z - 400)/v1\n"
           "ground roll    from g1 = o/450 to g2 = max(o/250, g1 + 0.1): 3/sqrt(1 + o/50) sin^2(pi u)\n"
           "               sin(2 pi (6 + 5 u)(t - g1)), u = (t - g1)/(g2 - g1)\n"
           "air wave       Ricker 90 Hz at o/340, 1/(1 + o/300)\n"
           "noise          standard deviation " +
           decimal(wish.noiseDeviation) + "; xorshift64 (13, 7, 17), seed " + std::to_string(DemoNoise::seed) +
           ", u = (x >> 11)/2^53,\n"
           "               sum of 12 u - 6, trace by trace in file order, also for dead traces; each file anew\n"
           "faults         " +
           (wish.withFaults
                ? "stations 220-223 noise times 6; station 157 zeros and trace id 2 from FFID 1021 on; station 203\n"
                  "               zeros; station 180 reversed; FFID 1034 all reversed (so that station 180 stands\n"
                  "               right there); FFID 1042 16 ms late; FFID 1025 channel 77 a spike of 1e4 at sample\n"
                  "               400; FFID 1050 channel 5 samples 500-502 NaN\n"
                : "none\n") +
           "demo_cdp       by CDP, then by |offset|; w = 0, ground roll and air wave times 0.05, no faults\n"
           "demo_cvs       demo_cdp with noise, moved out and stacked at 1800..3600 step 100, stretch mute 50 %, mean\n"
           "demo_eta       CDP 1225, offsets 50..3000 step 50; t0 0.7, 1.1, 1.6; V 2200, 2500, 2900; eta 0.05, 0.10,\n"
           "               0.08; amplitudes 0.3, -0.25, 0.3; T^2 = t0^2 + x^2/V^2 - 2 eta x^4/(V^2 (t0^2 V^2 + (1 + 2 "
           "eta) x^2))\n"
           "demo_3d        in-lines 1-10 48 m apart, cross-lines 1-40 from x = 2220 step 24; the reflections with q + "
           "2 y/1000\n"
           "               in place of q for t0, the anticline round about (2700, 0); offset 0\n"
           "truth          first breaks as the file shows them: late where the record is late, trough and peak "
           "exchanged\n"
           "               where it is reversed, none for zero traces\n"
           "SPS            line 1, whole points; even shot points have two relation records\n";
}

/// Writes files to one folder and notes their sizes and checksums.
class DemoFolder
{
public:
    DemoFolder(const std::string& folder, std::string* lines, std::string* error)
        : _folder(folder), _lines(lines), _error(error)
    {
    }
    bool text(const std::string& name, const std::string& text)
    {
        OutputFile out(_folder + "/" + name);
        out.write(text);
        return finish(name, &out);
    }
    bool segy(const DemoFile& file, double noiseDeviation)
    {
        OutputFile out(_folder + "/" + file.name);
        writeDemoFile(file, noiseDeviation, &out);
        return finish(file.name, &out);
    }
    const std::string& checksums() const { return _checksums; }

private:
    bool finish(const std::string& name, OutputFile* out)
    {
        if (!out->commit(_error)) return false;
        char line[120];
        std::snprintf(line, sizeof line, "%08x %10lld %s\n", unsigned(out->crc()), static_cast<long long>(out->size()),
                      name.c_str());
        _checksums += line;
        *_lines += _folder + "/" + name + "\n";
        return true;
    }

    std::string _folder, _checksums;
    std::string *_lines, *_error;
};

static std::vector<std::string> titleLines(const std::string& what)
{
    return {"CLIENT: NONE                 COMPANY: NONE                CREW NO: NONE",
            "LINE: DEMO    AREA: SYNTHETIC    " + what,
            "ALL DATA ARE SYNTHETIC, MADE BY TREVIA DEMO; SEE DEMO.TXT BESIDE THIS FILE",
            "2 MS, METRES, AZIMUTH 60 DEGREES, COORDINATES AND ELEVATIONS IN 1/100 M",
            "RECEIVER STATION BYTES 173-174, SHOT POINT 17-20 AND 197-200",
            "CDP X 181-184, CDP Y 185-188, IN-LINE 189-192, CROSS-LINE 193-196",
            "STATICS IN BYTES 99-104 ARE NOT APPLIED"};
}

static DemoFile lineFile(const DemoWish& wish)
{
    DemoFile file;
    file.name = "demo.sgy";
    file.title = titleLines("SHOT RECORDS");
    file.traces = demoLine(wish.nShots, wish.withFaults);
    file.signal = [](const DemoTrace& t, int n, double* samples) { addLineSignal(t, 1.0, n, samples); };
    return file;
}

static DemoFile cdpFile(const DemoWish& wish)
{
    DemoFile file;
    file.name = "demo_cdp.sgy";
    file.title = titleLines("CDP GATHERS");
    file.sort = DemoByCdp;
    file.traces = demoCdpLine(wish.nShots);
    file.signal = [](const DemoTrace& t, int n, double* samples) { addLineSignal(t, cdpCoherent, n, samples); };
    return file;
}

static DemoFile etaFile()
{
    DemoFile file;
    file.name = "demo_eta.sgy";
    file.title = titleLines("ONE CDP, ANISOTROPIC");
    file.sort = DemoByCdp;
    file.nSamples = etaSamples;
    file.traces = demoEtaGather();
    file.signal = addEtaSignal;
    return file;
}

static DemoFile patchFile()
{
    DemoFile file;
    file.name = "demo_3d.sgy";
    file.title = titleLines("STACKED VOLUME");
    file.sort = DemoStacked;
    file.traces = demoPatch();
    file.signal = addPatchSignal;
    return file;
}

bool makeDemo(const DemoWish& wish, std::string* lines, std::string* error)
{
    std::error_code code;
    std::filesystem::create_directories(wish.folder, code);
    if (code) {
        *error = wish.folder + ": " + code.message();
        return false;
    }
    DemoFolder folder(wish.folder, lines, error);
    const DemoFile line = lineFile(wish), cdp = cdpFile(wish);
    DemoFile stacks = demoVelocityStacks(cdp, wish.noiseDeviation);
    stacks.name = "demo_cvs.sgy";
    stacks.title = titleLines("CONSTANT-VELOCITY STACKS");
    const bool ok = folder.segy(line, wish.noiseDeviation) && folder.segy(cdp, wish.noiseDeviation) &&
                    folder.segy(stacks, 0.0) && folder.segy(etaFile(), wish.noiseDeviation) &&
                    folder.segy(patchFile(), wish.noiseDeviation) && folder.text("demo.s01", spsSources(wish.nShots)) &&
                    folder.text("demo.r01", spsReceivers()) && folder.text("demo.x01", spsRelations(wish.nShots)) &&
                    folder.text("truth_first_breaks.txt", firstBreakText(line.traces)) &&
                    folder.text("truth_reflections.txt", reflectionText(line.traces)) &&
                    folder.text("truth_statics.txt", staticText(wish.nShots)) &&
                    folder.text("truth_bad_traces.txt", badTraceText(line.traces)) &&
                    folder.text("truth_eta.txt", etaText());
    if (!ok) return false;
    const std::string sums = "\nCRC-32, bytes and name of each file:\n" + folder.checksums();
    return folder.text("demo.txt", parameterText(wish) + sums);
}

int demoCommand(const std::vector<std::string>& arguments)
{
    DemoWish wish;
    std::string error, lines;
    if (!parseDemoArguments(arguments, &wish, &error)) {
        std::fprintf(stderr, "trevia demo: %s\n\n%s", error.c_str(), helpText);
        return 2;
    }
    if (wish.help) {
        std::fputs(helpText, stdout);
        return 0;
    }
    const bool ok = makeDemo(wish, &lines, &error);
    std::fputs(lines.c_str(), stdout);
    if (!ok) std::fprintf(stderr, "trevia demo: %s\n", error.c_str());
    return ok ? 0 : 1;
}
