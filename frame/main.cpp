/// The seismic display: meridune [FILE.sgy].
#include "frame/runmode.h"
#include "frame/startmeridune.h"
#include "tracedata/fbpickmenustruct.h"
#include "tracedata/menudefaults.h"
#include "tracedata/parmmenu.h"
#include "tracedata/velsemblancestruct.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

/// A single --help or --version prints and ends. Returns whether it was one.
static bool answerQuestion(int ac, char** av)
{
    const std::string_view argument = ac == 2 ? av[1] : "";
    if (argument == "--version") {
        std::puts("meridune " MERIDUNE_VERSION);
        return true;
    }
    if (argument != "--help") return false;
    std::puts("usage: meridune [FILE.sgy]\n"
              "Shows seismic traces. Without FILE the SEG-Y menu asks for one.\n"
              "  --help     this text\n"
              "  --version  the version");
    return true;
}

int main(int ac, char** av)
{
    if (answerQuestion(ac, av)) return 0;
    const RunMode run = chooseRunMode(ac, av);
    if (run.mode != DataMode::SegyFile) {
        std::fputs("meridune: starting in a flow, or with parameters, is not built yet\n", stderr);
        return 2;
    }
    // The records live until the process ends; every window refers to them.
    static auto menu = std::make_unique<parmmenu>();
    static auto velsemblance = std::make_unique<velSemblanceStruct>();
    static auto fbpickmenu = std::make_unique<fbPickMenuStruct>();
    if (run.cfile.size() >= sizeof menu->cfile) {
        std::fputs("meridune: the file's name is too long\n", stderr);
        return 2;
    }
    menu->moveup = 1;
    menu->dotrevia = int(run.mode);
    std::memcpy(menu->cfile, run.cfile.c_str(), run.cfile.size() + 1);
    setDefaults(velsemblance.get());
    setDefaults(fbpickmenu.get());
    setDisplayDefaults(menu.get());
    startMeridune(ac, av, menu.get(), velsemblance.get(), fbpickmenu.get());
    return aloneMeriduneSEGY();
}
