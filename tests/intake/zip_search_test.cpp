// The zip search: what Old_Search.bin gives however it was left, which folders the dialog keeps,
// which files a search finds, and the buttons on what it found.

#include <gtest/gtest.h>

#include "archive_fixture.h"
#include "archive_writer.h"
#include "foundation/services/binary_io.h"
#include "foundation/services/files.h"
#include "foundation/services/ole_date.h"
#include "intake/dialog_cerca_livelli.h"
#include "intake/search_history.h"
#include "intake/text_ids.h"
#include "intake/zip_search.h"
#include "test_program.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

// `ansi` as the file holds it, blank-padded.
std::string Entry(std::string ansi, double date) {
  ansi.resize(256, ' ');
  ByteWriter w;
  w.F64(date);
  return ansi + w.Take();
}
std::string Count(std::int32_t n) {
  ByteWriter w;
  w.I32(n);
  return w.Take();
}

TEST(SearchHistory, ReadsWhatStandsAndNeverMore) {
  const std::string a = Entry("/home/lara/Downloads", 45000.5);
  const std::string b = Entry("C:\\Tomb\xE9", 45001);  // code page 1252
  struct Case {
    const char* what;
    std::string bytes;
    std::vector<std::string> paths;
  } cases[] = {
      {"empty file", "", {}},
      {"two entries", Count(2) + a + b, {"/home/lara/Downloads", "C:\\Tomb\xC3\xA9"}},
      {"old bytes behind the count's end", Count(1) + a + b, {"/home/lara/Downloads"}},
      {"count 0 before old entries", Count(0) + a + b, {}},
      {"count beyond the file", Count(9) + a + b, {"/home/lara/Downloads", "C:\\Tomb\xC3\xA9"}},
      {"cut short inside an entry", Count(2) + a + b.substr(0, 100), {"/home/lara/Downloads"}},
      {"cut inside the count", Count(2).substr(0, 3), {}},
      {"negative count", Count(-1) + a, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    std::vector<std::string> got;
    for (const SearchedFolder& e : ParseSearchHistory(c.bytes)) got.push_back(e.Path);
    EXPECT_EQ(got, c.paths);
  }
}

struct SearchFixture : testing::TestProgram {
  testing::TempDir disk;
  Dialog_CercaLivelli form{program};
  SearchFixture() {
    program.texts.EnglishTexts = testing::ReadEnglishForTests();
    program.prefs.DefaultLoadDir = disk.path().string();
  }
  void Open() {
    form.Load();
    form.ImpostaValori();
  }
  std::vector<std::string> Found() const {
    std::vector<std::string> out;
    for (const ListItem& item : form.List_Trovati.Items())
      out.push_back(fs::relative(item.text, disk.path()).string());
    return out;
  }
};

TEST(DialogCercaLivelli, KeepsSixFoldersAndReplacesTheOldest) {
  struct Case {
    const char* what;
    std::vector<double> ages;  // days before now of the six folders
    int replaced;
  } cases[] = {
      {"the oldest goes", {3, 9, 1, 9, 2, 4}, 1},
      {"all dates ahead of the clock: the last goes", {-5, -5, -5, -5, -5, -5}, 5},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    SearchFixture f;
    for (std::size_t i = 0; i < c.ages.size(); ++i)
      f.program.SearchHistory.push_back({"/f" + std::to_string(i), OleDateNow() - c.ages[i]});
    f.Open();
    EXPECT_FALSE(fs::exists(SearchHistoryPath(f.program)));  // nothing written while it's up
    f.ui.Folder("/seventh");
    f.form.Pul_Sfoglia.Click();
    f.form.Command1.Click();
    const auto saved = ParseSearchHistory(testing::ReadFile(SearchHistoryPath(f.program)));
    ASSERT_EQ(saved.size(), 6u);
    EXPECT_EQ(saved[c.replaced].Path, "/seventh");
    EXPECT_EQ(f.form.Combo_Folder.SelectedText(), "/seventh");
  }
}

TEST(DialogCercaLivelli, FindsByWordsInPathsAndInOneEntryOfAZip) {
  SearchFixture f;
  fs::create_directories(f.disk / "a");
  f.disk.Write("tomb/raider levels/Cave.zip", "not a zip");  // unreadable: skipped, search goes on
  testing::WriteArchive(f.disk / "a/both.zip", {{"data/Tomb Cave.tr4", "x"}});
  testing::WriteArchive(f.disk / "a/spread.zip", {{"tomb.tr4", "x"}, {"cave.tr4", "x"}});
  testing::WriteArchive(f.disk / "a/both.txt", {{"tomb cave.tr4", "x"}});  // not looked into
  f.disk.Write("a/broken.zip", "PK\x03\x04 cut short");
  f.disk.Write("a/cave tomb.exe", "MZ");
  fs::create_directory_symlink(f.disk.path(), f.disk / "a/loop");
  struct Case {
    const char* what;
    int kind;
    bool inside;
    std::vector<std::string> found;
  } cases[] = {
      {"packages by path", 0, false, {"tomb/raider levels/Cave.zip"}},
      {"packages inside zips", 0, true, {"a/both.zip", "tomb/raider levels/Cave.zip"}},
      {"every file inside zips",
       2,
       true,
       {"a/both.zip", "a/cave tomb.exe", "tomb/raider levels/Cave.zip"}},
  };
  f.Open();
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    f.form.Combo_TipoFile.SetListIndex(c.kind);
    f.form.Check_CercaDentroZip.SetValue(c.inside);
    f.form.Text_Search.SetText("  TOMB cave ");
    f.form.Pul_Search.Click();
    EXPECT_EQ(f.Found(), c.found);
    EXPECT_EQ(f.form.List_Trovati.ListIndex(), 0);
  }
}

