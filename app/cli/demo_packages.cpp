#include "demo_packages.h"

#include <archive.h>
#include <archive_entry.h>

#include <ostream>
#include <system_error>
#include <vector>

#include "demo_files.h"
#include "demo_home_play.h"
#include "demo_music.h"
#include "foundation/program.h"
#include "foundation/services/binary_io.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "intake/level_info.h"
#include "intake/packed_level.h"
#include "intake/text_ids.h"
#include "web/zip_layer.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

// A level's files as authors lay them out: the level file under data, script and language
// files, a loading picture and a readme. `stem` names the level file and seeds its bytes.
bool WriteLevelFolder(const fs::path& level, const std::string& stem, const std::string& title,
                      unsigned seed, const std::uint8_t tint[3]) {
  std::error_code ec;
  fs::create_directories(level / "pix", ec);
  return WriteBytes(level / "data" / (stem + ".tr4"), LevelBytes(seed, 300000)) &&
         WriteBytes(level / "script.dat", LevelBytes(seed + 1, 900)) &&
         WriteBytes(level / "english.dat", LevelBytes(seed + 2, 3000)) &&
         WriteLoadPicture(level / "pix/load.bmp", tint[0], tint[1], tint[2]) &&
         WriteBytes(level / "Readme.txt", title + "\r\n\r\nA level made for the demo.\r\n");
}

// Zips the one folder below `staging` into `zip` and removes the staging folder.
bool ZipStaging(Program& program, const fs::path& staging, const fs::path& zip) {
  const bool ok = ZipFolderToFile(program, staging, zip, nullptr, true);
  std::error_code ec;
  fs::remove_all(staging, ec);
  return ok;
}

// A gzipped tar of the folder's tree, names relative to the folder's parent, for the kinds of
// archive that aren't zips.
bool TarFolder(const fs::path& folder, const fs::path& tar) {
  FolderTreeWalker walker;
  walker.WalkFolderTree(folder);
  archive* a = archive_write_new();
  archive_write_set_format_pax_restricted(a);
  archive_write_add_filter_gzip(a);
  bool ok = archive_write_open_filename(a, tar.c_str()) == ARCHIVE_OK;
  for (const fs::path& f : walker.Files()) {
    const std::string bytes = ReadWholeFile(f);
    archive_entry* e = archive_entry_new();
    archive_entry_set_pathname(e, fs::relative(f, folder.parent_path()).c_str());
    archive_entry_set_filetype(e, AE_IFREG);
    archive_entry_set_perm(e, 0644);
    archive_entry_set_size(e, static_cast<la_int64_t>(bytes.size()));
    ok = ok && archive_write_header(a, e) == ARCHIVE_OK &&
         archive_write_data(a, bytes.data(), bytes.size()) == static_cast<la_ssize_t>(bytes.size());
    archive_entry_free(e);
  }
  ok = archive_write_close(a) == ARCHIVE_OK && ok;
  archive_write_free(a);
  return ok;
}

// A self-installing program of our own make: a stand-in program's code with the trailer that
// carries the files behind it.
std::string SelfInstaller(Program& program,
                          const std::vector<std::pair<std::string, std::string>>& files) {
  ByteWriter w;
  w.Raw("MZ demo installer\r\n");
  const auto trailer = static_cast<std::uint32_t>(w.Size());
  w.Raw(program.GetText(text::SelfInstallerMagic));
  w.U8(0);
  w.I32(0);
  w.I32(static_cast<std::int32_t>(files.size()));
  for (const auto& [name, bytes] : files) {
    w.U32(static_cast<std::uint32_t>(bytes.size()));
    w.Raw(name);
    w.U8(0);
    w.Raw(bytes);
  }
  w.U32(trailer);
  return w.Take();
}

}  // namespace

