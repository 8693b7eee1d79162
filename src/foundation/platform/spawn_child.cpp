#include "foundation/platform/spawn_child.h"

#include <signal.h>
#include <spawn.h>
#include <unistd.h>

#include <cerrno>

extern char** environ;

namespace vardolin {

namespace {

std::vector<char*> Pointers(std::vector<std::string>& strings) {
  std::vector<char*> pointers;
  for (std::string& s : strings) pointers.push_back(s.data());
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

pid_t SpawnChild(SpawnRequest request) {
  std::vector<char*> argv = Pointers(request.words);
  std::vector<char*> envp;
  if (request.environment) envp = Pointers(*request.environment);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (!request.folder.empty())
    posix_spawn_file_actions_addchdir_np(&actions, request.folder.c_str());
  const int fds[][2] = {
      {request.in, STDIN_FILENO}, {request.out, STDOUT_FILENO}, {request.err, STDERR_FILENO}};
  for (const auto& [from, to] : fds)
    if (from >= 0) posix_spawn_file_actions_adddup2(&actions, from, to);
  posix_spawnattr_t attr;
  posix_spawnattr_init(&attr);
  sigset_t none, all;
  sigemptyset(&none);
  sigfillset(&all);
  posix_spawnattr_setsigmask(&attr, &none);
  posix_spawnattr_setsigdefault(&attr, &all);
  short flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF;
  if (request.group != kOurGroup) {
    posix_spawnattr_setpgroup(&attr, request.group);
    flags |= POSIX_SPAWN_SETPGROUP;
  }
  posix_spawnattr_setflags(&attr, flags);
  pid_t pid = -1;
  const int rc = posix_spawn(&pid, request.executable.c_str(), &actions, &attr, argv.data(),
                             request.environment ? envp.data() : environ);
  posix_spawn_file_actions_destroy(&actions);
  posix_spawnattr_destroy(&attr);
  if (rc != 0 || pid <= 0) {
    errno = rc != 0 ? rc : ECHILD;
    return -1;
  }
  return pid;
}

}  // namespace vardolin
