#include <gtest/gtest.h>

#include <chrono>

#include "editor/dialog_compare_trle.h"
#include "editor_test_fixture.h"

namespace vardolin::testing {
namespace {
namespace fs = std::filesystem;

struct CompareCase {
  const char* name;
  std::vector<std::pair<const char*, const char*>> source;  // relative path, bytes
  std::vector<std::pair<const char*, const char*>> target;
  bool full;
  bool hide_ok;
  std::vector<std::string> rows;     // the report's file rows, in order
  std::vector<std::string> changed;  // what ListChangedFiles gives
  const char* counts;                // "ok new missing changed"
};

// Every file of a folder gets one date, so that only the case's own differences count.
void Fill(const fs::path& folder, const std::vector<std::pair<const char*, const char*>>& files) {
  fs::create_directories(folder);
  for (const auto& [rel, bytes] : files) {
    WriteBytes(folder / rel, bytes);
    fs::last_write_time(folder / rel, fs::file_time_type(std::chrono::seconds(1700000000)));
  }
}

TEST(CompareTrleTest, ReportsEachFileOnceByNameSizeAndDate) {
  const CompareCase cases[] = {
      {"names in another case are the same file",
       {{"Tomb4.exe", "g"}, {"data/Title.tr4", "t"}},
       {{"TOMB4.EXE", "g"}, {"DATA/title.TR4", "t"}},
       false,
       false,
       {" [OK]      \\TOMB4.EXE ", " [OK]      \\data\\TITLE.TR4 "},
       {},
       "2 0 0 0"},
      {"size, missing and new; new ones fill the gaps from the end",
       {{"a.exe", "1"}, {"b.exe", "2"}, {"c.exe", "3"}},
       {{"a.exe", "11"}, {"c.exe", "3"}, {"d.exe", "4"}, {"e.exe", "5"}},
       false,
       false,
       {" [CHANGED] \\A.EXE ", " [MISSING] \\B.EXE ", " [OK]      \\C.EXE ", " [NEW   ]  \\E.EXE",
        " [NEW   ]  \\D.EXE"},
       {"\\A.EXE", "\\E.EXE", "\\D.EXE"},
       "1 2 1 1"},
      {"compact: root, wads and data only, three extensions left out",
       {},
       {{"x.tmp", "t"}, {"maps/x.prj", "p"}, {"graphics/wads/x.wad", "w"}, {"x.txt", "n"}},
       false,
       false,
       {" [NEW   ]  \\X.TXT", " [NEW   ]  \\graphics\\wads\\X.WAD"},
       {"\\X.TXT", "\\graphics\\wads\\X.WAD"},
       "0 2 0 0"},
      {"full: every folder",
       {},
       {{"maps/x.prj", "p"}},
       true,
       false,
       {" [NEW   ]  \\maps\\X.PRJ"},
       {"\\maps\\X.PRJ"},
       "0 1 0 0"},
      {"equal files hidden still count",
       {{"a.exe", "1"}, {"b.exe", "2"}},
       {{"a.exe", "1"}, {"b.exe", "33"}},
       false,
       true,
       {" [CHANGED] \\B.EXE "},
       {"\\B.EXE"},
       "1 0 0 1"},
  };
  for (const CompareCase& c : cases) {
    SCOPED_TRACE(c.name);
    EditorTest t;
    Fill(t.Path("src"), c.source);
    Fill(t.Path("dst"), c.target);
    Dialog_CompareTrle dialog(t.program);
    dialog.Label_Sorg.SetCaption(t.Path("src").string());
    dialog.Label_DirDest.SetCaption(t.Path("dst").string());
    (c.full ? dialog.Opt_Full : dialog.Opt_Compact).SetValue(true);
    dialog.Check_NotOk.SetValue(c.hide_ok);
    dialog.CompareFolders();
    std::vector<std::string> rows;
    for (const ListItem& row : dialog.List_Prospetto.Items())
      if (row.text[0] != '|') rows.push_back(row.text);
    EXPECT_EQ(rows, c.rows);
    EXPECT_EQ(std::to_string(dialog.CountOk) + " " + std::to_string(dialog.CountNew) + " " +
                  std::to_string(dialog.CountMissing) + " " + std::to_string(dialog.CountChanged),
              c.counts);
    EXPECT_EQ(dialog.ListChangedFiles(t.Path("dst").string(), c.full), c.changed);
  }
}

TEST(CompareTrleTest, ADateOneSecondApartIsAChange) {
  EditorTest t;
  Fill(t.Path("src"), {{"a.exe", "1"}});
  Fill(t.Path("dst"), {{"a.exe", "1"}});
  fs::last_write_time(t.Path("dst/a.exe"), fs::file_time_type(std::chrono::seconds(1700000001)));
  Dialog_CompareTrle dialog(t.program);
  dialog.Label_Sorg.SetCaption(t.Path("src").string());
  EXPECT_EQ(dialog.ListChangedFiles(t.Path("dst").string(), false),
            std::vector<std::string>{"\\A.EXE"});
}

}  // namespace
}  // namespace vardolin::testing
