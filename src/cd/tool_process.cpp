#include "cd/tool_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <thread>

#include "foundation/platform/spawn_child.h"

extern char** environ;

namespace vardolin {

namespace {

// The environment of the tools: ours, with the run's own variables put over it.
std::vector<std::string> ToolEnvironment(
    const std::vector<std::pair<std::string, std::string>>& own) {
  std::vector<std::string> env;
  for (char** e = environ; e && *e; ++e) {
    const std::string entry = *e;
    bool replaced = false;
    for (const auto& [name, value] : own) replaced |= entry.rfind(name + "=", 0) == 0;
    if (!replaced) env.push_back(entry);
  }
  for (const auto& [name, value] : own) env.push_back(name + "=" + value);
  return env;
}

pid_t Spawn(const ToolCommand& command, const std::filesystem::path& folder, int in_fd, int out_fd,
            int err_fd, pid_t group, const std::vector<std::string>& env, std::string& error) {
  std::vector<std::string> words{command.program.string()};
  words.insert(words.end(), command.arguments.begin(), command.arguments.end());
  const pid_t pid = SpawnChild({.executable = command.program,
                                .words = std::move(words),
                                .folder = folder,
                                .in = in_fd,
                                .out = out_fd,
                                .err = err_fd,
                                .group = group,
                                .environment = env});
  if (pid < 0)
    error = "Error creating sub-process: \"" + command.program.string() + "\" (" +
            std::strerror(errno) + ")";
  return pid;
}

void EndGroup(pid_t group) {
  ::kill(-group, SIGTERM);
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(500);
  // The group is gone once no member answers; then there is no need for SIGKILL.
  while (::kill(-group, 0) == 0 && std::chrono::steady_clock::now() < deadline)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  ::kill(-group, SIGKILL);
}

int Reap(pid_t pid) {
  if (pid <= 0) return -1;
  int status = 0;
  while (::waitpid(pid, &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void CloseFd(int& fd) {
  if (fd >= 0) ::close(fd);
  fd = -1;
}

}  // namespace

ToolProcessEnd RunToolProcesses(const ToolProcessRun& run, std::string& error, int& exit_code) {
  exit_code = -1;
  int output[2] = {-1, -1}, data[2] = {-1, -1};
  if (::pipe2(output, O_CLOEXEC) != 0) {
    error = "Error creating Pipe ";
    return ToolProcessEnd::NotStarted;
  }
  const bool joined = !run.second.program.empty();
  if (joined && ::pipe2(data, O_CLOEXEC) != 0) {
    CloseFd(output[0]);
    CloseFd(output[1]);
    error = "Pipe creation is failed";
    return ToolProcessEnd::NotStarted;
  }
  int null_in = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  std::vector<std::string> env = ToolEnvironment(run.environment);
  pid_t first = Spawn(run.first, run.working_folder, null_in, joined ? data[1] : output[1],
                      output[1], 0, env, error);
  pid_t second = -1;
  if (first > 0 && joined) {
    second =
        Spawn(run.second, run.working_folder, data[0], output[1], output[1], first, env, error);
    if (second < 0) EndGroup(first);
  }
  CloseFd(null_in);
  CloseFd(output[1]);
  CloseFd(data[0]);
  CloseFd(data[1]);
  if (first < 0 || (joined && second < 0)) {
    Reap(first);
    CloseFd(output[0]);
    return ToolProcessEnd::NotStarted;
  }

  bool stopped = false;
  char buffer[4096];
  while (true) {
    pollfd readable{output[0], POLLIN, 0};
    const int r = ::poll(&readable, 1, 100);
    if (r < 0 && errno != EINTR) break;
    if (r > 0) {
      const ssize_t n = ::read(output[0], buffer, sizeof buffer);
      if (n < 0 && errno == EINTR) continue;
      if (n <= 0) break;
      if (run.on_output) run.on_output(std::string_view(buffer, static_cast<std::size_t>(n)));
    }
    if (run.keep_going && !run.keep_going()) {
      stopped = true;
      EndGroup(first);
      break;
    }
  }
  CloseFd(output[0]);
  const int first_code = Reap(first);
  const int second_code = Reap(second);
  // A writer fed by an image maker that gave up would burn a cut image: the pair fails with
  // either tool.
  exit_code = stopped ? -1 : first_code != 0 || !joined ? first_code : second_code;
  return stopped ? ToolProcessEnd::Stopped : ToolProcessEnd::Finished;
}

}  // namespace vardolin
