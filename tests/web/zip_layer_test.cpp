#include "web/zip_layer.h"

#include <gtest/gtest.h>
#include <locale.h>

#include <random>

#include "../../bench/bench_data.h"
#include "archive_fixture.h"
#include "archive_writer.h"
#include "fault_child.h"
#include "foundation/services/unfinished_work.h"
#include "store_fixture.h"
#include "test_program.h"
#include "web/zip_classes.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using vardolin::bench::CompressibleBytes;
using vardolin::bench::RandomBytes;
using vardolin::testing::Member;
using vardolin::testing::ReadFile;
using vardolin::testing::TempDir;
using vardolin::testing::TestProgram;
using vardolin::testing::WriteArchive;

TEST(ListZipEntries, NamesAsAuthorsWriteThem) {
  TempDir dir;
  const fs::path raw = dir / "raw.zip", utf8 = dir / "utf8.zip";
  WriteArchive(raw, {{"a/", "", Member::Folder},
                     {"a/b/", "", Member::Folder},
                     {"a/b/c.tr4", "x"},
                     {"data\\x.tr4", "y"},
                     {"\x8a\x82.txt", "oem"}});
  WriteArchive(utf8, {{"citt\u00e0/\u00e8.txt", "u"}}, "zip", nullptr, nullptr, true);
  dir.Write("sfx.exe", "MZ a self-extractor's program" + ReadFile(raw));
  dir.Write("z64/level/room.tr4", "r");
  ASSERT_EQ(
      std::system(("cd " + (dir / "z64").string() + " && zip -q -r -fz ../z64.zip level").c_str()),
      0);
  dir.Write("junk.zip", "not a zip at all");
  dir.Write("cut.zip", ReadFile(raw).substr(0, ReadFile(raw).size() / 2));

  struct Case {
    fs::path zip;
    bool keep_paths;
    std::vector<std::string> names;
  } cases[] = {
      {raw, true, {"a\\b\\c.tr4", "data\\x.tr4", "\u00e8\u00e9.txt"}},
      {raw, false, {"c.tr4", "x.tr4", "\u00e8\u00e9.txt"}},
      {utf8, true, {"citt\u00e0\\\u00e8.txt"}},
      {dir / "sfx.exe", false, {"c.tr4", "x.tr4", "\u00e8\u00e9.txt"}},
      {dir / "z64.zip", true, {"level\\room.tr4"}},
      {dir / "junk.zip", true, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.zip.filename().string() + (c.keep_paths ? " keeping paths" : ""));
    std::int32_t count = -1;
    EXPECT_EQ(ListZipEntries(c.zip, count, c.keep_paths), c.names);
    EXPECT_EQ(count, static_cast<std::int32_t>(c.names.size()));
  }
}

TEST(ExtractZip, UnpacksAndMovesTheBarByFiles) {
  TestProgram t;
  vardolin::testing::StandInMainWindow window(t.program);
  const fs::path zip = t.home / "level.zip";
  WriteArchive(zip, {{"data/", "", Member::Folder},
                     {"data/title.tr4", RandomBytes(70000, 1)},
                     {"DATA/Title.TR4", "the later entry of a name wins"},
                     {"script.dat", CompressibleBytes(50000, 2)},
                     {"audio/044.wav", "wave"},
                     {"\x8a\x82.txt", "named in the OEM code page"}});
  std::vector<int> bar;
  window.ProgressBar1.Subscribe(
      [&](Control&, Change) { bar.push_back(window.ProgressBar1.Value()); });

  const fs::path tree = t.home / "tree", flat = t.home / "flat";
  ASSERT_TRUE(ExtractZip(t.program, zip, tree, &window.ProgressBar1, true, false));
  EXPECT_EQ(testing::Snapshot(tree), (std::map<std::string, std::string>{
                                         {"audio/044.wav", "wave"},
                                         {"data/title.tr4", "the later entry of a name wins"},
                                         {"\u00e8\u00e9.txt", "named in the OEM code page"},
                                         {"script.dat", CompressibleBytes(50000, 2)}}));
  EXPECT_EQ(bar, (std::vector<int>{20, 40, 60, 80, 100, 0}));

  std::string why;
  ASSERT_TRUE(ExtractZip(t.program, zip, flat, nullptr, false, false, &why)) << why;
  EXPECT_EQ(testing::Snapshot(flat).size(), 4u);
  EXPECT_TRUE(fs::exists(flat / "044.wav"));
}

