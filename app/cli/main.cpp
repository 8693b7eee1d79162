// vardolin-cli: the program without windows, for scripts.
//
// Exit codes: 0 done, 1 the work was refused or failed (one line on standard error says why and
// names the file), 2 bad usage. Questions and the program's messages go to standard error, so
// that standard output holds only what a command reports.

#include <CLI/CLI.hpp>

#include <algorithm>
#include <deque>
#include <filesystem>
#include <functional>
#include <iostream>
#include <optional>
#include <vector>

#include "activation_commands.h"
#include "archive/catalogue_file.h"
#include "archive/leftovers.h"
#include "audio_commands.h"
#include "catalogue_commands.h"
#include "cd/cd_catalogue.h"
#include "cd/dialog_insert_cd.h"
#include "cd_commands.h"
#include "cd_make_commands.h"
#include "demo_home.h"
#include "editor_commands.h"
#include "equal_commands.h"
#include "export_commands.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/program.h"
#include "foundation/program_home.h"
#include "foundation/services/home_lock.h"
#include "foundation/services/time_zone.h"
#include "foundation/settings/preferences.h"
#include "foundation/texts/text_catalogue.h"
#include "level_commands.h"
#include "maintenance_commands.h"
#include "play_commands.h"
#include "savegame_commands.h"
#include "search_commands.h"
#include "setup_commands.h"
#include "shot_commands.h"
#include "terminal_ui.h"
#include "web_commands.h"

namespace {

// One subcommand: whether it changes the home (and so must hold it alone), and its work.
struct Command {
  CLI::App* app;
  bool changes_home;
  std::function<int(vardolin::Program&)> run;
};

}  // namespace

