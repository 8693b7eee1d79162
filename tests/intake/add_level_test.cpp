// Adding a level end to end: a package as authors make it goes through the level properties
// into a packed archive; what the user gives up, or what the package can't give, leaves
// the catalogue and the store as they were.

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "archive/catalogue_ops.h"
#include "archive/leftovers.h"
#include "archive/level_store.h"
#include "archive_writer.h"
#include "audio_fixture.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "intake/add_level.h"
#include "intake/dialog_new_level.h"
#include "intake/export_level.h"
#include "intake/level_file_list.h"
#include "local_http_server.h"
#include "play_fixture.h"
#include "store_fixture.h"
#include "web/dialog_download.h"
#include "web/url_list.h"
#include "web/zip_layer.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::Member;
using testing::PlayFixture;
using testing::ReadFile;
using testing::WriteArchive;

// The form of the game's music tracks, which a level brings as they are.
constexpr const char* kGameMusic = "-r 44100 -c 2 -e ms-adpcm";

struct AddFixture : PlayFixture {
  AddFixture() : PlayFixture({"Base", "Old level"}) {
    program.prefs.LastArchive = (archive / "levels.vdc").string();
    program.prefs.NoDecompress = true;
  }
  fs::path Store(std::int32_t code) { return GetLevelFolder(program, code, false); }
  std::size_t Count() const { return program.catalogue.levels.size(); }
  // Adds `package` and runs `act` on the properties form; gives the new level's code.
  // Questions asked on the form are answered by `then`, which scripts them after the form.
  std::optional<std::int32_t> Add(const fs::path& package,
                                  std::function<void(Dialog_NewLevel&)> act,
                                  std::function<void()> then = {}) {
    ui.OnForm("Dialog_NewLevel", [act](Form& f) { act(static_cast<Dialog_NewLevel&>(f)); });
    if (then) then();
    return AddLevel(program, package.string());
  }
};

TEST(AddLevel, APackageAsAuthorsMakeItIsStoredPacked) {
  AddFixture f;
  f.program.catalogue.header.CompressFiles = true;
  testing::AudioFixture made;
  const double total_before = f.program.catalogue.header.TotalFilesSize;
  const fs::path bmp = f.dir / "load.bmp";
  testing::WritePicture(bmp, 64, 48);
  const std::string level = testing::LevelBytes(7, 300000);
  const fs::path zip = f.dir / "Coastal Ruins.zip";
  WriteArchive(zip, {{"Coastal Ruins/", "", Member::Folder},
                     {"Coastal Ruins/data/coastal.tr4", level},
                     {"Coastal Ruins\\script.dat", "script"},
                     {"Coastal Ruins/english.dat", "strings"},
                     {"Coastal Ruins/audio/105.wav", ReadFile(made.Tone("105.wav", kGameMusic))},
                     {"Coastal Ruins/pix/load.bmp", ReadFile(bmp)},
                     {"Coastal Ruins/Readme.txt", "how to get through"},
                     {"Coastal Ruins/savegame.0", "the author's save"}});

  const auto code = f.Add(zip, [](Dialog_NewLevel& d) {
    d.Text_Note.SetText("a long one");
    d.Pul_Ok.Click();
  });
  ASSERT_TRUE(code);
  ASSERT_EQ(f.Count(), 3u);
  const LevelRecord& r = f.program.catalogue.levels[2];
  EXPECT_EQ(r.Name, "Coastal Ruins");
  EXPECT_EQ(r.Note, "a long one");
  EXPECT_EQ(r.MoreInfoFile, "Readme.txt");
  EXPECT_GT(r.FilesSize, 0);
  EXPECT_EQ(f.program.catalogue.header.TotalFilesSize, total_before + r.FilesSize);

  EXPECT_EQ(testing::Names(testing::Snapshot(f.Store(*code) / "files")),
            (std::vector<std::string>{"105.wav.zl", "Readme.txt", "coastal.tr4.zl",
                                      "english.dat.zl", "load.jpg", "script.dat.zl"}));
  EXPECT_EQ(ReadFile(f.Store(*code) / "play/savegame.0"), "the author's save");
  std::string unpacked;
  ASSERT_EQ(ExpandBytes(ReadFile(f.Store(*code) / "files/coastal.tr4.zl"), unpacked), ZlResult::Ok);
  EXPECT_EQ(unpacked, level);
  LevelFileList list;
  ASSERT_TRUE(ReadLevelFileList(f.program, *code, list));
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].Name, "coastal.tr4");

  // More info opens the readme where the store keeps it, through the desktop's opener.
  const fs::path bin = f.dir / "bin";
  testing::WriteBytes(bin / "xdg-open", "#!/bin/sh\necho \"$1\" > \"$0.args\"\n");
  fs::permissions(bin / "xdg-open", fs::perms::owner_all);
  testing::ScopedEnv path("PATH", bin.string());
  RefreshLevelList(*f.main);
  f.Choose("Coastal Ruins");
  f.main->Pul_MoreInfo.Click();
  EXPECT_EQ(ReadFile(bin / "xdg-open.args"), (f.Store(*code) / "files/Readme.txt").string() + "\n");
  EXPECT_TRUE(f.ui.Done());
}

