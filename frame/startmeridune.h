/// The layer between the entry and the window.
#ifndef STARTMERIDUNE_H
#define STARTMERIDUNE_H

struct fbPickMenuStruct;
struct parmmenu;
struct velSemblanceStruct;

/// Keeps the arguments and the three records, all lent until the process ends. Opens no window. Returns 0.
int startMeridune(int ac, char** av, parmmenu* menu, velSemblanceStruct* velsemblance, fbPickMenuStruct* fbpickmenu);

/// Plain start on SEG-Y: opens the window, loads the file named in the record or asks for one, and runs
/// until the last window closes. Returns the exit status.
int aloneMeriduneSEGY();

#endif
