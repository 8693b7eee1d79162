#include "demo_home.h"
#include "demo_home_editor.h"

#include "demo_files.h"
#include "demo_home_play.h"
#include "demo_music.h"
#include "demo_packages.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <ostream>
#include <random>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "archive/catalogue_sizes.h"
#include "archive/editor_backup.h"
#include "archive/level_store.h"
#include "archive/store_conversion.h"
#include "editor/find_editor.h"
#include "foundation/dialogs/message_styles.h"
#include "foundation/pictures/picture_file.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/native_programs.h"
#include "foundation/services/paths.h"
#include "foundation/settings/preferences.h"
#include "foundation/text_ids.h"
#include "play/activation.h"
#include "startup/base_level.h"
#include "terminal_ui.h"
#include "web/zip_layer.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

// The questions that making the home asks are the ones the first start would ask: the demo
// gives the answer a new user would give (yes, a full backup, the archive folder) without
// printing a question nobody can answer, and prints every message, so that a failure shows why.
class DemoUi : public TerminalUi {
 public:
  DemoUi(std::ostream& out, fs::path archive_folder)
      : TerminalUi(none_, out, {}, false), out_(out), archive_(std::move(archive_folder)) {}
  int AskUser(const std::string& text, int style, const std::string& title) override {
    const std::vector<int> buttons = ButtonsOfStyle(style);
    if (buttons.size() == 1) out_ << text << "\n";
    for (int wanted : {msg::kYes, msg::kOk})
      if (std::find(buttons.begin(), buttons.end(), wanted) != buttons.end()) return wanted;
    return buttons.front();
  }
  std::string AskFolder(const std::string&, const std::string&) override {
    return archive_.string();
  }

 private:
  std::istringstream none_;
  std::ostream& out_;
  fs::path archive_;
};

// The editor folder of a fresh install, as the program's texts name its files. The game and
// the editor's two tools are the native stand-in game; the rest are small text files.
bool BuildEditorFolder(const fs::path& folder, const fs::path& game, std::ostream& err) {
  static const char* const kSubfolders[] = {
      "audio", "data",   "graphics", "graphics/textures", "graphics/wads", "maps", "objects", "pix",
      "rooms", "script", "sound",    "sound/samples",     "text"};
  static const char* const kFiles[] = {"script.exe",
                                       "script.dat",
                                       "english.dat",
                                       "readme.txt",
                                       "winroomedit.ini",
                                       "data/title.tr4",
                                       "data/tut1.tr4",
                                       "script/script.txt",
                                       "script/english.txt",
                                       "graphics/wads/tut1.wad",
                                       "graphics/wads/tut1.was",
                                       "maps/tut1.prj",
                                       "audio/044.wav",
                                       "audio/105.wav",
                                       "sound/samples/step.wav"};
  std::error_code ec;
  for (const char* sub : kSubfolders) fs::create_directories(folder / sub, ec);
  for (const char* rel : kFiles) {
    const std::string name = rel;
    const bool program = name.ends_with(".exe");
    if (!WriteBytes(folder / rel, (program ? "MZ" : "") + ("stand-in " + name + "\r\n"))) {
      err << "vardolin-cli: cannot write " << (folder / rel) << "\n";
      return false;
    }
  }
  for (const char* name : {"tomb4.exe", "tom2pc.exe", "winroomedit.exe"}) {
    fs::copy_file(game, folder / name, fs::copy_options::overwrite_existing, ec);
    if (ec) {
      err << "vardolin-cli: cannot copy the stand-in game to " << (folder / name) << ": "
          << ec.message() << "\n";
      return false;
    }
  }
  // The script and its texts as the editor ships them, for the wad import to merge into.
  if (!WriteBytes(folder / "script/script.txt",
                  "; the level editor's script\r\n[PCExtensions]\r\nLevel=.TR4\r\n\r\n"
                  "[Level]\r\nName=Playable Tutorial Level\r\nLevel=DATA\\TUT1,101\r\n") ||
      !WriteBytes(folder / "script/english.txt",
                  "[Language]\r\nEnglish\r\n[Strings]\r\nPlayable Tutorial Level\r\n"
                  "Lara's Home\r\n[PSXStrings]\r\n")) {
    err << "vardolin-cli: cannot write the editor's script\n";
    return false;
  }
  if (!WriteLoadPicture(folder / "load.bmp", 200, 160, 90)) {
    err << "vardolin-cli: cannot write the editor's loading picture\n";
    return false;
  }
  return true;
}

struct DemoLevel {
  const char* name;
  const char* note;
  const char* author;
  // Files of the level's files folder ('/'-separated below it) and their sizes.
  std::vector<std::pair<std::string, std::size_t>> files;
  std::uint8_t tint[3];
  bool compressed;
};

