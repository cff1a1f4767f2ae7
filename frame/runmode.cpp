#include "frame/runmode.h"

#include <string_view>

RunMode chooseRunMode(int ac, char** av)
{
    constexpr std::string_view flowFile = "/tmp/pFile";
    const std::string_view first = ac > 1 ? av[1] : "";
    if (first.substr(0, flowFile.size()) == flowFile) return {DataMode::FlowTool, ""};
    if (ac > 3) return {DataMode::Dataset, ""};
    return {DataMode::SegyFile, std::string(first)};
}
