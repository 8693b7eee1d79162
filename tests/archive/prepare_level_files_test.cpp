#include <gtest/gtest.h>

#include <map>

#include "archive/level_files.h"
#include "archive_fixture.h"
#include "foundation/pictures/picture_file.h"
#include "web/zlib_tool.h"

namespace vardolin::testing {
namespace {

namespace fs = std::filesystem;

using Files = std::map<std::string, std::string>;

Files FilesIn(const fs::path& folder) {
  Files out;
  if (!fs::is_directory(folder)) return out;
  for (const auto& e : fs::recursive_directory_iterator(folder))
    if (e.is_regular_file()) out[fs::relative(e.path(), folder).string()] = ReadFile(e.path());
  return out;
}

std::string Packed(const std::string& bytes) {
  std::string packed;
  EXPECT_EQ(web::PackBytes(bytes, packed), web::ZlResult::Ok);
  return packed;
}

std::string JpegBytes() {
  TempDir dir;
  Bitmap picture = Bitmap::Make(16, 8);
  picture.Pixel(3, 2)[0] = 200;
  EXPECT_EQ(WritePictureFile(dir / "load.jpg", picture, 90), PictureResult::Ok);
  return ReadFile(dir / "load.jpg");
}

struct PrepareFixture : ArchiveFixture {
  fs::path files = Path("archive/LEVEL_0001/files");
  fs::path Temp() const { return TempLevelFolder(program); }
  void Store(const Files& stored) {
    fs::create_directories(files);
    for (const auto& [name, bytes] : stored) WriteBytes(files / name, bytes);
  }
};

TEST(PrepareLevelFiles, StoredFormsEndAsTheGameReadsThem) {
  const std::string tr4(200000, 't'), dat = "script data", mp3 = "ID3 not expanded here";
  const std::string jpeg = JpegBytes();
  struct Case {
    const char* what;
    Files stored;
    bool needs_temp;
    std::vector<std::string> plain;  // names in the result that must equal the stored plain bytes
  };
  const std::vector<Case> cases = {
      {"plain level", {{"level.tr4", tr4}, {"script.dat", dat}, {"load.bmp", "BM"}}, false, {}},
      {"packed level",
       {{"level.tr4.zl", Packed(tr4)}, {"script.dat.zl", Packed(dat)}, {"readme.txt", "r"}},
       true,
       {"readme.txt"}},
      {"loading picture only", {{"level.tr4", tr4}, {"load.jpg", jpeg}}, true, {"level.tr4"}},
      {"compressed store",
       {{"level.tr4.zl", Packed(tr4)}, {"LOAD.JPG", jpeg}, {"music.mp3", mp3}},
       true,
       {"music.mp3"}},
      {"empty packed file", {{"empty.bin.zl", Packed("")}}, true, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    PrepareFixture f;
    f.Store(c.stored);
    f.dir.Write("home/temp_level_files/left_from_before.tr4", "old");
    if (!c.needs_temp) fs::remove_all(f.Temp());
    fs::path temporary = "not cleared";
    ASSERT_TRUE(PrepareLevelFiles(f.program, f.files, temporary));
    EXPECT_EQ(FilesIn(f.files), c.stored) << "the store is only read";
    if (!c.needs_temp) {
      EXPECT_EQ(temporary, fs::path());
      EXPECT_FALSE(fs::exists(f.Temp()));
      continue;
    }
    ASSERT_EQ(temporary, f.Temp());
    Files out = FilesIn(temporary);
    Files expected;
    for (const auto& [name, bytes] : c.stored) {
      if (name.ends_with(".zl"))
        expected[name.substr(0, name.size() - 3)] = name == "level.tr4.zl"    ? tr4
                                                    : name == "script.dat.zl" ? dat
                                                                              : "";
    }
    for (const std::string& name : c.plain) expected[name] = c.stored.at(name);
    bool had_picture = c.stored.count("load.jpg") || c.stored.count("LOAD.JPG");
    if (had_picture) {
      ASSERT_TRUE(out.count("load.bmp"));
      Bitmap back;
      ASSERT_EQ(ReadPictureFile(temporary / "load.bmp", back), PictureResult::Ok);
      EXPECT_EQ(back.width, 16);
      EXPECT_EQ(back.height, 8);
      expected["load.bmp"] = out["load.bmp"];
    }
    EXPECT_EQ(out, expected) << "no .zl, no jpeg, nothing from before";
  }
}

TEST(PrepareLevelFiles, PackedFilesShowTheZipWindowPlainOnesDont) {
  PrepareFixture plain;
  plain.Store({{"a.tr4", "a"}});
  fs::path temporary;
  ASSERT_TRUE(PrepareLevelFiles(plain.program, plain.files, temporary));
  EXPECT_TRUE(plain.ui.ModelessShown().empty());

  PrepareFixture packed;
  packed.Store({{"a.tr4.zl", Packed("a")}});
  ASSERT_TRUE(PrepareLevelFiles(packed.program, packed.files, temporary));
  EXPECT_EQ(packed.ui.ModelessShown(), std::vector<std::string>{"Dialog_Zip"});
}

TEST(PrepareLevelFiles, AFileThatCantBeExpandedIsToldAndNothingIsLost) {
  const std::string good = Packed(std::string(70000, 'g'));
  std::string corrupt = Packed(std::string(70000, 'c'));
  corrupt[corrupt.size() / 2] ^= 0x55;
  struct Case {
    const char* name;
    std::string bytes;
  };
  const std::vector<Case> cases = {
      {"broken.tr4.zl", corrupt},
      {"cut.tr4.zl", good.substr(0, good.size() - 9)},
      {"plain.tr4.zl", "not packed at all"},
      {"...zl", good},  // its name would lead out of the temporary folder
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    PrepareFixture f;
    f.Store({{"a_first.tr4.zl", good},
             {c.name, c.bytes},
             {"z_last.tr4.zl", good},
             {"load.jpg", JpegBytes()}});
    const Files before = FilesIn(f.files);
    const Files home_before = FilesIn(f.program.Home());
    f.ui.Answer(msg::kOk, c.name);
    fs::path temporary = "not cleared";
    EXPECT_FALSE(PrepareLevelFiles(f.program, f.files, temporary));
    EXPECT_EQ(temporary, fs::path());
    EXPECT_FALSE(fs::exists(f.Temp()));
    EXPECT_EQ(FilesIn(f.files), before);
    Files home_after = FilesIn(f.program.Home());
    home_after.erase("vardo_log.txt");
    EXPECT_EQ(home_after, home_before) << "nothing written outside";
    ASSERT_EQ(f.ui.Messages().size(), 1u);
  }
}

TEST(MakeTempFiles, EmptiesTheFolderAndCopiesFilesOnly) {
  PrepareFixture f;
  f.Store({{"a.tr4", "a"}, {"b.dat", "b"}, {"store/inner.bin", "i"}});
  f.dir.Write("home/temp_level_files/old/x", "x");
  fs::path temp = MakeTempFiles(f.program, f.files);
  ASSERT_EQ(temp, f.Temp());
  EXPECT_EQ(FilesIn(temp), (Files{{"a.tr4", "a"}, {"b.dat", "b"}}));
  EXPECT_EQ(MakeTempFiles(f.program, f.Path("missing")), f.Temp()) << "nothing to copy";
  EXPECT_TRUE(FilesIn(f.Temp()).empty());
}

TEST(SaveMediaFiles, TheEditorsMediaStateGoesIntoTheLevel) {
  struct Case {
    const char* what;
    bool editor_has_marker;
  };
  for (const Case& c : std::vector<Case>{{"without media.mpf", false}, {"with media.mpf", true}}) {
    SCOPED_TRACE(c.what);
    PrepareFixture f;
    fs::path editor = f.Path("trle");
    f.program.prefs.EditorFolder = editor.string();
    f.dir.Write("trle/intro.mcf", "new intro");
    f.dir.Write("trle/other.mcf", "not the level's");
    f.dir.Write("trle/store/clips/c1.bik", "c1");
    f.dir.Write("trle/store/top.txt", "top");
    if (c.editor_has_marker) f.dir.Write("trle/media.mpf", "editor marker");
    f.Store({{"INTRO.MCF", "old intro"}, {"media.mpf", "level marker"}, {"store/gone.bik", "g"}});

    ASSERT_TRUE(SaveMediaFiles(f.program, f.files));
    Files expected = {
        {"INTRO.MCF", "new intro"}, {"store/clips/c1.bik", "c1"}, {"store/top.txt", "top"}};
    if (c.editor_has_marker) expected["media.mpf"] = "level marker";
    EXPECT_EQ(FilesIn(f.files), expected);
    EXPECT_FALSE(fs::exists(editor / "other.mcf")) << "the level doesn't hold it";
    EXPECT_EQ(ReadFile(editor / "intro.mcf"), "new intro");
  }
}

}  // namespace
}  // namespace vardolin::testing
