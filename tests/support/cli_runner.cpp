#include "cli_runner.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

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

// The child's output goes to files, where it can't block as it would on a full pipe.
int OpenOutput(const std::filesystem::path& file) {
  return open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
}

}  // namespace

CliResult RunCli(const std::vector<std::string>& args) {
  TempDir dir;
  const int out = OpenOutput(dir / "out"), err = OpenOutput(dir / "err");
  const pid_t pid = Spawn(args, out, err);
  close(out);
  close(err);
  CliResult result;
  int status = 0;
  if (pid > 0 && waitpid(pid, &status, 0) == pid && WIFEXITED(status))
    result.code = WEXITSTATUS(status);
  result.out = ReadFile(dir / "out");
  result.err = ReadFile(dir / "err");
  return result;
}

pid_t StartCli(const std::vector<std::string>& args, const std::filesystem::path& output) {
  const int fd = OpenOutput(output);
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
