// vardolin-cli: the program without windows, for scripts.

#include <CLI/CLI.hpp>

#include <iostream>

#include "foundation/program_home.h"

int main(int argc, char** argv) {
  CLI::App app{"Vardolin without windows: manage Tomb Raider custom levels from scripts"};
  std::string home_option;
  app.add_option("--home", home_option, "program home (settings, language files, backups)");
  CLI11_PARSE(app, argc, argv);

  auto home = vardolin::ResolveHome(home_option);
  if (!vardolin::PrepareHome(home)) {
    std::cerr << "vardolin-cli: cannot use the home folder " << home << "\n";
    return 2;
  }
  return 0;
}