int main(int argc, char** argv) {
  vardolin::PinTimeZone();
  CLI::App app{"Vardolin without windows: manage Tomb Raider custom levels from scripts"};
  app.name("vardolin-cli");
  app.set_version_flag("--version", std::string("vardolin-cli ") + VARDOLIN_VERSION);
  std::string home_option;
  std::vector<std::string> answers;
  app.add_option("--home", home_option,
                 "program home (settings, language files, backups); else $VARDOLIN_HOME, else "
                 "$XDG_DATA_HOME/vardolin");
  app.add_option("--answer", answers,
                 "answer to the next question, in order (yes, no, ok, cancel, a folder ...); "
                 "one word each, repeatable")
      ->expected(1)
      ->allow_extra_args(false)
      ->take_all();
  bool yes_to_all = false;
  app.add_flag("-y,--yes", yes_to_all,
               "answer yes (or ok) to every question and take what every input proposes; "
               "--answer still answers the next question first");
  // --home, --answer and --yes may stand after the command too.
  app.fallthrough();
  app.require_subcommand(0, 1);

  std::vector<Command> commands;
  // A command may stand under another one ("urls add"): the innermost command given runs.
  auto add_under = [&](CLI::App* parent, const char* name, const char* what, bool changes_home,
                       std::function<int(vardolin::Program&)> run) {
    CLI::App* sub = parent->add_subcommand(name, what);
    commands.push_back({sub, changes_home, std::move(run)});
    return sub;
  };
  auto add = [&](const char* name, const char* what, bool changes_home,
                 std::function<int(vardolin::Program&)> run) {
    return add_under(&app, name, what, changes_home, std::move(run));
  };
  // The Ui is made once the command line is read; the setup command gives it an answer.
  vardolin::TerminalUi* terminal = nullptr;
  auto& out = std::cout;
  auto& err = std::cerr;
  std::string catalogue;
  std::int32_t code = 0;
  std::int32_t save_count = 15;
  bool json = false;
  auto code_option = [&](CLI::App* sub) {
    sub->add_option("CODE", code, "level code")->required();
  };
  auto json_flag = [&](CLI::App* sub) {
    sub->add_flag("--json", json, "print one JSON value instead of text");
  };

  std::string setup_editor, setup_archive;
  auto* setup =
      add("setup",
          "make the home ready as the window's first start does: find the editor, "
          "copy its files aside, build the base level, open or make the catalogue",
          true, [&](vardolin::Program& p) {
            return vardolin::CmdSetup(p, *terminal, setup_editor, setup_archive, out, err);
          });
  setup->add_option("EDITOR_FOLDER", setup_editor,
                    "the level editor's folder (else the settings' one, else the Wine "
                    "registry's)");
  setup->add_option("--archive", setup_archive,
                    "the folder of the levels, when a catalogue is made (else the one proposed)");
  add("new-catalogue", "make a new, empty archive (its folder: --answer FOLDER)", true,
      [&](vardolin::Program& p) { return vardolin::CmdNewCatalogue(p, out, err); });
  add("open", "open a catalogue and make it the current one", true,
      [&](vardolin::Program& p) { return vardolin::CmdOpen(p, catalogue, out, err); })
      ->add_option("CATALOGUE", catalogue, "catalogue file")
      ->required();
  json_flag(add("list", "list the levels of the current catalogue: code, name, CD, sizes", false,
                [&](vardolin::Program& p) { return vardolin::CmdList(p, json, out, err); }));
  auto* info =
      add("info", "show one level of the current catalogue", false,
          [&](vardolin::Program& p) { return vardolin::CmdInfo(p, code, json, out, err); });
  code_option(info);
  json_flag(info);
  std::string savegame_export, savegame_import;
  auto* savegames =
      add("savegames", "list a level's savegames, slots and archive; or move them out or in", false,
          [&](vardolin::Program& p) {
            if (!savegame_export.empty())
              return vardolin::CmdExportSavegames(p, code, savegame_export, out, err);
            if (!savegame_import.empty())
              return vardolin::CmdImportSavegames(p, code, savegame_import, out, err);
            return vardolin::CmdSavegames(p, code, json, out, err);
          });
  code_option(savegames);
  json_flag(savegames);
  auto* savegames_out =
      savegames->add_option("--export", savegame_export,
                            "copy all its savegames into ZIP (a name ending .zip) or FOLDER");
  savegames
      ->add_option("--import", savegame_import,
                   "take savegames into its slots from a ZIP or other archive, a FOLDER or "
                   "a single FILE")
      ->excludes(savegames_out);
  auto* archive = add("archive", "archive the oldest savegames of a level's slots", true,
                      [&](vardolin::Program& p) {
                        return vardolin::CmdArchiveSavegames(p, code, save_count, out, err);
                      });
  code_option(archive);
  archive->add_option("COUNT", save_count,
                      "how many of the oldest (default 15: all but the newest)");
  code_option(
      add("restore", "bring a level's newest archive set back into its slots", true,
          [&](vardolin::Program& p) { return vardolin::CmdRestoreSavegames(p, code, out, err); }));
  code_option(add("play", "put a level into the editor folder, start the game, wait for its end",
                  true,
                  [&](vardolin::Program& p) { return vardolin::CmdPlay(p, code, out, err); }));
  code_option(add("activate", "put the level with CODE into the editor folder", true,
                  [&](vardolin::Program& p) { return vardolin::CmdActivate(p, code, out, err); }));
  add("reset", "put the base level back into the editor folder", true,
      [&](vardolin::Program& p) { return vardolin::CmdReset(p, out, err); });
  json_flag(add("active", "print the code of the level in the editor folder", false,
                [&](vardolin::Program& p) { return vardolin::CmdActive(p, json, out, err); }));
  add("demo", "make a demo home: a stand-in editor folder and an archive of three levels", true,
      [&](vardolin::Program& p) {
        return vardolin::CmdDemo(p, vardolin::FindStandinGame(), out, err);
      });
  std::vector<std::string> editor_sources;
  int editor_language = 0;
  bool full_compare = false;
  auto* install_editor =
      add("install-editor", "install the level editor from its setup zips or a TRLE folder", true,
          [&](vardolin::Program& p) {
            return vardolin::CmdInstallEditor(p, editor_sources, editor_language, out, err);
          });
  install_editor->add_option("SOURCE", editor_sources, "the setup's zip files, or one TRLE folder")
      ->required();
  install_editor->add_option("--language", editor_language, "language row 0-5 (default 0)")
      ->check(CLI::Range(0, 5));
  auto* compare_editor =
      add("compare-editor", "compare the editor folder (TARGET) with its trusted copy (SOURCE)",
          false, [&](vardolin::Program& p) {
            return vardolin::CmdCompareEditor(p, editor_sources, full_compare, out, err);
          });
  compare_editor
      ->add_option("FOLDERS", editor_sources,
                   "SOURCE (the trusted copy) and TARGET (the folder examined)")
      ->expected(2);
  compare_editor->add_flag("--full", full_compare, "every file, not only root, wads and data");
  std::vector<std::string> wad_sources;
  add("import-wads", "bring wads, maps and script pieces into the level editor; prints the report",
      true, [&](vardolin::Program& p) { return vardolin::CmdImportWads(p, wad_sources, out, err); })
      ->add_option("ZIP_OR_FOLDER", wad_sources, "wad zips and folders of wad files")
      ->required();
  add("patch-engine", "patch the game for fast loading", true,
      [&](vardolin::Program& p) { return vardolin::CmdPatchEngine(p, out, err); });
  auto* shots =
      add("shots", "list one level's screenshots, oldest first", false,
          [&](vardolin::Program& p) { return vardolin::CmdShots(p, code, json, out, err); });
  code_option(shots);
  json_flag(shots);
  json_flag(add("equal", "list the levels that hold a level file of another level (equal levels)",
                false,
                [&](vardolin::Program& p) { return vardolin::CmdEqual(p, json, out, err); }));

  std::vector<std::string> sources;
  std::string level_name, level_note;
  auto* add_level =
      add("add", "add a level made of packages and folders; prints its new code", true,
          [&](vardolin::Program& p) {
            return vardolin::CmdAdd(p, *terminal, sources, level_name, level_note, out, err);
          });
  add_level
      ->add_option("PACKAGE", sources,
                   "zip or other archive, file or folder; several go "
                   "into one level")
      ->required();
  add_level->add_option("--name", level_name, "the level's name (else the package's name)");
  add_level->add_option("--note", level_note, "the level's one-line note");
  code_option(add("compile",
                  "compile the level sources (.tom) of a stored level with the editor's "
                  "converter and store the compiled levels",
                  true,
                  [&](vardolin::Program& p) { return vardolin::CmdCompile(p, code, out, err); }));
  auto* files =
      add("files", "list a level's stored files, their sizes and whether packed", false,
          [&](vardolin::Program& p) { return vardolin::CmdFiles(p, code, json, out, err); });
  code_option(files);
  json_flag(files);

  std::string url, file, name;
  std::int32_t url_type = 0;
  auto* download =
      add("download", "fetch URL into FILE, with its progress on the terminal", false,
          [&](vardolin::Program& p) { return vardolin::CmdDownload(p, url, file, out, err); });
  download->add_option("URL", url, "web address")->required();
  download->add_option("FILE", file, "where the file goes")->required();
  auto* urls =
      add("urls", "list the web addresses of the URL list", false,
          [&](vardolin::Program& p) { return vardolin::CmdUrls(p, url_type, json, out, err); });
  urls->add_option("--type", url_type, "only this category (1-5, 8)");
  json_flag(urls);
  auto* urls_add = add_under(
      urls, "add", "add your own web address to the list", true,
      [&](vardolin::Program& p) { return vardolin::CmdUrlsAdd(p, name, url, url_type, out, err); });
  urls_add->add_option("NAME", name, "what the list shows")->required();
  urls_add->add_option("URL", url, "the address")->required();
  urls_add->add_option("--type", url_type, "category (1-5, 8)")->required();
  add_under(urls, "update", "fetch the newest list and merge it with your own entries", true,
            [&](vardolin::Program& p) { return vardolin::CmdUrlsUpdate(p, url, out, err); })
      ->add_option("--from", url, "fetch from this address instead of the program's own");
  add_under(urls, "merge", "merge a list file with your own entries, as an update does", true,
            [&](vardolin::Program& p) { return vardolin::CmdUrlsMerge(p, file, out, err); })
      ->add_option("FILE", file, "a urllist.bin")
      ->required();
  vardolin::SearchCommandOptions search_options;
  auto* search =
      add("search", "find level packages by words in their paths or inside zips", false,
          [&](vardolin::Program& p) { return vardolin::CmdSearch(p, search_options, out, err); });
  search->add_option("WORDS", search_options.words, "words that must all stand in the path");
  search->add_option("--in", search_options.folder,
                     "folder to search (else the last one searched, else your downloads)");
  search->add_flag("--inside-zips", search_options.inside_zips,
                   "a zip is found too when one entry name holds all the words");
  search->add_option("--kind", search_options.kind,
                     "0 level packages (.zip, .rar), 1 setup programs (.exe), 2 all files");
  search->add_option("--days", search_options.days, "the files of the last N days instead");
  bool shots_flag = false, keep_files = false;
  auto* export_level =
      add("export", "write a level with its savegames into a zip that adding takes back", true,
          [&](vardolin::Program& p) {
            return vardolin::CmdExport(p, code, file, shots_flag, out, err);
          });
  code_option(export_level);
  export_level->add_option("ZIP", file, "the zip file to write")->required();
  export_level->add_flag("--shots", shots_flag, "put the level's screenshots in too");
  auto* remove =
      add("remove", "take a level out of the archive, and its files off the disk", true,
          [&](vardolin::Program& p) { return vardolin::CmdRemove(p, code, keep_files, out, err); });
  code_option(remove);
  remove->add_flag("--keep-files", keep_files, "leave the level's folder on the disk");
  std::string author_name, author_note;
  std::vector<std::string> author_emails, author_sites;
  CLI::App* author = nullptr;
  author = add("author", "show or change who made a level and how to reach them", true,
               [&](vardolin::Program& p) {
                 vardolin::AuthorChanges changes;
                 if (author->count("--name")) changes.name = author_name;
                 if (author->count("--note")) changes.note = author_note;
                 if (author->count("--email")) changes.emails = author_emails;
                 if (author->count("--site")) changes.sites = author_sites;
                 return vardolin::CmdAuthor(p, code, changes, out, err);
               });
  code_option(author);
  author->add_option("--name", author_name, "the author's name");
  author->add_option("--email", author_emails, "an e-mail address; repeat for more (replaces all)");
  author->add_option("--site", author_sites, "a web site; repeat for more (replaces all)");
  author->add_option("--note", author_note, "the author's note");
  bool all_levels = false, restore_language = false;
  std::optional<std::int32_t> language_code;
  auto* language = add("language", "force your own language on a level or on all, or undo it", true,
                       [&](vardolin::Program& p) {
                         return vardolin::CmdLanguage(p, language_code, restore_language, out, err);
                       });
  auto* language_one = language->add_option("CODE", language_code, "level code");
  language->add_flag("--all", all_levels, "every level on hard disk")->excludes(language_one);
  language->add_flag("--restore", restore_language, "give the level its own language back");
  language->callback([&] {
    if (!all_levels && !language_code)
      throw CLI::ValidationError("language", "name a level CODE or --all");
  });
  bool restore_fast = false, restore_full = false, backup_full = false;
  auto* restore_editor = add("restore-editor",
                             "take the level out of the editor folder (--fast) "
                             "or restore its configuration from the backup (--full)",
                             true, [&](vardolin::Program& p) {
                               return vardolin::CmdRestoreEditor(p, restore_full, out, err);
                             });
  auto* fast_flag = restore_editor->add_flag("--fast", restore_fast, "take the level out");
  restore_editor
      ->add_flag("--full", restore_full,
                 "put back the editor's files; files of yours go to a dated folder of the home")
      ->excludes(fast_flag);
  restore_editor->callback([&] {
    if (!restore_fast && !restore_full)
      throw CLI::ValidationError("restore-editor", "give --fast or --full");
  });
  add("backup-editor",
      "make the full backup of the editor folder afresh (confirm the folder: "
      "--answer yes)",
      true, [&](vardolin::Program& p) { return vardolin::CmdBackupEditor(p, out, err); })
      ->add_flag("--full", backup_full, "the whole editor folder (the only kind made here)")
      ->required();
  std::string archive_folder, first_cd;
  CLI::App* recover =
      add("recover-archive",
          "make a new catalogue from the level folders of FOLDER (and of level CDs, with --cd; "
          "answer the questions for the next CDs with --answer)",
          true, [&](vardolin::Program& p) {
            return vardolin::CmdRecoverArchive(p, archive_folder, first_cd, out, err);
          });
  recover->add_option("FOLDER", archive_folder, "the folder holding LEVEL_0001 ...")->required();
  recover->add_option("--cd", first_cd,
                      "the folder of the first level CD's levels, whose name ends in 1 "
                      "(Levels1); the next CDs are read from Levels2, Levels3 ...");
  add("move-archive", "move the archive's level folders to FOLDER", true,
      [&](vardolin::Program& p) { return vardolin::CmdMoveArchive(p, archive_folder, out, err); })
      ->add_option("FOLDER", archive_folder, "the new folder of the archive")
      ->required();
  json_flag(add("sizes", "recount every level's sizes and print the archive's totals", true,
                [&](vardolin::Program& p) { return vardolin::CmdSizes(p, json, out, err); }));
  std::vector<std::filesystem::path> audio_files;
  std::filesystem::path audio_out;
  int audio_target = 2;
  vardolin::EncoderSettings encoder;
  CLI::App* audio = app.add_subcommand("audio", "tell what audio files are, or convert them");
  audio->require_subcommand(1);
  add_under(audio, "info", "kind and form of each file, and an MP3's seconds", false,
            [&](vardolin::Program& p) { return vardolin::CmdAudioInfo(p, audio_files, out, err); })
      ->add_option("FILE", audio_files, "audio files")
      ->required();
  CLI::App* convert = add_under(audio, "convert", "convert copies of the files into a folder",
                                false, [&](vardolin::Program& p) {
                                  return vardolin::CmdAudioConvert(
                                      p, audio_target, encoder, audio_files, audio_out, out, err);
                                });
  convert
      ->add_option("--to", audio_target,
                   "1 wave 44100 Hz 16 bit stereo, 2 the game's music, "
                   "3 the game's samples, 5 MP3")
      ->required()
      ->check(CLI::IsMember({1, 2, 3, 5}));
  convert->add_option("--bitrate", encoder.Mp3BitRate, "MP3 kbit/s (48)");
  convert->add_flag_callback(
      "--mono", [&] { encoder.Mp3Channels = 1; }, "MP3 in mono (so by default)");
  convert->add_flag_callback(
      "--stereo", [&] { encoder.Mp3Channels = 2; }, "MP3 in stereo");
  convert->add_option("--rate", encoder.Mp3Frequency, "MP3 rate in Hz (the source's)");
  convert->add_option("FILE", audio_files, "audio files")->required();
  convert->add_option("--out", audio_out, "target folder")->required();

  // Level CDs and CD images: what the burn engine reports of an image here; planning, making,
  // burning and attaching them stand under the same group.
  CLI::App* cd = app.add_subcommand("cd", "level CDs and CD images");
  cd->require_subcommand(1);
  std::string cd_kind, cd_image;
  auto* cd_report = add_under(
      cd, "report", "list the files of an ISO image", false,
      [&](vardolin::Program& p) { return vardolin::CmdCdReport(p, cd_kind, cd_image, out, err); });
  cd_report
      ->add_option("KIND", cd_kind,
                   "FlatList (one path a line), TreeList (indented under their folders) or "
                   "ReferenceList (path, size and date)")
      ->required()
      ->check(CLI::IsMember({"FlatList", "TreeList", "ReferenceList"}, CLI::ignore_case));
  cd_report->add_option("IMAGE", cd_image, "the ISO image file")->required();
  // Making level CDs: the plan, the CDs as image files, or burned.
  int cd_mb = 650, cd_speed = 4;
  std::string cd_folder;
  const auto cd_mb_option = [&](CLI::App* sub) {
    sub->add_option("--mb", cd_mb, "the discs' capacity in megabytes: 650, 700 or 4700 (DVD)")
        ->check(CLI::IsMember({650, 700, 4700}));
  };
  cd_mb_option(
      add_under(cd, "plan", "tell which levels still on disk go on which new CD", false,
                [&](vardolin::Program& p) { return vardolin::CmdCdPlan(p, cd_mb, out, err); }));
  auto* cd_image_cmd = add_under(
      cd, "image",
      "write each planned CD as an ISO image into FOLDER and mark its levels; a level's files "
      "leave the disk once they were found whole in its image",
      true, [&](vardolin::Program& p) {
        return vardolin::CmdCdImage(p, *terminal, cd_folder, cd_mb, out, err);
      });
  cd_image_cmd->add_option("FOLDER", cd_folder, "where the images go")->required();
  cd_mb_option(cd_image_cmd);
  auto* cd_burn = add_under(
      cd, "burn",
      "burn the planned CDs on the first writer (answer its questions with --answer or --yes)",
      true,
      [&](vardolin::Program& p) { return vardolin::CmdCdBurn(p, cd_speed, cd_mb, out, err); });
  cd_burn->add_option("--speed", cd_speed, "burning speed, 2 to 64 (4)")->check(CLI::Range(2, 64));
  cd_mb_option(cd_burn);
  std::int32_t cd_number = 0;
  std::string cd_where;
  CLI::App* cd_attach = add_under(
      cd, "attach", "tell where CD N of the archive is: an ISO image file, or a disc's mount point",
      true, [&](vardolin::Program& p) {
        return vardolin::CmdCdAttach(p, cd_number, cd_where, out, err);
      });
  cd_attach->add_option("N", cd_number, "the CD's number")->required();
  cd_attach->add_option("IMAGE|MOUNTPOINT", cd_where, "image file or folder")->required();

  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForAllHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForVersion& e) {
    return app.exit(e);
  } catch (const CLI::ParseError& e) {
    err << "vardolin-cli: " << e.what() << " (vardolin-cli --help tells the commands)\n";
    return 2;
  }
  if (app.get_subcommands().empty()) {
    err << app.help();
    return 2;
  }
  CLI::App* chosen = app.get_subcommands().front();
  while (!chosen->get_subcommands().empty()) chosen = chosen->get_subcommands().front();
  const Command& command = *std::find_if(commands.begin(), commands.end(),
                                         [&](const Command& c) { return c.app == chosen; });

  const std::filesystem::path home = vardolin::ResolveHome(home_option);
  // A command that only reads never makes a home: a mistyped --home would leave a stray one.
  std::error_code ec;
  // Savegames taken in or out go through the home's work folders, as the archive command's do.
  const bool changes_home =
      command.changes_home || !savegame_import.empty() || !savegame_export.empty();
  if (!changes_home && !std::filesystem::is_directory(home, ec)) {
    err << "vardolin-cli: there is no program home " << home.string()
        << " (give it with --home DIR or VARDOLIN_HOME)\n";
    return 1;
  }
  if (!vardolin::PrepareHome(home)) {
    err << "vardolin-cli: cannot make the program home " << home.string() << "\n";
    return 1;
  }
  vardolin::HomeLock lock;
  if (changes_home && !lock.Acquire(home, "vardolin-cli")) {
    err << "vardolin-cli: " << lock.Error() << "\n";
    return 1;
  }

  vardolin::TerminalUi ui(std::cin, err, std::deque<std::string>(answers.begin(), answers.end()),
                          /*interactive=*/false, yes_to_all);
  terminal = &ui;
  vardolin::LinuxPlatform platform;
  vardolin::Program program(home, ui, platform);
  vardolin::LoadPreferences(program);
  // Opening a catalogue may refresh a size and save at once; beside a window that holds the home
  // that save would race the window's own. A reading command keeps such a change in memory.
  if (!changes_home) program.prefs.AutoSave = false;
  if (!vardolin::LoadLanguage(program)) {
    err << "vardolin-cli: no language file in " << home.string() << "\n";
    return 1;
  }
  vardolin::InstallCatalogueHooks(program);
  vardolin::InstallCdLevels(program);
  vardolin::InstallCdCatalogue(program);
  // Under the home's lock no other run is at work: whatever a killed one left can go now.
  if (changes_home) vardolin::ClearLeftovers(program);
  const int rc = command.run(program);
  // Writing the settings first saves a changed catalogue, as leaving the program does. A reading
  // command leaves them alone: the window that may hold the home writes them.
  if (changes_home) vardolin::SavePreferences(program);
  return rc;
}
