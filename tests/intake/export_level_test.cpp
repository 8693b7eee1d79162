// A level that leaves one archive as a zip and is added into another comes back whole: its
// description, its files in their game form, its savegames and, when asked, its screenshots.

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <csignal>

#include "archive/catalogue_ops.h"
#include "archive/level_store.h"
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
    from.ui.SaveFile((from.dir / "out.zip").string());
    if (c.shots) from.ui.Answer(c.shots, kShotsQuestion);

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
  for (const char* big : {"extra.pak", "load.bmp"})
    WriteBytes(from.Store(1, "files") / big, std::string(1 << 18, 'x'));
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  rlimit small = before;
  small.rlim_cur = 1 << 17;
  signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  const fs::path zip = ExportLevel(from.program, 1, {from.dir / "out.zip", false});
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_TRUE(zip.empty());
  EXPECT_FALSE(fs::exists(from.dir / "out.zip"));
  const std::string told = from.ui.Messages().back();
  EXPECT_NE(told.find("No zip file was written"), std::string::npos) << told;
  for (const char* name : {"extra.pak", "load.bmp"}) EXPECT_NE(told.find(name), told.npos) << told;
  EXPECT_EQ(told.find("script.dat"), std::string::npos) << told;
}

// Never the program's own data, also through a link; a link at the target is replaced itself on
// Yes, never written through.
TEST(ExportLevel, TheTargetIsNeverOurOwnDataNorALinksDestination) {
  for (const bool to_home : {true, false}) {
    Archive from({"Base", "Sunken Tomb"});
    const fs::path mine = from.dir.Write("mine.txt", "mine");
    fs::create_directory_symlink(from.dir / "home", from.dir / "to_home");
    fs::create_symlink(to_home ? from.dir / "home/Vardolin.prf" : mine, from.dir / "link.zip");
    const auto home = Snapshot(from.dir / "home");
    if (!to_home) from.ui.Answer(msg::kYes, "is a link to " + mine.string());
    for (const char* target : {"link.zip", "to_home/english.trc"})
      if (to_home || target[0] == 'l')
        EXPECT_EQ(ExportLevel(from.program, 1, {from.dir / target, false}).empty(), to_home);
    EXPECT_TRUE(from.ui.Done());
    EXPECT_EQ(Snapshot(from.dir / "home"), home);
    EXPECT_EQ(testing::ReadFile(mine), "mine");
    EXPECT_NE(fs::is_symlink(from.dir / "link.zip"), !to_home);
  }
}

}  // namespace
}  // namespace vardolin