TEST(ExtractZip, WhatComesOutOfAZipThatFailsOrHoldsNoFile) {
  TestProgram t;
  const fs::path good = t.home / "good.zip";
  WriteArchive(good, {{"one.txt", "1"}, {"sub/two.txt", CompressibleBytes(40000, 3)}});
  const std::string bytes = ReadFile(good);
  std::string damaged = bytes;
  damaged[bytes.find("PK\x03\x04", 10) + 30 + 11 + 500] ^= 0x55;  // inside two.txt's data
  t.home.Write("damaged.zip", damaged);
  t.home.Write("cut.zip", bytes.substr(0, bytes.size() - 30));
  // Stored as it is: a changed byte shows only in the entry's checksum.
  TempDir loose;
  loose.Write("one.txt", "1");
  loose.Write("two.txt", std::string(9000, 'x'));
  ASSERT_EQ(
      std::system(
          ("cd '" + loose.path().string() + "' && zip -0 -q crc.zip one.txt two.txt").c_str()),
      0);
  std::string crc = ReadFile(loose / "crc.zip");
  crc[crc.find("xxxxxxxx") + 4000] = 'y';
  t.home.Write("crc.zip", crc);
  WriteArchive(t.home / "folders.zip", {{"a/", "", Member::Folder}, {"a/b/", "", Member::Folder}});
  WriteArchive(t.home / "big.zip", {{"small.txt", "s"}, {"big.tr4", std::string(4 << 20, '\0')}});
  WriteArchive(t.home / "locked.zip", {{"one.txt", "1"}, {"two.txt", CompressibleBytes(9000, 4)}},
               "zip", nullptr, "right");
  WriteArchive(t.home / "bomb.zip", {{"one.txt", "1"}, {"zeros.tr4", std::string(600000, '\0')}});

  // Each zip with part of the reason, and whether its readable entry comes in; the locked one
  // is given a wrong password, and the bomb is refused when asked.
  struct Case {
    const char* zip;
    const char* told;
    bool one_comes;
  } cases[] = {{"damaged.zip", "two.txt\": ZIP bad", true},
               {"crc.zip", "two.txt\": ZIP bad", true},
               {"cut.zip", "cut.zip", false},
               {"folders.zip", "holds no file", false},
               {"big.zip", "needs 4.0 Mb", false},
               {"locked.zip", "wrong password", false},
               {"bomb.zip", "not unpacked", false}};
  t.platform.free_bytes = 1 << 20;
  t.program.texts.EnglishTexts = vardolin::testing::ReadEnglishForTests();
  const std::map<std::string, std::string> before = {{"keep.txt", "k"}, {"sub/deep.txt", "d"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.zip);
    TempDir dest;
    for (const auto& [name, content] : before) dest.Write(name, content);
    if (c.zip == std::string("locked.zip")) t.ui.Input("wrong", "Please Enter The Password!");
    if (c.zip == std::string("bomb.zip")) t.ui.Answer(msg::kNo, "times its own size");
    std::string why;
    EXPECT_EQ(ExtractZip(t.program, t.home / c.zip, dest.path(), nullptr, true, false, &why),
              c.one_comes);
    EXPECT_NE(why.find(c.told), std::string::npos) << why;
    auto expected = before;
    if (c.one_comes) expected["one.txt"] = "1";
    EXPECT_EQ(testing::Snapshot(dest.path()), expected);
    EXPECT_TRUE(t.ui.Done());
  }
  // The right password opens every entry, asked once for the archive.
  const std::size_t asked = t.ui.Questions().size();
  t.ui.Input("right", "Please Enter The Password!");
  ASSERT_TRUE(ExtractZip(t.program, t.home / "locked.zip", t.home / "out", nullptr, true, false));
  EXPECT_EQ(ReadFile(t.home / "out/two.txt"), CompressibleBytes(9000, 4));
  EXPECT_EQ(t.ui.Questions().size(), asked + 1);
}

