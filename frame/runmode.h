/// How the process runs, decided from its arguments alone.
#ifndef RUNMODE_H
#define RUNMODE_H

#include <string>

enum class DataMode { SegyFile = 0, FlowTool = 1, Dataset = 2 };

struct RunMode {
    DataMode mode = DataMode::SegyFile;
    std::string cfile;  ///< the SEG-Y file of a plain start; empty without one
};

/// An argument that begins with "/tmp/pFile" is a flow's start; more than three arguments, the program's
/// name counted, are a start with parameters; otherwise the first one is an optional SEG-Y file.
RunMode chooseRunMode(int ac, char** av);

#endif
