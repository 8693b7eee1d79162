#include "intake/self_installer.h"

#include <gtest/gtest.h>

#include "archive_fixture.h"
#include "foundation/services/binary_io.h"
#include "intake/text_ids.h"
#include "store_fixture.h"
#include "web/zip_layer.h"

namespace vardolin::testing {
namespace {

namespace fs = std::filesystem;

struct Stored {
  std::string name;
  std::string bytes;
};

// A program's code, then the trailer that our installers put behind it.
std::string Installer(const std::string& magic, const std::vector<Stored>& files) {
  ByteWriter w;
  w.Raw("MZ code of the installer");
  const auto trailer = static_cast<std::uint32_t>(w.Size());
  w.Raw(magic);
  w.U8(0);
  w.I32(0);
  w.I32(static_cast<std::int32_t>(files.size()));
  for (const Stored& f : files) {
    w.U32(static_cast<std::uint32_t>(f.bytes.size()));
    w.Raw(f.name);
    w.U8(0);
    w.Raw(f.bytes);
  }
  w.U32(trailer);
  return w.Take();
}

struct SelfInstallerTest : ArchiveFixture, ::testing::Test {
  std::string magic = program.GetText(text::SelfInstallerMagic);
  fs::path level = Path("level");
  fs::path temporary = Path("home/temp_vardm15");
};

TEST_F(SelfInstallerTest, LevelComesOutOfTheInstallerAndTheZipInIt) {
  const std::string level_bytes = LevelBytes(1);
  dir.Write("zipped/data/level.tr4", level_bytes);
  ASSERT_TRUE(ZipFolderToFile(program, Path("zipped"), Path("inner.zip"), nullptr, true));
  WriteBytes(level / "setup.exe",
             Installer(magic, {{"inner.zip", ReadFile(Path("inner.zip"))},
                               {"readme.txt", "read me"},
                               {program.GetText(text::InstallerOwnFile1), "own"}}));
  WriteBytes(level / "tool.exe", "MZ a plain program");
  // A file the level holds in another case is the one replaced, and keeps its name.
  WriteBytes(level / "README.TXT", "an older one");

  UnpackSelfInstallers(program, level, nullptr);

  EXPECT_EQ(Snapshot(level),
            (std::map<std::string, std::string>{{"level.tr4", level_bytes},
                                                {"README.TXT", "read me"},
                                                {"tool.exe", "MZ a plain program"}}));
  EXPECT_FALSE(fs::exists(temporary));
  EXPECT_TRUE(ui.Messages().empty());
}

TEST_F(SelfInstallerTest, HostileTrailersWriteNothing) {
  auto with_tail = [](std::string bytes, std::uint32_t offset) {
    for (int i = 0; i < 4; ++i) bytes[bytes.size() - 4 + i] = static_cast<char>(offset >> (8 * i));
    return bytes;
  };
  const std::string good = Installer(magic, {{"a.txt", "abc"}});
  std::string huge_count = good;
  huge_count.replace(24 + 8 + 4, 4, "\x00\x94\x35\x77", 4);  // 2,000,000,000
  std::string size_past_end = good;
  size_past_end.replace(24 + 16, 4, "\xFF\xFF\x00\x00", 4);
  std::string no_nul = good;
  no_nul.resize(24 + 20 + 5);
  no_nul += with_tail("xxxx", 24);
  struct Case {
    const char* what;
    std::string bytes;
    bool installer;  // told as a damaged installer, not taken for a plain program
  };
  const std::vector<Case> cases = {
      {"offset beyond the file", with_tail(good, 100000), false},
      {"offset at the file's end", with_tail(good, static_cast<std::uint32_t>(good.size())), false},
      {"other magic", Installer("OTHERSX", {{"a.txt", "abc"}}), false},
      {"count of two billion", huge_count, true},
      {"size past the end", size_past_end, true},
      {"name without its NUL", no_nul, true},
      {"name with ..", Installer(magic, {{"../evil.txt", "x"}}), true},
  };
  ui.AllowAnyMessage();
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    fs::remove_all(Path("t"));
    WriteBytes(Path("t/in.exe"), c.bytes);
    const std::size_t told = ui.Messages().size();
    EXPECT_FALSE(UnpackSelfInstaller(program, Path("t/in.exe"), Path("t/out"), true));
    EXPECT_EQ(Names(Snapshot(Path("t"))), std::vector<std::string>{"in.exe"});
    EXPECT_EQ(ui.Messages().size() - told, c.installer ? 1u : 0u);
  }
}

}  // namespace
}  // namespace vardolin::testing
