// A stand-in for Wine, given to Vardolin through VARDOLIN_WINE: it "loads" a Windows program the
// way the real loader does toward us, and leaves a server process running behind it as Wine
// does, so that a test can show that the end of the game is seen all the same.
//
//   standin_wine PROGRAM.exe [ARGS...]
//
// PROGRAM.exe is a stand-in Windows program: "MZ" and a line end, then on the next line the path
// of the native program to run in its place. That program runs with ARGS, in the current folder,
// as a child of the loader; the loader waits for it and exits with its exit code.
//
// The server: before the program starts, a child of the loader leaves its session and sleeps
// for $STANDIN_WINESERVER_SECONDS (default 30) seconds. Its process id is written to
// "standin_wineserver.pid" in the current folder, so that the test can end it.
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace {

std::string NativeProgram(const char* windows_program) {
  std::ifstream in(windows_program, std::ios::binary);
  std::string head, target;
  if (!std::getline(in, head) || head.rfind("MZ", 0) != 0) return {};
  std::getline(in, target);
  if (!target.empty() && target.back() == '\r') target.pop_back();
  return target;
}

void StartServer() {
  const char* env = std::getenv("STANDIN_WINESERVER_SECONDS");
  const unsigned seconds = env && *env ? static_cast<unsigned>(std::atoi(env)) : 30;
  const pid_t server = fork();
  if (server == 0) {
    setsid();
    signal(SIGHUP, SIG_IGN);
    // Like a daemon, it lets go of the loader's output, or a reader of it would wait for it.
    const int null = open("/dev/null", O_RDWR);
    for (int fd = 0; fd < 3; ++fd) dup2(null, fd);
    sleep(seconds);
    _exit(0);
  }
  if (server > 0) std::ofstream("standin_wineserver.pid") << server << "\n";
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "standin_wine: no program given\n");
    return 126;
  }
  const std::string target = NativeProgram(argv[1]);
  if (target.empty()) {
    std::fprintf(stderr, "standin_wine: %s is not a stand-in Windows program\n", argv[1]);
    return 126;
  }
  StartServer();
  std::vector<char*> args = {const_cast<char*>(target.c_str())};
  for (int i = 2; i < argc; ++i) args.push_back(argv[i]);
  args.push_back(nullptr);
  const pid_t game = fork();
  if (game == 0) {
    execv(target.c_str(), args.data());
    _exit(127);
  }
  if (game < 0) return 126;
  int status = 0;
  while (waitpid(game, &status, 0) < 0)
    if (errno != EINTR) return 126;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