TEST(AddLevel, GivingUpLeavesCatalogueAndStoreAsTheyWere) {
  AddFixture f;
  const fs::path zip = f.dir / "pack.zip";
  WriteArchive(zip, {{"pack/level.tr4", "tr4"}, {"pack/script.dat", "s"}});
  const std::int32_t next = NextLevelCode(f.program.catalogue);
  EXPECT_FALSE(f.Add(zip, [](Dialog_NewLevel& d) { d.Pul_Cancel.Click(); }));
  EXPECT_FALSE(f.Add(zip, [](Dialog_NewLevel&) {}));  // the close box
  EXPECT_EQ(f.Count(), 2u);
  EXPECT_FALSE(fs::exists(f.Store(next)));

  // Properties: a changed name given up keeps the old one.
  f.ui.OnForm("Dialog_NewLevel", [](Form& form) {
    auto& d = static_cast<Dialog_NewLevel&>(form);
    d.Text_NameLevel.SetText("Renamed");
    d.Pul_Ok.Click();  // stays: the old level has no level file in this fixture's names
    d.Pul_Cancel.Click();
  });
  f.ui.AllowAnyMessage();
  fs::remove(f.Store(1) / "files/Old level.tr4");
  EXPECT_TRUE(EditLevelProperties(f.program, 1));
  EXPECT_EQ(f.program.catalogue.levels[1].Name, "Old level");
}

TEST(AddLevel, ACancelPressedWhileDoneWorksIsNotTaken) {
  AddFixture f;
  testing::AudioFixture made;  // the sample's conversion lets events through, as its window does
  const fs::path zip = f.dir / "Keep.zip";
  WriteArchive(zip, {{"Keep/keep.tr4", "level"},
                     {"Keep/script.dat", "s"},
                     {"Keep/door.wav", ReadFile(made.Tone("door.wav", "-r 44100 -c 2 -b 16"))}});
  const auto code = f.Add(zip, [&](Dialog_NewLevel& d) {
    f.ui.on_events = [&d] { d.Pul_Cancel.Click(); };
    d.Pul_Ok.Click();
  });
  ASSERT_TRUE(code && !f.ui.on_events);
  EXPECT_EQ(f.program.catalogue.levels.back().Name, "Keep");
}