TEST(DialogCercaLivelli, FindsByAgeFromTheEarliestDateOn) {
  SearchFixture f;
  const auto now = std::chrono::system_clock::now();
  for (auto [name, hours] : {std::pair{"new.zip", 1}, {"day.zip", 23}, {"old.zip", 25}})
    SetFileDateTime(f.disk.Write(name, "x"), now - std::chrono::hours(hours));
  f.Open();
  f.form.Pul_CercaLastFiles.Click();
  EXPECT_EQ(f.Found(), (std::vector<std::string>{"day.zip", "new.zip"}));
  // A file of exactly the earliest date is found.
  ZipSearchQuery q = MakeZipSearchQuery(f.program);
  q.mode = ZipSearchQuery::Mode::ByDate;
  q.earliest = FileOleDate(f.disk / "old.zip");
  EXPECT_TRUE(ZipSearchMatches(q, f.disk / "old.zip"));
}

TEST(DialogCercaLivelli, ButtonsOnTheFoundFiles) {
  SearchFixture f;
  f.disk.Write("one.zip", "1");
  f.disk.Write("two.zip", "2");
  f.disk.Write("three.zip", "3");
  f.Open();
  f.form.Pul_SearchAll.Click();
  ASSERT_EQ(f.Found(), (std::vector<std::string>{"one.zip", "three.zip", "two.zip"}));
  EXPECT_NE(f.form.List_Trovati.ToolTip().find("one.zip  ("), std::string::npos);

  f.form.Text_Find.SetText("T");
  f.ui.Answer(msg::kOk, f.program.GetText(text::SearchFindNone));
  f.form.Pul_FindPrima.Click();  // nothing before the first row
  f.form.Pul_FindDopo.Click();
  EXPECT_EQ(f.form.List_Trovati.ListIndex(), 1);

  f.ui.Input("two.zip");  // a name that stands is never replaced
  f.ui.Answer(msg::kOk, "three.zip");
  f.form.Pul_RenameZip.Click();
  f.ui.Input("3.zip");
  f.form.Pul_RenameZip.Click();
  EXPECT_EQ(f.Found()[1], "3.zip");
  EXPECT_EQ(testing::ReadFile(f.disk / "3.zip"), "3");

  f.ui.Answer(msg::kNo);
  f.form.Pul_DeleteZip.Click();
  f.ui.Answer(msg::kYes);
  f.form.Pul_DeleteZip.Click();
  EXPECT_FALSE(fs::exists(f.disk / "3.zip"));
  EXPECT_EQ(f.Found(), (std::vector<std::string>{"one.zip", "two.zip"}));

  f.form.List_Trovati.SetListIndex(1);
  f.form.Pul_Ok.Click();
  EXPECT_TRUE(f.form.ExitValue);
  EXPECT_EQ(f.form.Chosen, (f.disk / "two.zip").string());
}

TEST(DialogCercaLivelli, AFolderOnACdCantBeChanged) {
  SearchFixture f;
  f.disk.Write("cd/level.zip", "x");
  f.disk.Write("hd/level.zip", "x");
  f.platform.drives = {testing::MakeDrive((f.disk / "cd").string(), kDriveCdRom),
                       testing::MakeDrive("/", kDriveFixed)};
  f.program.SearchHistory = {{(f.disk / "cd").string(), 2}, {(f.disk / "hd").string(), 1}};
  f.Open();
  f.form.Pul_SearchAll.Click();
  EXPECT_FALSE(f.form.Pul_DeleteZip.Enabled());
  EXPECT_FALSE(f.form.Pul_RenameZip.Enabled());
  f.form.Combo_Folder.SetListIndex(1);
  f.form.Pul_SearchAll.Click();
  EXPECT_TRUE(f.form.Pul_DeleteZip.Enabled());
  EXPECT_TRUE(f.form.Pul_RenameZip.Enabled());
}

}  // namespace
}  // namespace vardolin
