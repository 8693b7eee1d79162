#pragma once
// Levels that come as a setup program of their own: the program is found in the work folder
// and run, and what it wrote is collected. The editor folder first goes back to its own level and
// its files are noted, so that what then differs is exactly what the setup wrote: nothing else of
// the folder (the user's own maps and wads) is taken or undone.

#include <filesystem>
#include <functional>
#include <string>

#include "play/editor_snapshot.h"

namespace vardolin {

class Program;
class Label;
class ProgressBar;

// Where the setup's progress shows, and how the user stops a setup that doesn't end.
struct SetupRun {
  Label* label = nullptr;
  ProgressBar* bar = nullptr;
  // Asked again and again while the setup runs; true ends it (the run then fails).
  std::function<bool()> stop;
};

enum class SetupOutcome {
  NoSetup,    // the work folder holds a level, or no setup program: nothing happened
  Declined,   // the user didn't want the setup run
  Failed,     // run, but nothing collected; the editor folder was offered its restore
  Collected,  // the work folder now holds what the setup wrote: refresh the form
};

// The add-level form's step for setup programs: `destination` is the level info's
// SetupDestination (in and out); `installer_found` is set when a setup program was found.
// Dialog_NewLevel calls it as
//   RunSetupIfAny(program(), WorkFolder, Record-or-info.SetupDestination, InstallerFound,
//                 {&Label_Info, &ProgressBar1, stop_button_pressed});
// and refreshes its list on SetupOutcome::Collected.
SetupOutcome RunSetupIfAny(Program& program, const std::filesystem::path& work_folder,
                           std::string& destination, bool& installer_found, const SetupRun& run);
// The setup program among the .exe files of the folder; empty when none is.
std::filesystem::path FindSetupProgram(Program& program, const std::filesystem::path& folder);
// Runs the setup of `program_folder` and collects what it wrote into `target`. True when the
// target then holds a level. `before` (may be null) takes the editor folder as it stood just
// before the setup ran, whose changes a failed run is offered to undo.
bool RunSetupProgram(Program& program, const std::filesystem::path& program_folder,
                     const std::filesystem::path& target, std::string& destination,
                     const SetupRun& run, EditorSnapshot* before = nullptr);
// Deletes what setups leave beside a level's files: logs, uninstallers, links.
void CleanSetupFiles(Program& program, const std::filesystem::path& folder);
// Guesses from fixed places of the file where the setup writes; `kind` names the installer.
// Empty when it can't tell.
std::string DetectSetupDestination(Program& program, const std::filesystem::path& setup,
                                   std::string& kind);

}  // namespace vardolin