// Names that would land outside the destination, in a zip and in a tar.gz: none of them may
// write a byte outside it, and the archive's plain files still come in.
TEST(HostileArchives, NothingLandsOutsideTheDestination) {
  const std::vector<Member> members = {
      {"../up.txt", "x"},
      {"..\\up2.txt", "x"},
      {"/abs-vardolin-test.txt", "x"},
      {"C:\\drive.txt", "x"},
      {"sub/../../up3.txt", "x"},
      {"lnk", "", Member::Link, ".."},
      {"lnk/through.txt", "x"},
      {"root", "", Member::Link, "/"},
      {"ROOT\\tmp\\through2.txt", "x"},
      {"good.txt", "g"},
      {"sub/ok.txt", "o"},
  };
  for (const char* kind : {"zip", "tar.gz"}) {
    SCOPED_TRACE(kind);
    const bool zip = kind == std::string("zip");
    TestProgram t;
    const fs::path root = t.home / "root";
    const fs::path archive = t.home / (std::string("hostile.") + kind);
    WriteArchive(archive, members, zip ? "zip" : "pax", zip ? nullptr : "gzip");
    t.home.Write("root/outside.txt", "untouched");
    t.home.Write("root/sibling/keep.txt", "untouched too");
    const auto before = testing::Snapshot(root);
    const fs::path dest = root / "dest" / "level";

    std::string why;
    bool ok = zip ? ExtractZip(t.program, archive, dest, nullptr, true, false, &why)
                  : ExtractWithTool(t.program, archive, dest, false);
    ASSERT_TRUE(ok) << why;
    auto after = testing::Snapshot(root);
    EXPECT_EQ(after.erase("dest/level/good.txt"), 1u);
    EXPECT_EQ(after.erase("dest/level/sub/ok.txt"), 1u);
    EXPECT_EQ(after, before);
    EXPECT_FALSE(fs::exists("/abs-vardolin-test.txt"));
    for (const char* name : {"up.txt", "up2.txt", "abs-vardolin", "drive.txt", "up3.txt",
                             "through.txt", "through2.txt"})
      EXPECT_TRUE(!zip || why.find(name) != std::string::npos) << name << " in " << why;
  }
}

constexpr const char* kKillChildVariable = "VARDOLIN_UNPACK_KILL_JOB";

// Runs only as the child: one unpacking into the folder the parent filled, killed where it says.
TEST(UnpackKillChild, Unpack) {
  const auto job = testing::ReadFaultJob(kKillChildVariable);
  if (!job) GTEST_SKIP() << "runs only as the child of the kill test";
  testing::ChildProgram child(job->root / "home");
  ExtractZip(child.program, job->root / "level.zip", job->root / "dest", nullptr, true, false);
}

