#pragma once
// Bringing the program up behind the splash: the command line, the editor folder and its safe
// copy, the base level and the catalogue; and what a new version cleans up once.

#include "foundation/settings/preferences.h"

namespace vardolin {

class Program;

// Runs once per process; a later call (after a change of language) returns at once. Takes
// its course from what reading the settings found. The main window (program.main) is unloaded
// when start-up gives up; ClosingDown then tells why nothing else follows.
void StartUp(Program& program, const LoadResult& prefs);

}  // namespace vardolin
