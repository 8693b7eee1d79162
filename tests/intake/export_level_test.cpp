// A level that leaves one archive as a zip and is added into another comes back whole: its
// description, its files in their game form, its savegames and, when asked, its screenshots.

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <string>

#include "archive/catalogue_ops.h"
#include "archive/level_store.h"
#include "foundation/services/log.h"
#include "intake/add_level.h"
#include "intake/dialog_new_level.h"
#include "intake/export_level.h"
#include "play_fixture.h"
#include "store_fixture.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::PlayFixture;
using testing::Snapshot;
using testing::WriteBytes;

constexpr const char* kShotsQuestion = "screenshots into the zip";

struct Archive : PlayFixture {
  explicit Archive(std::vector<std::string> names) : PlayFixture(std::move(names)) {
    program.prefs.LastArchive = (archive / "levels.vdc").string();
    program.prefs.NoDecompress = true;
    ui.AllowAnyMessage();
  }
  fs::path Store(std::int32_t code, const char* sub) {
    return GetLevelFolder(program, code, false) / sub;
  }
};

TEST(ExportLevel, AnExportedLevelAddedIntoAnotherArchiveComesBackWhole) {
  struct Case {
    const char* what;
    bool packed, active;
    int shots;  // 0 the level has none, else the answer to the question
  } cases[] = {{"plain, shots wanted", false, false, msg::kYes},
               {"packed and active, shots refused", true, true, msg::kNo},
               {"no shots: nothing asked", false, false, 0}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Archive from({"Base", "Sunken Tomb"});
    LevelRecord& r = from.program.catalogue.levels[1];
    r.Name = "Sunken Tomb: Part 1";  // a name that can't be a file name as it stands
    r.Note = "a long one";
    r.AuthorName = "Ann Author";
    r.AuthorEmails = std::string("ann@example.org\0ann@example.net", 31);
    r.AuthorSites = "http://example.org/ann";
    r.AuthorNote = "thanks to all";
    r.MoreInfoFile = "readme.txt";
    const fs::path files = from.Store(1, "files");
    WriteBytes(files / "readme.txt", "how to get through");
    const auto game_form = Snapshot(files);
    if (c.packed) {
      testing::Pack(files / "Sunken Tomb.tr4", files / "Sunken Tomb.tr4.zl");
      fs::remove(files / "Sunken Tomb.tr4");
    }
    if (c.active) testing::MarkActive(from.program, 1);
    WriteBytes((c.active ? from.editor : from.Store(1, "play")) / "savegame.0", "saved");
    if (c.shots) testing::WritePicture(from.Store(1, "screenshots") / "shot1.jpg");
    if (c.shots) from.ui.Answer(c.shots, kShotsQuestion);
    from.ui.SaveFile((from.dir / "out.zip").string());

    const fs::path zip = ExportLevel(from.program, 1);
    ASSERT_EQ(zip, from.dir / "out.zip");
    for (const testing::Asked& q : from.ui.Questions()) {
      if (q.kind == testing::AskKind::SaveFile)
        EXPECT_EQ(q.text, "Sunken Tomb  Part 1_vardolin.zip");
      if (!c.shots) EXPECT_EQ(q.text.find(kShotsQuestion), std::string::npos);
    }
    for (const char* gone : {"export_level", "temp_level_files"})
      EXPECT_FALSE(fs::exists(from.dir / "home" / gone)) << gone;

    Archive to({"Base", "Old level"});
    to.ui.OnForm("Dialog_NewLevel",
                 [](Form& f) { static_cast<Dialog_NewLevel&>(f).Pul_Ok.Click(); });
    const auto code = AddLevel(to.program, zip.string());
    ASSERT_TRUE(code) << ::testing::PrintToString(to.ui.Messages());
    const LevelRecord& back =
        to.program.catalogue.levels[FindLevelIndex(to.program.catalogue, *code)];
    EXPECT_EQ(back.Name, "Sunken Tomb: Part 1");
    for (auto field :
         {&LevelRecord::Note, &LevelRecord::AuthorName, &LevelRecord::AuthorEmails,
          &LevelRecord::AuthorSites, &LevelRecord::AuthorNote, &LevelRecord::MoreInfoFile})
      EXPECT_EQ(back.*field, r.*field);
    auto files_back = Snapshot(to.Store(*code, "files"));
    files_back.erase("shot1.jpg");  // adding keeps a package's pictures among its files too
    EXPECT_EQ(files_back, game_form);
    EXPECT_EQ(Snapshot(to.Store(*code, "play")),
              (std::map<std::string, std::string>{{"savegame.0", "saved"}}));
    EXPECT_EQ(fs::exists(to.Store(*code, "screenshots/shot1.jpg")), c.shots == msg::kYes);
  }
}

