#include "trevia/subcommands.h"

#include "trevia/democommand.h"
#include "trevia/segycommand.h"

#include <cstdio>

static const struct {
    const char* name;
    int (*run)(const std::vector<std::string>& arguments);
    const char* does;
} commands[] = {
    {"demo", demoCommand, "make a survey whose every answer is known"},
    {"segy", segyCommand, "say how a SEG-Y file is laid out, and what its trace headers hold"},
};

static void printList(std::FILE* out)
{
    std::fputs("Usage: trevia COMMAND [ARGUMENT ...]\n\nCommands; each tells more with --help:\n", out);
    for (const auto& command : commands) std::fprintf(out, "  %-10s %s\n", command.name, command.does);
}

int runTrevia(const std::vector<std::string>& arguments)
{
    const std::string name = arguments.empty() ? "" : arguments[0];
    if (name == "--help") {
        printList(stdout);
        return 0;
    }
    if (name == "--version") {
        std::puts("trevia " MERIDUNE_VERSION);
        return 0;
    }
    for (const auto& command : commands)
        if (name == command.name) return command.run({arguments.begin() + 1, arguments.end()});
    if (!name.empty()) std::fprintf(stderr, "trevia: no command \"%s\"\n\n", name.c_str());
    printList(stderr);
    return 2;
}
