#pragma once
// Runs one console tool, or two joined by a pipe (the image maker feeding the writer), in a
// process group of their own, with everything they print on one pipe. A stop ends the whole
// group, so no tool is left writing to a disc nobody waits for.

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vardolin {

struct ToolCommand {
  std::filesystem::path program;
  std::vector<std::string> arguments;
};

struct ToolProcessRun {
  ToolCommand first;
  // When it has a program, it reads what `first` writes to standard output; `first`'s errors
  // and all of its own text go to the shared pipe.
  ToolCommand second;
  std::filesystem::path working_folder;
  std::vector<std::pair<std::string, std::string>> environment;
  // Each piece of text as it comes.
  std::function<void(std::string_view bytes)> on_output;
  // Asked after each piece and at least every 100 ms; false ends the tools.
  std::function<bool()> keep_going;
};

enum class ToolProcessEnd { Finished, Stopped, NotStarted };

// Runs until the tools have ended and their pipe is drained, or until `keep_going` says no. On
// NotStarted `error` says why. `exit_code` is the last tool's, -1 when it didn't end by itself.
ToolProcessEnd RunToolProcesses(const ToolProcessRun& run, std::string& error, int& exit_code);

}  // namespace vardolin
