#pragma once
// vardolin-cli as scripts run it: a child process with its own arguments (no shell between),
// its standard output and error apart, and its exit code.

#include <sys/types.h>

#include <vector>

#include "temp_dir.h"

namespace vardolin::testing {

struct CliResult {
  int code = -1;  // the exit code; -1 when the process didn't end by itself
  std::string out;
  std::string err;
  // Where the command speaks: a report goes to standard output, a refusal to standard error.
  const std::string& Said() const { return code == 0 ? out : err; }
};

// Runs the built vardolin-cli with `args` and waits for it.
CliResult RunCli(const std::vector<std::string>& args);

// Starts vardolin-cli with `args` and doesn't wait: its standard output and error go to
// `output`. The caller ends it (kill and waitpid).
pid_t StartCli(const std::vector<std::string>& args, const std::filesystem::path& output);

// A program home of its own in a temporary folder, for commands run on it.
struct CliHome {
  TempDir dir;
  std::filesystem::path home = dir / "home";
  std::vector<std::string> At(std::vector<std::string> args) const;  // --home first
  CliResult RunAt(const std::vector<std::string>& args) const { return RunCli(At(args)); }
  // A new catalogue whose archive folder is dir/arc, as a first script would make it.
  CliResult NewCatalogue() const;
};

}  // namespace vardolin::testing