const std::vector<DemoLevel>& DemoLevels() {
  static const std::vector<DemoLevel> levels = {
      {"Demo: The Plain Tomb",
       "A level kept plain in the archive: its files are copied into the editor folder as they "
       "stand.",
       "Vardolin demo",
       {{"plaintomb.tr4", 400000},
        {"script.dat", 2000},
        {"english.dat", 6000},
        {"110.wav", 30000},
        {"plaintomb.txt", 500}},
       {220, 180, 60},
       false},
      {"Demo: The Packed Vault",
       "A level compressed in the archive: its .zl files are expanded on the way in and its "
       "loading picture is kept as a JPEG. Its author wrote it in German: Levels > Language of "
       "level puts your own language in its place.",
       "Vardolin demo",
       {{"vault.tr4", 600000},
        {"vault2.tr4", 300000},
        {"script.dat", 2000},
        {"german.dat", 6000},
        {"vault.txt", 500}},
       {80, 200, 220},
       true},
      {"Demo: The Media Temple",
       "A media level: it brings its media files (*.mcf, media.mpf) and a store folder, and is "
       "played through the media player.",
       "Vardolin demo",
       {{"temple.tr4", 500000},
        {"script.dat", 2000},
        {"english.dat", 6000},
        {"intro.mcf", 40000},
        {"outro.mcf", 20000},
        {"media.mpf", 1000},
        {"store/clip01.bin", 50000},
        {"store/clip02.bin", 50000}},
       {200, 80, 160},
       false},
  };
  return levels;
}

// Adds one level as the add-level flow leaves it: its record in the table, its folders, its
// files, then the store's conversion when the level is to be kept compressed.
bool AddDemoLevel(Program& program, const DemoLevel& level, unsigned seed, std::ostream& err) {
  LevelRecord record;
  record.Code = NextLevelCode(program.catalogue);
  record.Name = level.name;
  record.Note = level.note;
  record.AuthorName = level.author;
  program.catalogue.levels.push_back(record);
  program.catalogue.header.LevelCount = static_cast<std::int32_t>(program.catalogue.levels.size());
  CatalogueChanged(program);

  const fs::path folder = GetLevelFolder(program, record.Code, false);
  if (!CreateLevelFolders(program, folder)) {
    err << "vardolin-cli: cannot make the folders of " << level.name << " in " << folder << "\n";
    return false;
  }
  const fs::path files = GetLevelFilesFolder(program, record.Code, false);
  for (const auto& [name, size] : level.files)
    // A track is a real wave, so that the level goes through every audio step of the program.
    if (!WriteBytes(files / name, name.ends_with(".wav") ? DemoTune() : LevelBytes(seed++, size))) {
      err << "vardolin-cli: cannot write " << (files / name) << "\n";
      return false;
    }
  if (!WriteLoadPicture(files / "load.bmp", level.tint[0], level.tint[1], level.tint[2])) {
    err << "vardolin-cli: cannot write the loading picture of " << level.name << "\n";
    return false;
  }
  if (FileExists(files / "media.mpf") && !WriteDemoMusic(program, files)) {
    err << "vardolin-cli: cannot encode the music of " << level.name << " (is lame installed?)\n";
    return false;
  }
  if (level.compressed && !ConvertLevelStore(program, record.Code, true, nullptr, nullptr)) {
    err << "vardolin-cli: cannot compress the files of " << level.name << "\n";
    return false;
  }
  UpdateLevelSizes(program, record.Code);
  return true;
}

}  // namespace

fs::path FindStandinGame() {
  std::error_code ec;
  std::vector<fs::path> candidates;
  if (const char* env = std::getenv("VARDOLIN_STANDINS"); env && *env)
    candidates.push_back(fs::path(env) / "standin_game");
  // The build puts this program in <build>/app/cli and the stand-ins in <build>/standins.
  const fs::path exe = fs::read_symlink("/proc/self/exe", ec);
  if (!ec)
    candidates.push_back(exe.parent_path().parent_path().parent_path() / "standins" /
                         "standin_game");
#ifdef VARDOLIN_STANDINS_DIR
  candidates.push_back(fs::path(VARDOLIN_STANDINS_DIR) / "standin_game");
#endif
  for (const fs::path& c : candidates)
    if (fs::is_regular_file(c, ec)) return c;
  return {};
}

