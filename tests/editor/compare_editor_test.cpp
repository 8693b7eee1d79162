#include <gtest/gtest.h>

#include "editor/dialog_compare_trle.h"
#include "editor_test_fixture.h"

namespace vardolin::testing {
namespace {
namespace fs = std::filesystem;

struct CompareCase {
  const char* name;
  const char* source;  // "path=bytes" words
  const char* target;
  bool full;
  bool hide_ok;
  const char* rows;      // the report's file rows, each ending in '\n'
  const char* changed;   // what ListChangedFiles gives, each ending in ';'
  const char* counts;    // "ok new missing changed"
  int target_later = 0;  // seconds
};

// Every file of a folder gets one date, so that only the case's own differences count.
void Fill(const fs::path& folder, const std::string& files, int later = 0) {
  fs::create_directories(folder);
  std::istringstream words(files);
  for (std::string word; words >> word;) {
    const fs::path file = folder / word.substr(0, word.find('='));
    WriteBytes(file, word.substr(word.find('=') + 1));
    fs::last_write_time(file, fs::file_time_type(std::chrono::seconds(1700000000 + later)));
  }
}

TEST(CompareTrleTest, ReportsEachFileOnceByNameSizeAndDate) {
  const CompareCase cases[] = {
      {"names in another case are the same file", "Tomb4.exe=g data/Title.tr4=t",
       "TOMB4.EXE=g DATA/title.TR4=t", false, false,
       " [OK]      \\TOMB4.EXE \n [OK]      \\data\\TITLE.TR4 \n", "", "2 0 0 0"},
      {"size, missing and new; new ones fill the gaps from the end", "a.exe=1 b.exe=2 c.exe=3",
       "a.exe=11 c.exe=3 d.exe=4 e.exe=5", false, false,
       " [CHANGED] \\A.EXE \n [MISSING] \\B.EXE \n [OK]      \\C.EXE \n [NEW   ]  \\E.EXE\n"
       " [NEW   ]  \\D.EXE\n",
       "\\A.EXE;\\E.EXE;\\D.EXE;", "1 2 1 1"},
      {"compact: root, wads and data only, three extensions left out", "",
       "x.tmp=t maps/x.prj=p graphics/wads/x.wad=w x.txt=n", false, false,
       " [NEW   ]  \\X.TXT\n [NEW   ]  \\graphics\\wads\\X.WAD\n",
       "\\X.TXT;\\graphics\\wads\\X.WAD;", "0 2 0 0"},
      {"full: every folder", "", "maps/x.prj=p", true, false, " [NEW   ]  \\maps\\X.PRJ\n",
       "\\maps\\X.PRJ;", "0 1 0 0"},
      {"equal files hidden still count", "a.exe=1 b.exe=2", "a.exe=1 b.exe=33", false, true,
       " [CHANGED] \\B.EXE \n", "\\B.EXE;", "1 0 0 1"},
      {"a date one second apart", "a.exe=1", "a.exe=1", false, false, " [CHANGED] \\A.EXE \n",
       "\\A.EXE;", "0 0 0 1", 1},
  };
  for (const CompareCase& c : cases) {
    SCOPED_TRACE(c.name);
    EditorTest t;
    Fill(t.Path("src"), c.source);
    Fill(t.Path("dst"), c.target, c.target_later);
    Dialog_CompareTrle dialog(t.program);
    dialog.Label_Sorg.SetCaption(t.Path("src").string());
    dialog.Label_DirDest.SetCaption(t.Path("dst").string());
    (c.full ? dialog.Opt_Full : dialog.Opt_Compact).SetValue(true);
    dialog.Check_NotOk.SetValue(c.hide_ok);
    int top = 0;  // the bar goes through the whole work and is cleared at the end
    dialog.ProgressBar1.Subscribe(
        [&](Control&, Change) { top = std::max(top, dialog.ProgressBar1.Value()); });
    dialog.CompareFolders();
    EXPECT_EQ(top, 100);
    EXPECT_EQ(dialog.ProgressBar1.Value(), 0);
    std::string rows, changed;
    for (const ListItem& row : dialog.List_Prospetto.Items())
      if (row.text[0] != '|') rows += row.text + "\n";
    EXPECT_EQ(rows, c.rows);
    EXPECT_EQ(std::to_string(dialog.CountOk) + " " + std::to_string(dialog.CountNew) + " " +
                  std::to_string(dialog.CountMissing) + " " + std::to_string(dialog.CountChanged),
              c.counts);
    for (const std::string& file : dialog.ListChangedFiles(t.Path("dst").string(), c.full))
      changed += file + ";";
    EXPECT_EQ(changed, c.changed);
  }
}

}  // namespace
}  // namespace vardolin::testing
