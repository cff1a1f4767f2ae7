/// The sub-commands of the `trevia` program.
#ifndef SUBCOMMANDS_H
#define SUBCOMMANDS_H

#include <string>
#include <vector>

/// Runs the sub-command that the first argument names with the others; `--help` and `--version` answer
/// themselves. Returns the exit code: 2, with the list on standard error, where there is no such command.
int runTrevia(const std::vector<std::string>& arguments);

#endif