TEST(AddLevel, AStoreThatCantTakeTheFilesKeepsWhatItHadAndTheWorkStays) {
  struct Case {
    const char* what;
    int store_plain;  // the answer to "store them as they are?"
    bool stays_open;
  } cases[] = {{"stored as they are, which fails too: the form stays", msg::kYes, true},
               {"not stored: the store keeps its files", msg::kNo, false}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    AddFixture f;
    f.program.catalogue.header.CompressFiles = true;
    f.program.prefs.NoDecompress = false;
    const fs::path files = f.Store(1) / "files";
    for (const fs::path& file : ListFiles(files, "*")) {
      testing::Pack(file, file.string() + ".zl");
      fs::remove(file);
    }
    const auto stored = testing::Snapshot(f.Store(1));
    f.ui.AllowAnyMessage();
    f.ui.OnForm("Dialog_NewLevel", [&](Form& form) {
      auto& d = static_cast<Dialog_NewLevel&>(form);
      ASSERT_TRUE(d.WorkFolderIsTemporary);
      testing::WriteBytes(d.WorkFolder / "walkthrough.txt", "the new file");
      d.Pul_Refresh.Click();
      f.ui.Answer(c.store_plain, "could not be stored packed");
      setenv("VARDOLIN_FAULT_POINT", "store-copy:1+:enospc", 1);
      d.Pul_Ok.Click();
      unsetenv("VARDOLIN_FAULT_POINT");
      EXPECT_EQ(testing::Snapshot(f.Store(1)), stored);
      EXPECT_EQ(d.IsLoaded(), c.stays_open);
      if (!d.IsLoaded()) return;
      EXPECT_NE(f.ui.Messages().back().find("make room on the disk"), std::string::npos);
      EXPECT_TRUE(fs::exists(d.WorkFolder / "walkthrough.txt"));
      d.Pul_Ok.Click();  // with room on the disk again
      EXPECT_FALSE(d.IsLoaded());
    });
    EXPECT_TRUE(EditLevelProperties(f.program, 1));
    // Stored packed, or as it is when the form took it for the level's more-info file.
    EXPECT_EQ(fs::exists(files / "walkthrough.txt.zl") || fs::exists(files / "walkthrough.txt"),
              c.stays_open);
    EXPECT_FALSE(fs::exists(files.string() + ".new~"));
    EXPECT_FALSE(fs::exists(files.string() + ".old~"));
  }
}

TEST(AddLevel, AnAddKilledWithTheFormOpenIsClearedByTheNextRun) {
  AddFixture f;
  const fs::path zip = f.dir / "pack.zip";
  WriteArchive(zip, {{"pack/level.tr4", "tr4"}, {"pack/script.dat", "s"}});
  const fs::path orphan = f.Store(NextLevelCode(f.program.catalogue));
  const pid_t child = fork();
  if (child == 0) {
    f.Add(zip, [](Dialog_NewLevel&) { raise(SIGKILL); });
    _exit(1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status));
  ASSERT_TRUE(fs::exists(orphan / "files/level.tr4"));
  EXPECT_EQ(ClearLeftovers(f.program), 1);
  EXPECT_FALSE(fs::exists(orphan));
  EXPECT_NE(ReadFile(LogPath(f.program)).find("broken off, removed: " + orphan.string()),
            std::string::npos);
}

