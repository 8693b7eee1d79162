#pragma once
// Starting a child process with posix_spawn, with its standard streams, folder and process group
// set before it runs. Whatever the starting thread blocks or ignores, the child begins with every
// signal at its default and none blocked, as a program started from a shell would.

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vardolin {

// The child stays in our process group.
inline constexpr pid_t kOurGroup = -1;
// The child leads a process group of its own.
inline constexpr pid_t kOwnGroup = 0;

struct SpawnRequest {
  std::filesystem::path executable;
  // The argument vector: first the name the program is called by, then its arguments.
  std::vector<std::string> words;
  // Empty: ours.
  std::filesystem::path folder;
  // Standard input, output and error; -1 leaves ours.
  int in = -1, out = -1, err = -1;
  // kOurGroup, kOwnGroup, or the leader of the group the child joins.
  pid_t group = kOurGroup;
  // "NAME=value" entries; none: ours.
  std::optional<std::vector<std::string>> environment;
};

// The child's pid, or -1 with errno saying why it could not start.
pid_t SpawnChild(SpawnRequest request);

}  // namespace vardolin