// A disk that refuses writes part-way (a file-size limit stands for it): the export copies the
// rest, names every file that failed, and writes no zip that would pass for the whole level.
TEST(ExportLevel, FilesThatCanNotBeCopiedAreNamedAndNoZipIsWritten) {
  Archive from({"Base", "Big Tomb"});
  const fs::path files = from.Store(1, "files");
  for (const char* big : {"extra.pak", "load.bmp"})
    WriteBytes(files / big, std::string(1 << 18, 'x'));
  WriteBytes(from.Store(1, "play") / "savegame.0", "saved");
  const fs::path target = from.dir / "out.zip";
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  rlimit small = before;
  small.rlim_cur = 1 << 17;
  signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const fs::path zip = ExportLevel(from.program, 1, {target, false});
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_TRUE(zip.empty());
  EXPECT_FALSE(fs::exists(target));
  EXPECT_FALSE(fs::exists(from.dir / "out.zip.part"));
  EXPECT_FALSE(fs::exists(from.dir / "home/export_level"));
  const std::vector<std::string> told = from.ui.Messages();
  ASSERT_FALSE(told.empty());
  EXPECT_NE(told.back().find("No zip file was written"), std::string::npos) << told.back();
  for (const char* name : {"extra.pak", "load.bmp"})
    EXPECT_NE(told.back().find(name), std::string::npos) << told.back();
  for (const char* name : {"script.dat", "savegame.0"})
    EXPECT_EQ(told.back().find(name), std::string::npos) << told.back();
}

// The user's target: never the program's own data, a standing file only when the user agrees,
// and a link replaced itself, never written through.
TEST(ExportLevel, TheTargetIsNeverOurOwnDataNorReplacedWithoutAsking) {
  struct Case {
    const char* what;
    std::function<fs::path(Archive&)> target;
    int answer;  // to the question asked, 0 when none may be asked
    bool written;
  };
  const Case cases[] = {
      {"the catalogue", [](Archive& a) { return fs::path(a.program.prefs.LastArchive); }, 0, false},
      {"a file in the home", [](Archive& a) { return a.dir / "home/Vardolin.prf"; }, 0, false},
      {"the home through a link",
       [](Archive& a) {
         fs::create_directory_symlink(a.dir / "home", a.dir / "to_home");
         return a.dir / "to_home/english.trc";
       },
       0, false},
      {"a file that stands, kept", [](Archive& a) { return a.dir.Write("mine.zip", "mine"); },
       msg::kNo, false},
      {"a file that stands, replaced", [](Archive& a) { return a.dir.Write("mine.zip", "mine"); },
       msg::kYes, true},
      {"a link to the user's file",
       [](Archive& a) {
         fs::create_symlink(a.dir.Write("mine.txt", "mine"), a.dir / "link.zip");
         return a.dir / "link.zip";
       },
       msg::kYes, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Archive from({"Base", "Sunken Tomb"});
    const fs::path target = c.target(from);
    const auto home = Snapshot(from.dir / "home");
    const std::string mine = fs::exists(from.dir / "mine.txt") ? "mine.txt" : "mine.zip";
    if (c.answer) from.ui.Answer(c.answer, fs::is_symlink(target) ? "is a link to" : "Replace it?");
    const fs::path zip = ExportLevel(from.program, 1, {target, false});
    EXPECT_EQ(zip.empty(), !c.written);
    EXPECT_TRUE(from.ui.Done());
    if (!c.answer) {
      EXPECT_NE(from.ui.Messages().back().find("Vardolin's own data"), std::string::npos);
      EXPECT_EQ(Snapshot(from.dir / "home"), home);
    }
    if (fs::exists(from.dir / mine) && !(c.written && mine == "mine.zip"))
      EXPECT_EQ(testing::ReadFile(from.dir / mine), "mine");
    if (c.written) EXPECT_FALSE(fs::is_symlink(target));
  }
}

// A killed export leaves its folder in the home and the part of its zip beside the target; the
// next run that takes the home removes both and says so in the log.
TEST(ExportLevel, WhatAKilledExportLeftIsRemovedAndLogged) {
  Archive from({"Base"});
  const fs::path part = from.dir.Write("out.zip.part", "half a zip");
  from.dir.Write("home/export_level/big.pak", "half a level");
  from.dir.Write("home/export_level_part.txt", part.string());
  const fs::path other = from.dir.Write("other.txt", "the user's");
  RemoveExportLeftovers(from.program);
  EXPECT_FALSE(fs::exists(part));
  EXPECT_FALSE(fs::exists(from.dir / "home/export_level"));
  EXPECT_FALSE(fs::exists(from.dir / "home/export_level_part.txt"));
  EXPECT_TRUE(fs::exists(other));
  const std::string log = testing::ReadFile(LogPath(from.program));
  EXPECT_NE(log.find("Removed the part of a zip that a broken-off export left: " + part.string()),
            std::string::npos)
      << log;
  EXPECT_NE(log.find("Removed the folder that a broken-off export left"), std::string::npos);
}

}  // namespace
}  // namespace vardolin
