/// `trevia segy`: what a SEG-Y file says of itself, as text.
#ifndef SEGYCOMMAND_H
#define SEGYCOMMAND_H

#include <string>
#include <vector>

/// `segy guess FILE` and `segy headers FILE`. Returns the exit code: 0; 1 when the file can't be read or isn't
/// SEG-Y, with file and reason on standard error; 2 for a wrong call, with the help there.
int segyCommand(const std::vector<std::string>& arguments);

#endif
