#pragma once
// What the benchmarks share to set up and to run their reference tools.

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

extern char** environ;

namespace vardolin::bench {

inline void Write(const std::filesystem::path& path, const std::string& bytes) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// Runs a tool (looked up on PATH) in `dir`, its output thrown away; true when it exits with 0.
inline bool Run(std::vector<std::string> args, const std::filesystem::path& dir = {}) {
  std::vector<char*> argv;
  for (auto& a : args) argv.push_back(a.data());
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  if (!dir.empty()) posix_spawn_file_actions_addchdir_np(&actions, dir.c_str());
  pid_t pid;
  const int started = posix_spawnp(&pid, argv[0], &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (started != 0) return false;
  int status = 0;
  return waitpid(pid, &status, 0) == pid && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// Wall-clock seconds of one run of `body`; `ok` turns false when it fails.
inline double Seconds(const std::function<bool()>& body, bool& ok) {
  const auto start = std::chrono::steady_clock::now();
  ok = body() && ok;
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace vardolin::bench
