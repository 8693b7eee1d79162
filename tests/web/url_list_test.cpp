#include "web/url_list.h"

#include <gtest/gtest.h>

#include "archive_fixture.h"
#include "foundation/services/binary_io.h"
#include "foundation/services/files.h"
#include "local_http_server.h"
#include "web/dialog_download.h"
#include "web/dialog_siti.h"
#include "web/url_list_offers.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::LocalHttpServer;

// An entry as the file holds it, written by hand so that the program's writer is checked
// against the layout and not against itself.
std::string EntryBytes(std::string_view url, std::string_view name, std::int32_t type, bool user) {
  ByteWriter w;
  w.I16(static_cast<std::int16_t>(url.size()));
  w.Raw(url);
  w.I16(static_cast<std::int16_t>(name.size()));
  w.Raw(name);
  w.I32(type);
  w.Flag(user);
  return w.Take();
}
std::string Header(std::int32_t count, double date = 45000.5) {
  ByteWriter w;
  w.I32(count);
  w.F64(date);
  return w.Take();
}

TEST(UrlListTest, TheFileIsReadAndWrittenExactlyAndDamageGivesAnEmptyList) {
  const std::string one = EntryBytes("http://a.org/", "Caf\xE9 levels", 1, true);
  UrlList list;
  ASSERT_TRUE(ParseUrlList(Header(1) + one, list));
  EXPECT_EQ(list.LastUpdate, 45000.5);
  ASSERT_EQ(list.Count(), 1);
  EXPECT_EQ(list.entries[0].Name, "Café levels");
  EXPECT_TRUE(list.entries[0].UserAdded);
  EXPECT_EQ(UrlListBytes(list), Header(1) + one);
  ASSERT_TRUE(ParseUrlList(Header(0, 44000), list));
  EXPECT_EQ(list.LastUpdate, 44000);

  const std::string damaged[] = {
      "",
      Header(2) + one,                               // count beyond the file
      Header(2000000000) + one,                      // a count no file holds
      Header(1) + std::string("\xFF\xFF", 2) + one,  // negative length
      Header(1) + one.substr(0, 8),                  // length past the end
  };
  for (const std::string& bytes : damaged) {
    SCOPED_TRACE(bytes.size());
    list.entries.push_back({});
    EXPECT_FALSE(ParseUrlList(bytes, list));
    EXPECT_EQ(list.Count(), 0);
  }
  // Types a newer list brings are kept and written back as they came.
  const std::string newer = Header(2) + EntryBytes("http://n.org/", "x", 9, false) +
                            EntryBytes("http://m.org/", "y", -3, true);
  ASSERT_TRUE(ParseUrlList(newer, list));
  EXPECT_EQ(UrlListBytes(list), newer);
}

TEST(UrlListTest, KnownPatchesMatchOnlyWhenEveryFileStandsWithItsSize) {
  testing::ArchiveFixture t;
  const fs::path level = t.Path("level");
  fs::create_directories(level);
  WriteTextFile(level / "tomb4.exe", "0123456789");
  WriteTextFile(level / "Data.tr4", "12345");
  WriteTextFile(t.Path("outside.dll"), "123");
  UrlList list;
  for (const char* name :
       {"Fix A - tomb4.exe;10", "Fix B - TOMB4.EXE; 10 ;data.tr4;5", "Fix C - tomb4.exe;11",
        "Fix D - tomb4.exe;10;missing.dll;3", "No dash tomb4.exe;10", "Fix E - ../outside.dll;3",
        "Fix F - tomb4.exe", "Fix G -"})
    list.entries.push_back({"http://p.org/fix.zip", name, url_type::kPatch, false});
  list.entries.push_back({"http://p.org/", "Fix H - tomb4.exe;10", url_type::kLevels, false});
  std::vector<std::string> names;
  for (const UrlEntry& e : MatchingKnownPatches(list, level)) names.push_back(e.Name);
  EXPECT_EQ(names, (std::vector<std::string>{"Fix A - tomb4.exe;10",
                                             "Fix B - TOMB4.EXE; 10 ;data.tr4;5"}));
}

UrlList FiveLevelSites() {
  UrlList list;
  list.LastUpdate = 45000;
  for (const char* n : {"A", "B", "C"})
    list.entries.push_back({std::string("http://") + n + ".org/levels", n, 1, false});
  list.entries.push_back({"http://h.org/", "***hidden", 1, false});
  list.entries.push_back({"http://e.org/", "E", 1, true});
  list.entries.push_back({"http://v.org/", "106: the notice", url_type::kNewVersion, false});
  return list;
}

std::vector<std::string> Rows(const Dialog_Siti& d) {
  std::vector<std::string> rows;
  for (const ListItem& item : d.List_Url.Items()) rows.push_back(item.text);
  return rows;
}

