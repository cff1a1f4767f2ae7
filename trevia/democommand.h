/// The sub-command `demo`: makes the demo survey.
#ifndef DEMOCOMMAND_H
#define DEMOCOMMAND_H

#include <string>
#include <vector>

/// What the user asked for.
struct DemoWish {
    std::string folder = "demo";
    double noiseDeviation = 0.02;
    int nShots = 60;
    bool withFaults = true;
    bool help = false;
};

/// Reads the arguments behind `demo`. False with *error saying what is wrong, and *wish as it was.
bool parseDemoArguments(const std::vector<std::string>& arguments, DemoWish* wish, std::string* error);

/// Writes all files to the folder, which is made when it is missing. `line` gets a line for each file.
/// False with *error; files written until then stay.
bool makeDemo(const DemoWish& wish, std::string* lines, std::string* error);

/// Runs the sub-command. Returns the exit code: 0, 1 for a file that can't be written, 2 for bad arguments.
int demoCommand(const std::vector<std::string>& arguments);

#endif