TEST(AddLevel, DoneStaysOpenUntilTheFolderHoldsAPlayableLevel) {
  struct Case {
    const char* what;
    std::vector<Member> members;
    std::string name;
    std::vector<int> answers;  // to the questions in order
    const char* told;          // part of the last message
  };
  const std::vector<Case> cases = {
      {"no name", {{"a/level.tr4", "x"}, {"a/script.dat", "s"}}, " ", {}, "Type a name"},
      {"no level file", {{"a/readme.txt", "x"}}, "L", {}, "has no level file"},
      {"sources kept", {{"a/level.tom", "x"}}, "L", {msg::kCancel}, "not compiled yet"},
      {"two level files", {{"a/one.tr4", "1"}, {"a/two.tr4", "2"}}, "L", {}, "has a name"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    AddFixture f;
    const fs::path zip = f.dir / "p.zip";
    WriteArchive(zip, c.members);
    bool stayed = false;
    EXPECT_FALSE(f.Add(
        zip,
        [&](Dialog_NewLevel& d) {
          d.Text_NameLevel.SetText(c.name);
          d.Pul_Ok.Click();
          stayed = d.IsLoaded();
          d.Pul_Cancel.Click();
        },
        [&] {
          for (int a : c.answers) f.ui.Answer(a);
          if (c.answers.empty()) f.ui.Answer(msg::kOk, c.told);
        }));
    EXPECT_TRUE(stayed);
    EXPECT_NE(f.ui.Messages().back().find(c.told), std::string::npos) << f.ui.Messages().back();
    EXPECT_EQ(f.Count(), 2u);
  }
}

TEST(AddLevel, BadPackagesAreToldByNameAndLeaveNothingBehind) {
  AddFixture f;
  // A cut zip: told once, by its name and with the reason; no level, no folder. (Names that
  // climb out of the package are refused where it is unpacked.)
  const fs::path cut = f.dir / "cut.zip";
  WriteArchive(cut, {{"a/level.tr4", testing::LevelBytes(1, 50000)}});
  fs::resize_file(cut, fs::file_size(cut) / 2);
  const std::int32_t next = NextLevelCode(f.program.catalogue);
  f.ui.Answer(msg::kOk, "cut.zip could not be unpacked.\r\n\r\n\"cut.zip\" can't be read");
  EXPECT_FALSE(f.Add(cut, [](Dialog_NewLevel& d) {
    EXPECT_TRUE(d.FileList.empty());
    d.Pul_Cancel.Click();
  }));
  EXPECT_TRUE(f.ui.Done());
  EXPECT_FALSE(fs::exists(f.Store(next)));
  EXPECT_EQ(f.Count(), 2u);
}

// What a package says of its level (an exported one's info file) is checked by the export's
// round trip; here, the same level once more: its level file stands in the archive already.
TEST(AddLevel, ALevelFileTheArchiveHoldsAlreadyIsAskedAbout) {
  AddFixture f;
  const fs::path zip = f.dir / "tower.zip";
  WriteArchive(zip, {{"tower.tr4", "tower"}, {"script.dat", "s"}});
  auto ok = [](Dialog_NewLevel& d) { d.Pul_Ok.Click(); };
  ASSERT_TRUE(f.Add(zip, ok));
  const std::size_t count = f.Count();
  EXPECT_FALSE(
      f.Add(zip, ok, [&] { f.ui.Answer(msg::kNo, "\"tower.tr4\" is also in the level"); }));
  EXPECT_EQ(f.Count(), count);
}

// A damaged info file is as if it had never come: the package's install script still names the
// level.
TEST(AddLevel, ADamagedInfoFileLeavesTheInstallScriptItsTurn) {
  AddFixture f;
  const fs::path package = f.dir / "tower pack.zip";
  WriteArchive(package, {{"vardolin_level.inf", "too short for an info file"},
                         {"vardolin_install.txt",
                          "<INSTALL_SCRIPT>go</INSTALL_SCRIPT><SETTINGS>\r\n"
                          "#LEVEL_NAME#=From the script\r\n</SETTINGS>"},
                         {"tower.tr4", "tower"}});
  f.ui.Answer(msg::kOk, "The level info file is damaged");
  std::string name;
  f.ui.OnForm("Dialog_NewLevel", [&](Form& form) {
    auto& d = static_cast<Dialog_NewLevel&>(form);
    name = d.Text_NameLevel.Text();
    d.Pul_Cancel.Click();
  });
  EXPECT_FALSE(AddLevel(f.program, package.string()));
  EXPECT_EQ(name, "From the script");
}

// Archives inside archives are unpacked to a depth, and what lies deeper is told, not dropped
// in silence.
TEST(AddLevel, ArchivesNestedTooDeepAreTold) {
  AddFixture f;
  fs::path inner = f.dir / "level0.zip";
  WriteArchive(inner, {{"room.tr4", "r"}});
  for (int depth = 1; depth <= 10; ++depth) {
    const fs::path outer = f.dir / ("level" + std::to_string(depth) + ".zip");
    WriteArchive(outer, {{inner.filename().string(), ReadFile(inner)}});
    inner = outer;
  }
  f.ui.Answer(msg::kOk, "more than 8 levels deep");
  EXPECT_FALSE(f.Add(inner, [](Dialog_NewLevel& d) { d.Pul_Cancel.Click(); }));
  EXPECT_TRUE(f.ui.Done());
}

// A patch the URL list knows for the package's files: fetched into a folder of its own whatever
// name its address ends in, put into the level, and a setup program it brings is offered.
TEST(AddLevel, AKnownPatchNeverLandsOnTheProgramsFilesAndItsSetupIsOffered) {
  testing::LocalHttpServer server;
  server.ServeFile("/fix/urllist.bin", "patched list");
  server.ServeFile("/fix/setup.exe", "MZ a setup");
  struct Row {
    const char* file;
    bool setup_offered;
  } rows[] = {{"urllist.bin", false}, {"setup.exe", true}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.file);
    AddFixture f;
    UrlList list;
    list.entries.push_back({server.Url(std::string("/fix/") + row.file), "Fix - notes.txt;5",
                            url_type::kPatch, false});
    ASSERT_TRUE(WriteUrlList(UrlListPath(f.program), list));
    const std::string own_list = ReadFile(UrlListPath(f.program));
    const fs::path package = f.dir / "level.zip";
    WriteArchive(package, {{"notes.txt", "hello"}});

    f.ui.Answer(msg::kYes, "A patch is known for this level: Fix");
    f.ui.OnForm("Dialog_Download", [](Form& d) { static_cast<Dialog_Download&>(d).Timer1.Tick(); });
    if (row.setup_offered) f.ui.Answer(msg::kNo, "comes with a setup program");
    std::string patched;
    f.ui.OnForm("Dialog_NewLevel", [&](Form& form) {
      auto& d = static_cast<Dialog_NewLevel&>(form);
      patched = ReadFile(d.WorkFolder / row.file);
      d.Pul_Cancel.Click();
    });
    EXPECT_FALSE(AddLevel(f.program, package.string()));
    EXPECT_TRUE(f.ui.Done());
    EXPECT_EQ(ReadFile(UrlListPath(f.program)), own_list);
    EXPECT_EQ(patched, row.setup_offered ? "MZ a setup" : "patched list");
  }
}