// New names are written in place: a kill at any entry leaves them to the next run's clean-up,
// which puts the folder back as it was, while a file that stood is replaced only at the end.
TEST(ExtractZip, AKilledUnpackingIsTakenBackByTheNextRun) {
  TempDir dir;
  WriteArchive(dir / "level.zip", {{"one.txt", "new one"},
                                   {"two.txt", CompressibleBytes(20000, 8)},
                                   {"sub/deeper/three.txt", "3"},
                                   {"Keep.TXT", "replaces the user's"},
                                   {"four.txt", "4"}});
  const std::map<std::string, std::string> users = {{"keep.txt", "the user's"},
                                                    {"sub/mine.txt", "mine"}};
  int kills = 0;
  for (int n = 1; n <= 6; ++n) {
    SCOPED_TRACE(n);
    std::error_code ec;
    fs::remove_all(dir / "dest", ec);
    for (const auto& [name, bytes] : users) dir.Write("dest/" + name, bytes);
    const int killed = testing::RunFaultChild("UnpackKillChild.Unpack", kKillChildVariable,
                                              "unpack|" + dir.path().string(),
                                              "unpack-entry:" + std::to_string(n));
    kills += killed;
    testing::ChildProgram next(dir / "home");
    EXPECT_EQ(ClearUnfinishedWork(next.program), killed);
    if (!killed) {
      EXPECT_EQ(testing::Snapshot(dir / "dest").size(), 6u);
      EXPECT_EQ(ReadFile(dir / "dest/keep.txt"), "replaces the user's");
      break;
    }
    EXPECT_EQ(testing::Snapshot(dir / "dest"), users);
    EXPECT_FALSE(fs::exists(dir / "dest/sub/deeper"));
    EXPECT_EQ(std::distance(fs::directory_iterator(dir / "dest"), fs::directory_iterator()), 2);
  }
  EXPECT_EQ(kills, 5);
}

TEST(ExtractWithTool, UnpacksEveryKindAndNamesWhatItCantRead) {
  TestProgram t;
  const std::vector<Member> members = {{"data/level.tr4", RandomBytes(5000, 6)},
                                       {"readme.txt", CompressibleBytes(2000, 7)}};
  WriteArchive(t.home / "level.7z", members, "7zip");
  WriteArchive(t.home / "level.tar.gz", members, "pax", "gzip");
  WriteArchive(t.home / "level.zip", members);
  t.home.Write("broken.rar", "Rar!\x1a\x07\x00 and then nothing sensible");
  const std::map<std::string, std::string> expected = {{"data/level.tr4", RandomBytes(5000, 6)},
                                                       {"readme.txt", CompressibleBytes(2000, 7)}};
  for (const char* name : {"level.7z", "level.tar.gz", "level.zip"}) {
    SCOPED_TRACE(name);
    const fs::path target = t.home / "target";
    t.home.Write("target/old.txt", "emptied first");
    EXPECT_TRUE(ExtractWithTool(t.program, t.home / name, target, true));
    EXPECT_EQ(testing::Snapshot(target), expected);
  }
  // A hard link is a second copy of a file that came before it.
  WriteArchive(t.home / "links.tar",
               {{"data/level.tr4", RandomBytes(5000, 6)},
                {"copy.tr4", "", Member::HardLink, "data/level.tr4"},
                {"orphan.tr4", "", Member::HardLink, "nowhere.tr4"}},
               "pax");
  EXPECT_TRUE(ExtractWithTool(t.program, t.home / "links.tar", t.home / "linked", false));
  EXPECT_EQ(testing::Snapshot(t.home / "linked"),
            (std::map<std::string, std::string>{{"data/level.tr4", RandomBytes(5000, 6)},
                                                {"copy.tr4", RandomBytes(5000, 6)}}));

  // An mtree list would have files of this machine read into the target.
  const fs::path secret = t.home.Write("secret.txt", "not for levels");
  t.home.Write("list.mtree", "#mtree\n./copied type=file contents=" + secret.string() + "\n");
  for (const char* name : {"broken.rar", "list.mtree"}) {
    SCOPED_TRACE(name);
    t.home.Write("target/old.txt", "stays");
    t.ui.Answer(msg::kOk, name);
    EXPECT_FALSE(ExtractWithTool(t.program, t.home / name, t.home / "target", false));
    EXPECT_EQ(testing::Snapshot(t.home / "target"),
              (std::map<std::string, std::string>{{"old.txt", "stays"},
                                                  {"data/level.tr4", RandomBytes(5000, 6)},
                                                  {"readme.txt", CompressibleBytes(2000, 7)}}));
  }
}

}  // namespace
}  // namespace vardolin
