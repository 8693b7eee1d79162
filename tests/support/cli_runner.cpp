#include "cli_runner.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace vardolin::testing {

namespace {

// Forks vardolin-cli with `args`, its standard output and error on `out` and `err`, its input
// empty. A command given no --home must never reach the real user's program home.
pid_t Spawn(const std::vector<std::string>& args, int out, int err) {
  std::vector<char*> argv{const_cast<char*>(VARDOLIN_BUILD_DIR "/app/cli/vardolin-cli")};
  for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  const pid_t pid = fork();
  if (pid == 0) {
    dup2(out, STDOUT_FILENO);
    dup2(err, STDERR_FILENO);
    dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
    ::unsetenv("VARDOLIN_HOME");
    ::setenv("XDG_DATA_HOME", "/tmp/vardolin-cli-tests-data-home", 1);
    execv(argv[0], argv.data());
    _exit(127);
  }
  return pid;
}

}  // namespace

CliResult RunCli(const std::vector<std::string>& args) {
  CliResult result;
  int out_pipe[2], err_pipe[2];
  if (pipe2(out_pipe, O_CLOEXEC) != 0 || pipe2(err_pipe, O_CLOEXEC) != 0) return result;
  const pid_t pid = Spawn(args, out_pipe[1], err_pipe[1]);
  close(out_pipe[1]);
  close(err_pipe[1]);
  // Both pipes are drained together: a child that fills one while we wait on the other would
  // never end.
  pollfd fds[2] = {{out_pipe[0], POLLIN, 0}, {err_pipe[0], POLLIN, 0}};
  std::string* sinks[2] = {&result.out, &result.err};
  int open_pipes = 2;
  while (open_pipes > 0 && poll(fds, 2, -1) > 0) {
    for (int i = 0; i < 2; ++i) {
      if (fds[i].fd < 0 || !(fds[i].revents & (POLLIN | POLLHUP | POLLERR))) continue;
      char buf[4096];
      const ssize_t n = read(fds[i].fd, buf, sizeof buf);
      if (n > 0) {
        sinks[i]->append(buf, static_cast<std::size_t>(n));
      } else {
        close(fds[i].fd);
        fds[i].fd = -1;
        --open_pipes;
      }
    }
  }
  int status = 0;
  if (pid > 0 && waitpid(pid, &status, 0) == pid && WIFEXITED(status))
    result.code = WEXITSTATUS(status);
  return result;
}

pid_t StartCli(const std::vector<std::string>& args, const std::filesystem::path& output) {
  const int fd = open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  const pid_t pid = Spawn(args, fd, fd);
  close(fd);
  return pid;
}

std::vector<std::string> CliHome::At(std::vector<std::string> args) const {
  args.insert(args.begin(), {"--home", home.string()});
  return args;
}

CliResult CliHome::NewCatalogue() const {
  return RunAt({"--answer", (dir / "arc").string(), "new-catalogue"});
}

}  // namespace vardolin::testing