TEST(UrlListTest, TheWindowListsEditsAndSavesTheShownCategory) {
  testing::ArchiveFixture t;
  ASSERT_TRUE(WriteUrlList(UrlListPath(t.program), FiveLevelSites()));
  Dialog_Siti d(t.program);
  d.ImpostaValori(url_type::kLevels, false);
  EXPECT_EQ(Rows(d), (std::vector<std::string>{"A", "B", "C", "(yours) E"}));

  d.List_Url.SetListIndex(2);
  t.ui.Answer(msg::kYes, "C");
  d.Pul_Remove.Click();
  EXPECT_EQ(Rows(d), (std::vector<std::string>{"A", "B", "(yours) E"}));
  EXPECT_EQ(d.List.entries[2].Name, "106: the notice");  // the last entry took its place

  t.ui.Input("Again A").Input("HTTP://A.ORG/LEVELS").Answer(msg::kNo, "A");
  d.Pul_Add.Click();
  t.ui.Input("B's forum").Input("http://b.org/forum").Answer(msg::kYes, "B");
  d.Pul_Add.Click();
  EXPECT_EQ(d.List_Url.SelectedText(), "(yours) B's forum");
  t.ui.Input("A levels").Input("http://a.org/");
  d.List_Url.SetListIndex(0);
  d.Pul_Change.Click();  // its own address and host collide with nothing but itself
  EXPECT_EQ(d.Label_Url.Caption(), "http://a.org/");
  t.platform.opener_answers = false;  // a desktop without a browser
  t.ui.Answer(msg::kOk, "No web browser opened http://a.org/");
  d.Pul_Go.Click();

  d.Pul_Ok.Click();
  UrlList saved;
  ASSERT_TRUE(ReadUrlList(UrlListPath(t.program), saved));
  EXPECT_EQ(UrlListBytes(saved), UrlListBytes(d.List));
  EXPECT_EQ(saved.Count(), 6);
  EXPECT_EQ(saved.entries[5].Type, url_type::kLevels);
  EXPECT_TRUE(saved.entries[5].UserAdded);
}

void ExpectDownloadWindow(testing::ScriptedUi& ui) {
  ui.OnForm("Dialog_Download", [](Form& f) { static_cast<Dialog_Download&>(f).Timer1.Tick(); });
}

TEST(UrlListTest, AnOldListIsUpdatedFromTheSecondSourceWithTheUsersEntriesFirst) {
  LocalHttpServer server;
  UrlList served;
  served.entries = {
      {"http://new.org/", "New site", 1, false},
      {"http://v.org/104", "104: this very version", url_type::kNewVersion, false},
      {"http://v.org/105", "105", url_type::kNewVersion, false},
      {"*", "Hello to all", url_type::kMessage, false},
  };
  server.ServeFile("/urllist.bin", UrlListBytes(served));
  testing::ArchiveFixture t;
  t.program.lists.UrlListSources = {server.Url("/gone/urllist.bin"), server.Url("/urllist.bin")};
  UrlList old = FiveLevelSites();
  old.LastUpdate = OleDateNow() - 31;
  ASSERT_TRUE(WriteUrlList(UrlListPath(t.program), old));

  t.ui.Answer(msg::kYes, "more than a month old");
  ExpectDownloadWindow(t.ui);
  t.ui.Answer(msg::kYes, "number 2 ?\r\n" + server.Url("/urllist.bin"));
  ExpectDownloadWindow(t.ui);
  t.ui.Answer(msg::kYes, "1.05\r\n\r\n");
  t.ui.Answer(msg::kOk, "Hello to all");
  t.ui.OnForm("Dialog_Siti", [](Form& f) { static_cast<Dialog_Siti&>(f).Pul_Ok.Click(); });
  OfferUrlListUpdate(t.program);
  EXPECT_EQ(t.platform.calls, std::vector<std::string>{"open http://v.org/105"});

  UrlList now;
  ASSERT_TRUE(ReadUrlList(UrlListPath(t.program), now));
  ASSERT_EQ(now.Count(), 5);
  EXPECT_EQ(now.entries[0].Name + ", " + now.entries[1].Name, "E, New site");
  EXPECT_GT(now.LastUpdate, OleDateNow() - 0.01);
  OfferUrlListUpdate(t.program);  // a fresh list is not offered again
}

// The window opened on a list it can't read, or on one with entries of a type it doesn't know:
// nothing of the user's file is lost either way.
TEST(UrlListTest, AListTheWindowCantReadIsKeptAndReplacedOnlyWhenTheUserAgrees) {
  testing::ArchiveFixture t;
  const fs::path path = UrlListPath(t.program);
  const std::string mine = Header(2) + EntryBytes("http://mine.org/", "Mine", 1, true) +
                           EntryBytes("http://later.org/", "Later", 12, true);
  t.dir.Write("home/" + path.filename().string(), mine);
  Dialog_Siti known(t.program);
  known.ImpostaValori(url_type::kLevels, false);
  EXPECT_EQ(Rows(known), std::vector<std::string>{"(yours) Mine"});
  t.ui.Input("Added").Input("http://added.org/");
  known.Pul_Add.Click();
  known.Pul_Ok.Click();
  EXPECT_EQ(ReadWholeFile(path).substr(12, mine.size() - 12), mine.substr(12));

  const std::string damaged = mine.substr(0, mine.size() - 3);
  for (const int answer : {msg::kNo, msg::kYes}) {
    SCOPED_TRACE(answer);
    t.dir.Write("home/" + path.filename().string(), damaged);
    t.ui.Answer(msg::kOk, "can't be read");
    Dialog_Siti d(t.program);
    d.ImpostaValori(url_type::kLevels, false);
    EXPECT_EQ(ReadWholeFile(d.SetAside), damaged);
    t.ui.Input("New").Input("http://new.org/");
    d.Pul_Add.Click();
    t.ui.Answer(answer, "could not be read when the window opened");
    d.Pul_Ok.Click();
    EXPECT_EQ(ReadWholeFile(path) == damaged, answer == msg::kNo);
    EXPECT_TRUE(t.ui.Done());
  }
}

}  // namespace
}  // namespace vardolin
