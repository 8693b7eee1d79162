// A stand-in for the CD writer tool (wodim), for machines without a writer. Tests put it on
// PATH under the name "wodim", in a folder of their own, and tell it what to do through a file
// beside it:
//   wodim.script  printed to standard output byte for byte (CR and all), but for the lines
//                 "@sleep MS" (waits), "@image" (records the image now) and "@exit N", which
//                 may also stand right behind a CR
// It records, beside itself:
//   wodim.args    its arguments, one a line
//   wodim.pid     its process id and its process group
//   wodim.image   the image it was given: its last argument, or standard input for "-"
#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <thread>

namespace {

std::string Beside(const char* argv0, const char* name) {
  std::string self = argv0;
  const std::size_t slash = self.rfind('/');
  return (slash == std::string::npos ? std::string(".") : self.substr(0, slash)) + "/" + name;
}

void RecordImage(const std::string& source, const std::string& target) {
  std::ofstream out(target, std::ios::binary);
  if (source == "-") {
    out << std::cin.rdbuf();
    return;
  }
  std::ifstream in(source, std::ios::binary);
  if (in) out << in.rdbuf();
}

}  // namespace

int main(int argc, char** argv) {
  {
    std::ofstream args(Beside(argv[0], "wodim.args"));
    for (int i = 1; i < argc; ++i) args << argv[i] << "\n";
    std::ofstream pid(Beside(argv[0], "wodim.pid"));
    pid << getpid() << " " << getpgrp() << "\n";
  }
  const std::string last = argc > 1 ? argv[argc - 1] : "";
  const bool has_image = last == "-" || (!last.empty() && last[0] == '/');
  bool recorded = false;
  std::ifstream script_file(Beside(argv[0], "wodim.script"), std::ios::binary);
  const std::string script((std::istreambuf_iterator<char>(script_file)), {});
  int code = 0;
  std::size_t pos = 0;
  while (pos < script.size()) {
    // A piece ends at LF or CR, so that a directive may follow a line rewritten with CR.
    std::size_t end = script.find_first_of("\r\n", pos);
    end = end == std::string::npos ? script.size() : end + 1;
    const std::string line = script.substr(pos, end - pos);
    pos = end;
    if (line.rfind("@sleep ", 0) == 0) {
      std::fflush(stdout);
      std::this_thread::sleep_for(std::chrono::milliseconds(std::atoi(line.c_str() + 7)));
    } else if (line.rfind("@image", 0) == 0) {
      if (has_image) RecordImage(last, Beside(argv[0], "wodim.image"));
      recorded = true;
    } else if (line.rfind("@exit ", 0) == 0) {
      code = std::atoi(line.c_str() + 6);
    } else {
      std::fwrite(line.data(), 1, line.size(), stdout);
      std::fflush(stdout);
    }
  }
  if (has_image && !recorded) RecordImage(last, Beside(argv[0], "wodim.image"));
  return code;
}
