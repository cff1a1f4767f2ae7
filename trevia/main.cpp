/// The `trevia` program: lines, datasets, tables and flows of the embedded host, without widgets.
#include "trevia/subcommands.h"

int main(int argc, char** argv)
{
    return runTrevia({argv + 1, argv + argc});
}