int CmdDemo(Program& program, const fs::path& game, std::ostream& out, std::ostream& err) {
  const fs::path home = fs::absolute(program.Home());
  const fs::path settings = JoinFragment(home, program.GetText(text::SettingsFileName));
  if (FileExists(settings)) {
    err << "vardolin-cli: " << home << " is in use already (it holds " << settings.filename()
        << "); the demo is made in a new home\n";
    return 1;
  }
  if (game.empty() || !FileExists(game)) {
    err << "vardolin-cli: the stand-in game isn't built (build the target standin_game)\n";
    return 1;
  }
  const fs::path editor = home / "trle";
  const fs::path archive = home / "archive";
  if (!BuildEditorFolder(editor, game, err)) return 1;
  // The stand-in is a native program: this home allows its very bytes, and nothing else native.
  if (!AllowNativeProgram(home, game)) {
    err << "vardolin-cli: cannot write " << AllowedProgramsFile(home).string() << "\n";
    return 1;
  }
  // The editor's converter is the stand-in converter built beside the game, allowed likewise,
  // so that the package of level sources compiles.
  const fs::path converter = game.parent_path() / "standin_tom2pc";
  std::error_code converter_copied;
  fs::copy_file(converter, editor / "tom2pc.exe", fs::copy_options::overwrite_existing,
                converter_copied);
  if (converter_copied || !AllowNativeProgram(home, editor / "tom2pc.exe")) {
    err << "vardolin-cli: the stand-in converter " << converter.string()
        << " isn't built (build the target standin_tom2pc)\n";
    return 1;
  }
  // The media level is played through play_the_game.exe, which the program's folder gives the
  // editor folder: the stand-in game stands in for it too.
  std::error_code copied;
  fs::create_directories(home, copied);
  fs::copy_file(game, home / "play_the_game.exe", fs::copy_options::overwrite_existing, copied);
  if (copied) {
    err << "vardolin-cli: cannot copy the stand-in game to " << (home / "play_the_game.exe") << ": "
        << copied.message() << "\n";
    return 1;
  }
  if (!WriteDemoEditorPackage(program, editor, home / "editor_setup", err)) return 1;

  // The Program of the caller keeps its Ui; the demo's questions go to a Ui that answers them.
  DemoUi ui(err, archive);
  Program demo(home, ui, program.platform());
  demo.texts = program.texts;
  LoadPreferences(demo);
  InstallCatalogueHooks(demo);
  demo.prefs.EditorFolder = editor.string();
  if (!CheckEditorFolder(demo, demo.prefs.EditorFolder, true)) return 1;
  // As start-up does: the backup lives in the program's folder and is made before anything else
  // touches the editor folder.
  demo.BackupFolder = JoinFragment(home, demo.GetText(text::BackupFolderName)).string();
  if (!MakeEditorBackup(demo, false)) {
    err << "vardolin-cli: the backup of the stand-in editor folder wasn't made\n";
    return 1;
  }
  if (!EnsureBaseLevel(demo)) {
    err << "vardolin-cli: the base level wasn't made\n";
    return 1;
  }
  if (!NewCatalogue(demo)) {
    err << "vardolin-cli: the demo archive wasn't made\n";
    return 1;
  }
  unsigned seed = 1;
  std::vector<std::int32_t> codes;
  for (const DemoLevel& level : DemoLevels()) {
    if (!AddDemoLevel(demo, level, seed, err)) return 1;
    codes.push_back(demo.catalogue.levels.back().Code);
    seed += 100;
  }
  for (std::size_t i = 0; i < codes.size(); ++i) {
    const int variant = static_cast<int>(i);
    if (!AddDemoShots(demo, FindLevelIndex(demo.catalogue, codes[i]), variant, DemoLevels()[i].tint,
                      err))
      return 1;
  }
  if (!SaveCatalogueFile(demo, demo.prefs.LastArchive)) {
    err << "vardolin-cli: cannot save the catalogue " << demo.prefs.LastArchive << "\n";
    return 1;
  }
  // The home is left as after some evenings of play: the first level stands in the editor
  // folder with its savegames in the game's slots, the second one's wait in its play folder.
  if (!SetLevelInTrle(demo, codes.front())) {
    err << "vardolin-cli: the first demo level wasn't put in the editor folder\n";
    return 1;
  }
  for (std::size_t i = 0; i < codes.size(); ++i)
    if (!AddDemoSavegames(demo, codes[i], static_cast<int>(i), err)) return 1;
  for (std::int32_t code : codes) UpdateLevelSizes(demo, code);
  if (!SaveCatalogueFile(demo, demo.prefs.LastArchive)) {
    err << "vardolin-cli: cannot save the catalogue " << demo.prefs.LastArchive << "\n";
    return 1;
  }
  // The package waits in the folder where the file dialog of Levels > Add opens.
  const fs::path packages = home / "packages";
  if (!WriteDemoPackages(demo, packages, err)) return 1;
  demo.prefs.DefaultLoadDir = packages.string();
  SavePreferences(demo);
  program.prefs = demo.prefs;
  out << "demo home: " << home.string() << "\neditor folder: " << editor.string()
      << "\ncatalogue: " << demo.prefs.LastArchive << "\npackages to add: " << packages.string()
      << "\n";
  for (const LevelRecord& r : demo.catalogue.levels)
    if (r.Code != 0) out << r.Code << '\t' << r.Name << '\n';
  return 0;
}

}  // namespace vardolin
