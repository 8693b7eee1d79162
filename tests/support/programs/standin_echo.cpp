// A stand-in for outside programs in the process tests. It prints "cwd <folder>" and then
// "arg <argument>" for each argument, one a line, and acts on these arguments:
//   --lines N    prints "line 1" .. "line N" after the arguments
//   --crlf       ends its lines with CR LF
//   --out FILE   writes everything to FILE instead of standard output
//   --sleep MS   sleeps before exiting
//   --exit N     exits with code N
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

int main(int argc, char** argv) {
  FILE* out = stdout;
  const char* end = "\n";
  int lines = 0, sleep_ms = 0, code = 0;
  for (int i = 1; i + 1 < argc; ++i) {
    if (!std::strcmp(argv[i], "--out")) out = std::fopen(argv[i + 1], "w");
    if (!std::strcmp(argv[i], "--lines")) lines = std::atoi(argv[i + 1]);
    if (!std::strcmp(argv[i], "--sleep")) sleep_ms = std::atoi(argv[i + 1]);
    if (!std::strcmp(argv[i], "--exit")) code = std::atoi(argv[i + 1]);
  }
  for (int i = 1; i < argc; ++i)
    if (!std::strcmp(argv[i], "--crlf")) end = "\r\n";
  if (!out) return 99;
  char cwd[4096] = {};
  if (!getcwd(cwd, sizeof cwd)) return 98;
  std::fprintf(out, "cwd %s%s", cwd, end);
  for (int i = 1; i < argc; ++i) std::fprintf(out, "arg %s%s", argv[i], end);
  for (int i = 1; i <= lines; ++i) {
    std::fprintf(out, "line %d%s", i, end);
    std::fflush(out);
  }
  std::fflush(out);
  if (sleep_ms > 0) std::this_thread::sleep_for(std::chrono::milliseconds(sleep_ms));
  return code;
}
