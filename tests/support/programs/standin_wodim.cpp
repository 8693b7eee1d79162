// A stand-in for the CD writer tool (wodim), for machines without a writer. Tests put it on
// PATH under the name "wodim", in a folder of their own, and tell it what to do in
// `wodim.script` beside it: printed byte for byte (CR and all), but for the lines "@sleep MS",
// "@image" (records the image now, else it is recorded at the end) and "@exit N", which may
// also stand right behind a CR. It records beside itself its arguments, one a line, in
// `wodim.args`; its process id and group in `wodim.pid`; and the image it was given (its last
// argument, or standard input for "-") in `wodim.image`.
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <thread>

int main(int argc, char** argv) {
  std::string self = argv[0];
  const std::string dir = self.substr(0, self.rfind('/') + 1);
  // Renamed into place: a test that stops the run once the file stands finds it whole.
  std::ofstream(dir + "wodim.pid~") << getpid() << " " << getpgrp() << "\n";
  std::rename((dir + "wodim.pid~").c_str(), (dir + "wodim.pid").c_str());
  std::ofstream args(dir + "wodim.args");
  for (int i = 1; i < argc; ++i) args << argv[i] << "\n";
  args.close();
  const std::string last = argc > 1 ? argv[argc - 1] : "";
  bool image_left = last == "-" || last.starts_with("/");
  auto record_image = [&] {
    std::ofstream out(dir + "wodim.image", std::ios::binary);
    std::ifstream file(last, std::ios::binary);
    out << (last == "-" ? std::cin.rdbuf() : file.rdbuf());
    image_left = false;
  };
  std::ifstream script_file(dir + "wodim.script", std::ios::binary);
  const std::string script((std::istreambuf_iterator<char>(script_file)), {});
  int code = 0;
  for (std::size_t pos = 0, end; pos < script.size(); pos = end) {
    end = std::min(script.find_first_of("\r\n", pos), script.size() - 1) + 1;
    const std::string piece = script.substr(pos, end - pos);
    if (piece.starts_with("@sleep "))
      std::this_thread::sleep_for(std::chrono::milliseconds(std::atoi(piece.c_str() + 7)));
    else if (piece.starts_with("@image"))
      image_left ? record_image() : void();
    else if (piece.starts_with("@exit "))
      code = std::atoi(piece.c_str() + 6);
    else
      std::fwrite(piece.data(), 1, piece.size(), stdout), std::fflush(stdout);
  }
  if (image_left) record_image();
  return code;
}
