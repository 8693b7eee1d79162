#include "web/zip_layer.h"

#include <gtest/gtest.h>
#include <locale.h>

#include <cstdlib>
#include <map>
#include <random>

#include "archive_writer.h"
#include "test_program.h"
#include "web/zip_classes.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using vardolin::testing::Member;
using vardolin::testing::ReadFile;
using vardolin::testing::TempDir;
using vardolin::testing::TestProgram;
using vardolin::testing::WriteArchive;

// Every file below `root` with its bytes, names relative to `root`.
std::map<std::string, std::string> Tree(const fs::path& root) {
  std::map<std::string, std::string> out;
  for (auto& e : fs::recursive_directory_iterator(root))
    if (!e.is_directory()) out[fs::relative(e.path(), root).string()] = ReadFile(e.path());
  return out;
}

std::string Text(std::size_t n, unsigned seed) {
  std::mt19937 rng(seed);
  std::string s;
  while (s.size() < n) s += "room " + std::to_string(rng() % 50) + " door key\n";
  return s.substr(0, n);
}

std::string Random(std::size_t n, unsigned seed) {
  std::mt19937 rng(seed);
  std::string s(n, '\0');
  for (char& c : s) c = static_cast<char>(rng());
  return s;
}

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
      {dir / "cut.zip", true, {}},
      {dir / "missing.zip", true, {}},
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
                     {"data/title.tr4", Random(70000, 1)},
                     {"DATA/Title.TR4", "the later entry of a name wins"},
                     {"script.dat", Text(50000, 2)},
                     {"audio/044.wav", "wave"},
                     {"\x8a\x82.txt", "named in the OEM code page"}});
  std::vector<int> bar;
  window.ProgressBar1.Subscribe(
      [&](Control&, Change) { bar.push_back(window.ProgressBar1.Value()); });

  const fs::path tree = t.home / "tree", flat = t.home / "flat";
  ASSERT_TRUE(ExtractZip(t.program, zip, tree, &window.ProgressBar1, true, false));
  EXPECT_EQ(Tree(tree), (std::map<std::string, std::string>{
                            {"audio/044.wav", "wave"},
                            {"data/title.tr4", "the later entry of a name wins"},
                            {"\u00e8\u00e9.txt", "named in the OEM code page"},
                            {"script.dat", Text(50000, 2)}}));
  EXPECT_EQ(bar, (std::vector<int>{20, 40, 60, 80, 100, 0}));

  std::string why;
  ASSERT_TRUE(ExtractZip(t.program, zip, flat, nullptr, false, false, &why)) << why;
  EXPECT_EQ(Tree(flat).size(), 4u);
  EXPECT_TRUE(fs::exists(flat / "044.wav"));
}

TEST(ExtractZip, WhatComesOutOfAZipThatFailsOrHoldsNoFile) {
  TestProgram t;
  const fs::path good = t.home / "good.zip";
  WriteArchive(good, {{"one.txt", "1"}, {"sub/two.txt", Text(40000, 3)}});
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
  WriteArchive(t.home / "locked.zip", {{"one.txt", "1"}, {"two.txt", Text(9000, 4)}}, "zip",
               nullptr, "right");

  struct Case {
    const char* zip;
    bool erase_first;
    std::string typed;  // password answer; "-" asks nothing
    const char* told;   // part of the reason
    std::map<std::string, std::string> left;
  } cases[] = {
      {"damaged.zip", false, "-", "two.txt", {{"keep.txt", "k"}, {"sub/deep.txt", "d"}}},
      {"crc.zip", false, "-", "two.txt", {{"keep.txt", "k"}, {"sub/deep.txt", "d"}}},
      {"cut.zip", false, "-", "cut.zip", {{"keep.txt", "k"}, {"sub/deep.txt", "d"}}},
      {"cut.zip", true, "-", "cut.zip", {{"sub/deep.txt", "d"}}},
      {"folders.zip", false, "-", "holds no file", {{"keep.txt", "k"}, {"sub/deep.txt", "d"}}},
      {"big.zip", false, "-", "big.tr4", {{"keep.txt", "k"}, {"sub/deep.txt", "d"}}},
      {"locked.zip", false, "wrong", "wrong password", {{"keep.txt", "k"}, {"sub/deep.txt", "d"}}},
      {"locked.zip", false, "", "no password", {{"keep.txt", "k"}, {"sub/deep.txt", "d"}}},
  };
  t.platform.free_bytes = 1 << 20;
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.zip) + (c.erase_first ? " erasing first" : ""));
    TempDir dest;
    dest.Write("keep.txt", "k");
    dest.Write("sub/deep.txt", "d");
    if (c.typed != "-") t.ui.Input(c.typed, "Please Enter The Password!");
    std::string why;
    EXPECT_FALSE(
        ExtractZip(t.program, t.home / c.zip, dest.path(), nullptr, true, c.erase_first, &why));
    EXPECT_NE(why.find(c.told), std::string::npos) << why;
    EXPECT_EQ(Tree(dest.path()), c.left);
    EXPECT_TRUE(t.ui.Done());
  }
}