TEST(AddLevel, AnArchiveThatKeepsWavesAsMp3StoresThemSoAndExportsBoth) {
  AddFixture f;
  f.program.catalogue.header.WavInMp3 = true;
  testing::AudioFixture made;
  const fs::path zip = f.dir / "Echo.zip";
  WriteArchive(zip,
               {{"Echo/echo.tr4", "level"},
                {"Echo/script.dat", "s"},
                {"Echo/audio/105.mp3", ReadFile(made.Mp3("105.mp3", "-b 128"))},
                {"Echo/audio/106.wav", ReadFile(made.Tone("106.wav", "-r 44100 -c 2 -b 16"))}});
  const auto code = f.Add(zip, [](Dialog_NewLevel& d) { d.Pul_Ok.Click(); });
  ASSERT_TRUE(code);
  const fs::path files = f.Store(*code) / "files";
  EXPECT_TRUE(fs::exists(files / "105.mp3"));
  EXPECT_TRUE(fs::exists(files / "106.mp3"));
  EXPECT_FALSE(fs::exists(files / "106.wav"));

  // Play's preparation of a store that keeps MP3 is checked by the level audio test; the export
  // leaves with both tracks.
  f.ui.Answer(msg::kOk, "exported to the zip file");
  const fs::path out = ExportLevel(f.program, *code, {f.dir / "echo-out.zip", false});
  ASSERT_FALSE(out.empty());
  std::int32_t count = 0;
  std::string names;
  for (const std::string& n : ListZipEntries(out, count, false)) names += n + " ";
  for (const char* track : {"105.", "106.", "echo.tr4"})
    EXPECT_NE(names.find(track), std::string::npos) << track << " in " << names;
}

}  // namespace
}  // namespace vardolin
