// vardolin-cli: the program without windows, for scripts.

#include <CLI/CLI.hpp>

#include <deque>
#include <iostream>
#include <vector>

#include "archive/catalogue_file.h"
#include "activation_commands.h"
#include "catalogue_commands.h"
#include "demo_home.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/program.h"
#include "foundation/program_home.h"
#include "foundation/settings/preferences.h"
#include "foundation/texts/text_catalogue.h"
#include "play_commands.h"
#include "shot_commands.h"
#include "terminal_ui.h"

int main(int argc, char** argv) {
  CLI::App app{"Vardolin without windows: manage Tomb Raider custom levels from scripts"};
  std::string home_option;
  std::vector<std::string> answers;
  app.add_option("--home", home_option, "program home (settings, language files, backups)");
  app.add_option("--answer", answers,
                 "answer to the next question, in order (yes, no, ok, cancel, a folder ...); "
                 "repeatable")
      ->take_all()
      ->expected(1);
  app.require_subcommand(0, 1);
  auto* new_cmd = app.add_subcommand("new-catalogue", "make a new, empty archive");
  std::string catalogue;
  auto* open_cmd = app.add_subcommand("open", "open a catalogue and make it the current one");
  open_cmd->add_option("CATALOGUE", catalogue, "catalogue file")->required();
  auto* list_cmd =
      app.add_subcommand("list", "list the levels of the current catalogue: code, name, CD, sizes");
  std::int32_t code = 0;
  auto* info_cmd = app.add_subcommand("info", "show one level of the current catalogue");
  info_cmd->add_option("CODE", code, "level code")->required();
  auto* play_cmd = app.add_subcommand(
      "play", "put a level into the editor folder, start the game, wait for its end");
  play_cmd->add_option("CODE", code, "level code")->required();
  // Level activation and the demo home.
  std::int32_t activate_code = 0;
  auto* activate_cmd =
      app.add_subcommand("activate", "put the level with CODE into the editor folder");
  activate_cmd->add_option("CODE", activate_code, "level code")->required();
  auto* reset_cmd = app.add_subcommand("reset", "put the base level back into the editor folder");
  auto* active_cmd =
      app.add_subcommand("active", "print the code of the level in the editor folder");
  auto* demo_cmd = app.add_subcommand(
      "demo", "make a demo home: a stand-in editor folder and an archive of three levels");
  auto* shots_cmd = app.add_subcommand("shots", "list one level's screenshots, oldest first");
  shots_cmd->add_option("CODE", code, "level code")->required();
  CLI11_PARSE(app, argc, argv);

  auto home = vardolin::ResolveHome(home_option);
  if (!vardolin::PrepareHome(home)) {
    std::cerr << "vardolin-cli: cannot use the home folder " << home << "\n";
    return 2;
  }
  if (app.get_subcommands().empty()) return 0;

  vardolin::TerminalUi ui(std::cin, std::cout,
                          std::deque<std::string>(answers.begin(), answers.end()),
                          /*interactive=*/false);
  vardolin::LinuxPlatform platform;
  vardolin::Program program(home, ui, platform);
  vardolin::LoadPreferences(program);
  if (!vardolin::LoadLanguage(program)) {
    std::cerr << "vardolin-cli: no language file in " << home << "\n";
    return 2;
  }
  vardolin::InstallCatalogueHooks(program);
  int rc = 0;
  if (*new_cmd)
    rc = vardolin::CmdNewCatalogue(program, std::cout, std::cerr);
  else if (*open_cmd)
    rc = vardolin::CmdOpen(program, catalogue, std::cout, std::cerr);
  else if (*list_cmd)
    rc = vardolin::CmdList(program, std::cout, std::cerr);
  else if (*info_cmd)
    rc = vardolin::CmdInfo(program, code, std::cout, std::cerr);
  else if (*play_cmd)
    rc = vardolin::CmdPlay(program, code, std::cout, std::cerr);
  else if (*activate_cmd)
    rc = vardolin::CmdActivate(program, activate_code, std::cout, std::cerr);
  else if (*reset_cmd)
    rc = vardolin::CmdReset(program, std::cout, std::cerr);
  else if (*active_cmd)
    rc = vardolin::CmdActive(program, std::cout, std::cerr);
  else if (*demo_cmd)
    rc = vardolin::CmdDemo(program, vardolin::FindStandinGame(), std::cout, std::cerr);
  else if (*shots_cmd)
    rc = vardolin::CmdShots(program, code, std::cout, std::cerr);
  // Writing the settings first saves a changed catalogue, as leaving the program does.
  vardolin::SavePreferences(program);
  return rc;
}