TEST(ExtractZip, AsksThePasswordOncePerArchive) {
  TestProgram t;
  WriteArchive(t.home / "locked.zip", {{"one.txt", Text(3000, 5)}, {"two.txt", "2"}}, "zip",
               nullptr, "secret");
  t.ui.Input("secret", "Please Enter The Password!");
  ASSERT_TRUE(ExtractZip(t.program, t.home / "locked.zip", t.home / "out", nullptr, true, false));
  EXPECT_EQ(ReadFile(t.home / "out/one.txt"), Text(3000, 5));
  EXPECT_EQ(ReadFile(t.home / "out/two.txt"), "2");
  EXPECT_EQ(t.ui.Questions().size(), 1u);
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
    TestProgram t;
    const fs::path root = t.home / "root";
    const fs::path archive = t.home / (std::string("hostile.") + kind);
    WriteArchive(archive, members, kind == std::string("zip") ? "zip" : "pax",
                 kind == std::string("zip") ? nullptr : "gzip");
    t.home.Write("root/outside.txt", "untouched");
    t.home.Write("root/sibling/keep.txt", "untouched too");
    const auto before = Tree(root);
    const fs::path dest = root / "dest" / "level";

    std::string why;
    bool ok = kind == std::string("zip")
                  ? ExtractZip(t.program, archive, dest, nullptr, true, false, &why)
                  : ExtractWithTool(t.program, archive, dest, false);
    ASSERT_TRUE(ok) << why;
    auto after = Tree(root);
    EXPECT_EQ(after.erase("dest/level/good.txt"), 1u);
    EXPECT_EQ(after.erase("dest/level/sub/ok.txt"), 1u);
    EXPECT_EQ(after, before);
    EXPECT_FALSE(fs::exists("/abs-vardolin-test.txt"));
    if (kind == std::string("zip")) {
      for (const char* name : {"up.txt", "up2.txt", "abs-vardolin", "drive.txt", "up3.txt",
                               "through.txt", "through2.txt"})
        EXPECT_NE(why.find(name), std::string::npos) << name << " in " << why;
    }
  }
}