bool WriteDemoPackages(Program& program, const fs::path& folder, std::ostream& err) {
  const fs::path staging = folder / ".staging";
  std::error_code ec;
  const std::uint8_t blue[3] = {40, 110, 150}, sand[3] = {200, 170, 90}, ice[3] = {170, 200, 230},
                     red[3] = {180, 70, 50}, green[3] = {60, 150, 80}, grey[3] = {120, 120, 120};
  std::vector<std::string> failed;

  // A zip as most authors make it, with a track and the author's savegame.
  const fs::path sunken = staging / "Sunken Tomb";
  if (!WriteLevelFolder(sunken, "sunken", "Sunken Tomb", 77, blue) ||
      !WriteBytes(sunken / "audio/105.wav", DemoTune()) ||
      !WriteBytes(sunken / "savegame.0", GameSavegameBytes(1, "Sunken Tomb")) ||
      !ZipStaging(program, staging, folder / "Sunken Tomb.zip"))
    failed.push_back("Sunken Tomb.zip");

  // Another kind of archive.
  const fs::path desert = staging / "Desert Gate";
  if (!WriteLevelFolder(desert, "desert", "Desert Gate", 81, sand) ||
      !TarFolder(desert, folder / "Desert Gate.tar.gz"))
    failed.push_back("Desert Gate.tar.gz");
  fs::remove_all(staging, ec);

  // A self-installing program that holds a zip of the level.
  const fs::path frozen = staging / "Frozen Keep";
  const fs::path frozen_zip = folder / ".frozen.zip";
  if (!WriteLevelFolder(frozen, "frozen", "Frozen Keep", 85, ice) ||
      !ZipStaging(program, staging, frozen_zip) ||
      !WriteBytes(folder / "Frozen Keep Setup.exe",
                  SelfInstaller(program, {{"Frozen Keep.zip", ReadWholeFile(frozen_zip)}})))
    failed.push_back("Frozen Keep Setup.exe");
  DeleteFileForced(frozen_zip);

  // A level exported by another archive: its info file names the level and its author.
  const fs::path tower = staging / "Tower of Winds";
  LevelInfo info;
  info.LevelName = "Tower of Winds";
  info.Note = "exported from a friend's archive";
  info.AuthorName = "Ada Stone";
  info.AuthorEmails = "ada@example.org";
  info.MoreInfoFile = "Readme.txt";
  if (!WriteLevelFolder(tower, "tower", "Tower of Winds", 89, red) ||
      !WriteLevelInfoFile(program, JoinFragment(tower, program.GetText(text::LevelInfoFile)),
                          info) ||
      !ZipStaging(program, staging, folder / "Tower of Winds (exported).zip"))
    failed.push_back("Tower of Winds (exported).zip");

  // A zip that holds the level's zip and an install script of its author.
  const fs::path cave = staging / "inner" / "Cave of Echoes";
  const fs::path inner = folder / ".cave.zip";
  if (!WriteLevelFolder(cave, "cave", "Cave of Echoes", 93, green) ||
      !ZipStaging(program, staging, inner) ||
      !WriteBytes(staging / "Cave/cave.zip", ReadWholeFile(inner)) ||
      !WriteBytes(JoinFragment(staging / "Cave", program.GetText(text::InstallScriptFile)),
                  "<INSTALL_SCRIPT>\r\nlevel\r\n</INSTALL_SCRIPT>\r\n<SETTINGS>\r\n"
                  "#LEVEL_NAME#=Cave of Echoes\r\n#AUTHOR_NAME#=Bo Marsh\r\n</SETTINGS>\r\n") ||
      !ZipStaging(program, staging, folder / "Cave of Echoes.zip"))
    failed.push_back("Cave of Echoes.zip");
  DeleteFileForced(inner);

  // A packed level archive inside a zip.
  const fs::path ruins = staging / "files";
  ArchiveDirectory directory;
  FileArchive packed(program);
  const fs::path vpk = JoinFragment(staging / "Grey Ruins", program.GetText(text::PackedLevelFile));
  bool ok = WriteLevelFolder(ruins, "ruins", "Grey Ruins", 97, grey) &&
            MakeFolder(vpk.parent_path()) &&
            packed.ArchiveOperation(vpk, kArchiveCreate, {}, {}, directory);
  for (const fs::path& f : {ruins / "data/ruins.tr4", ruins / "script.dat", ruins / "english.dat",
                            ruins / "Readme.txt"})
    ok = ok && packed.ArchiveOperation(vpk, kArchiveAdd, f.string(), {}, directory);
  fs::remove_all(ruins, ec);
  if (!ok || !ZipStaging(program, staging, folder / "Grey Ruins.zip"))
    failed.push_back("Grey Ruins.zip");

  // A level as its author's sources: two maps, the wad set of each, a readme that names them.
  const fs::path towers = staging / "Twin Towers";
  bool sources_ok = true;
  for (const auto& [name, bytes] : std::vector<std::pair<std::string, std::string>>{
           {"north.tom", "project of the north tower\r\n"},
           {"north.was", "north tower wad\r\n"},
           {"north.wad", "north tower objects\r\n"},
           {"south.tom", "project of the south tower\r\n"},
           {"south.was", "south tower wad\r\n"},
           {"south.swd", "south tower sprites\r\n"},
           {"script.dat", "script of the twin towers\r\n"},
           {"Readme.txt",
            "Twin Towers\r\nCompile north.tom with north.was and south.tom with "
            "south.was.\r\n"}})
    sources_ok = sources_ok && WriteBytes(towers / name, bytes);
  if (!sources_ok || !ZipStaging(program, staging, folder / "Twin Towers.zip"))
    failed.push_back("Twin Towers.zip");
  // Wads for the level editor (Level editor > Import wads): a wad set with its map, the level
  // compiled from them, and the script pieces that name it.
  const fs::path wads = staging / "Temple Wads";
  if (!WriteBytes(wads / "temple.was", LevelBytes(101, 40000)) ||
      !WriteBytes(wads / "temple.wad", LevelBytes(102, 80000)) ||
      !WriteBytes(wads / "temple.tom", LevelBytes(103, 20000)) ||
      !WriteBytes(wads / "temple.tr4", LevelBytes(104, 300000)) ||
      !WriteBytes(wads / "script.txt",
                  "; the temple's script pieces\r\n[Level]\r\nName=Temple of the Wads\r\n"
                  "Level=DATA\\TEMPLE,105\r\nHorizon=ENABLED\r\n") ||
      !WriteBytes(wads / "english.txt",
                  "[Language]\r\nEnglish\r\n[Strings]\r\nPlayable Tutorial Level\r\n"
                  "Temple of the Wads\r\n[PSXStrings]\r\n") ||
      !WriteBytes(wads / "Readme.txt", "Import these wads into the level editor.\r\n") ||
      !ZipStaging(program, staging, folder / "Temple Wads.zip"))
    failed.push_back("Temple Wads.zip");

  for (const std::string& name : failed)
    err << "vardolin-cli: the demo package " << (folder / name).string() << " wasn't written\n";
  return failed.empty();
}

}  // namespace vardolin