TEST(ExtractWithTool, UnpacksEveryKindAndNamesWhatItCantRead) {
  TestProgram t;
  const std::vector<Member> members = {{"data/level.tr4", Random(5000, 6)},
                                       {"readme.txt", Text(2000, 7)}};
  WriteArchive(t.home / "level.7z", members, "7zip");
  WriteArchive(t.home / "level.tar.gz", members, "pax", "gzip");
  WriteArchive(t.home / "level.zip", members);
  t.home.Write("broken.rar", "Rar!\x1a\x07\x00 and then nothing sensible");
  const std::map<std::string, std::string> expected = {{"data/level.tr4", Random(5000, 6)},
                                                       {"readme.txt", Text(2000, 7)}};
  for (const char* name : {"level.7z", "level.tar.gz", "level.zip"}) {
    SCOPED_TRACE(name);
    const fs::path target = t.home / "target";
    t.home.Write("target/old.txt", "emptied first");
    EXPECT_TRUE(ExtractWithTool(t.program, t.home / name, target, true));
    EXPECT_EQ(Tree(target), expected);
  }
  // A hard link is a second copy of a file that came before it.
  WriteArchive(t.home / "links.tar",
               {{"data/level.tr4", Random(5000, 6)},
                {"copy.tr4", "", Member::HardLink, "data/level.tr4"},
                {"orphan.tr4", "", Member::HardLink, "nowhere.tr4"}},
               "pax");
  EXPECT_TRUE(ExtractWithTool(t.program, t.home / "links.tar", t.home / "linked", false));
  EXPECT_EQ(Tree(t.home / "linked"),
            (std::map<std::string, std::string>{{"data/level.tr4", Random(5000, 6)},
                                                {"copy.tr4", Random(5000, 6)}}));

  // An mtree list would have files of this machine read into the target.
  const fs::path secret = t.home.Write("secret.txt", "not for levels");
  t.home.Write("list.mtree", "#mtree\n./copied type=file contents=" + secret.string() + "\n");
  for (const char* name : {"broken.rar", "list.mtree"}) {
    SCOPED_TRACE(name);
    t.home.Write("target/old.txt", "stays");
    t.ui.Answer(msg::kOk, name);
    EXPECT_FALSE(ExtractWithTool(t.program, t.home / name, t.home / "target", false));
    EXPECT_EQ(Tree(t.home / "target"),
              (std::map<std::string, std::string>{{"old.txt", "stays"},
                                                  {"data/level.tr4", Random(5000, 6)},
                                                  {"readme.txt", Text(2000, 7)}}));
  }
}

TEST(ZipFolderToFile, WhatGoesInComesBackOut) {
  TestProgram t;
  const fs::path folder = t.home / "export";
  const std::map<std::string, std::string> top = {{"title.tr4", Random(300000, 8)},
                                                  {"script.txt", Text(200000, 9)},
                                                  {"citt\u00e0.txt", "named in UTF-8"}};
  for (const auto& [name, bytes] : top) t.home.Write("export/" + name, bytes);
  t.home.Write("export/sub/deep.txt", "deep");
  fs::create_directories(folder / "empty");

  for (bool recurse : {false, true}) {
    SCOPED_TRACE(recurse ? "recursing" : "top only");
    const fs::path zip = t.home / "out.zip", back = t.home / (recurse ? "back-r" : "back");
    ASSERT_TRUE(ZipFolderToFile(t.program, folder, zip, nullptr, recurse));
    EXPECT_EQ(std::system(("unzip -tqq " + zip.string() + " >/dev/null").c_str()), 0);
    ASSERT_TRUE(ExtractZip(t.program, zip, back, nullptr, true, false));
    auto expected = top;
    if (recurse) expected["sub/deep.txt"] = "deep";
    EXPECT_EQ(Tree(back), expected);
    EXPECT_EQ(fs::is_directory(back / "empty"), recurse);
  }
  fs::create_directories(t.home / "nothing/sub");
  EXPECT_FALSE(ZipFolderToFile(t.program, t.home / "nothing", t.home / "n.zip", nullptr, false));
  EXPECT_FALSE(ZipFolderToFile(t.program, t.home / "missing", t.home / "m.zip", nullptr, true));
  EXPECT_FALSE(fs::exists(t.home / "n.zip"));
}

TEST(ZipClass, KeepsAListOfAtMost99Names) {
  ZipClass zip;
  EXPECT_FALSE(zip.AddFile("Level.tr4"));
  EXPECT_EQ(zip.AddFile("LEVEL.TR4").number, kFileAlreadyInZipList);
  EXPECT_FALSE(zip.RemoveFile("level.tr4"));
  EXPECT_EQ(zip.RemoveFile("level.tr4").number, kFileNotInZipList);

  TempDir dir;
  zip.BaseFolder = dir.path();
  zip.ZipFileName = (dir / "many.zip").string();
  for (int i = 0; i < 100; ++i) {
    dir.Write("f" + std::to_string(i), "x");
    zip.AddFile("f" + std::to_string(i));
  }
  EXPECT_EQ(zip.MakeZipFile(), kZipClassFailed);
  zip.RemoveFile("f99");
  EXPECT_EQ(zip.MakeZipFile(), 0);
  std::int32_t count = 0;
  ListZipEntries(dir / "many.zip", count, true);
  EXPECT_EQ(count, 99);
}

}  // namespace
}  // namespace vardolin
