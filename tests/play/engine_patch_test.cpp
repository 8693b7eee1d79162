#include <gtest/gtest.h>

#include "editor_test_fixture.h"
#include "play/engine_patch.h"

namespace vardolin::testing {
namespace {
namespace fs = std::filesystem;

// A program file of `size` zero bytes that holds the expected bytes of the given rows.
std::string ProgramFile(std::size_t size, const PatchTable& table, std::size_t rows) {
  std::string bytes(size, '\0');
  for (std::size_t r = 0; r < rows && r < table.size(); ++r)
    for (std::size_t i = 0; i < table[r].expected.size(); ++i)
      bytes[table[r].offset + i] = static_cast<char>(table[r].expected[i]);
  return bytes;
}

std::string Patched(std::string bytes, const PatchTable& table) {
  for (const PatchRow& row : table)
    for (std::size_t i = 0; i < row.replacement.size(); ++i)
      bytes[row.offset + i] = static_cast<char>(row.replacement[i]);
  return bytes;
}

constexpr std::size_t kBuildSize = 0xA0000;

struct PatchCase {
  const char* name;
  std::string bytes;
  bool read_only;
  bool patched;
  const char* message;  // part of the one message, null for none
  std::string after;    // the file afterwards
};

TEST(PatchGameFileTest, OneWholeTableOrNothing) {
  const auto& a = EnginePatchTableA();
  const auto& b = EnginePatchTableB();
  const std::string build_a = ProgramFile(kBuildSize, a, a.size());
  const std::string build_b = ProgramFile(kBuildSize, b, b.size());
  const std::string only_first_row = ProgramFile(kBuildSize, a, 1);
  const std::string neither(kBuildSize, '\x90');
  const std::string short_a = build_a.substr(0, 0x90000);
  const PatchCase cases[] = {
      {"build A", build_a, false, true, nullptr, Patched(build_a, a)},
      {"build B", build_b, false, true, nullptr, Patched(build_b, b)},
      {"A's first row alone", only_first_row, false, false, "does not know", only_first_row},
      {"neither build", neither, false, false, "does not know", neither},
      {"shorter than the offsets", short_a, false, false, "does not know", short_a},
      {"patched before", Patched(build_a, a), false, false, "already patched", Patched(build_a, a)},
      {"read-only", build_a, true, false, "could not be written", build_a},
  };
  for (const PatchCase& c : cases) {
    SCOPED_TRACE(c.name);
    EditorTest t;
    fs::path file = t.Path("tomb4.exe");
    WriteBytes(file, c.bytes);
    if (c.read_only) fs::permissions(file, fs::perms::owner_write, fs::perm_options::remove);
    if (c.message) t.ui.Answer(msg::kOk, c.message);
    EXPECT_EQ(PatchGameFile(t.program, file, true), c.patched);
    EXPECT_TRUE(ReadFile(file) == c.after);
  }
}

TEST(ApplyEnginePatchTest, PatchesTheBackupsCopyAndPutsItIntoTheEditorFolder) {
  EditorTest t;
  const auto& b = EnginePatchTableB();
  const std::string build_b = ProgramFile(kBuildSize, b, b.size());
  WriteBytes(t.Path("home/backup_trle/tomb4.exe"), build_b);
  t.ui.AllowAnyMessage();
  ApplyEnginePatch(t.program, true);
  EXPECT_TRUE(ReadFile(t.editor / "tomb4.exe") == Patched(build_b, b));
  EXPECT_TRUE(ReadFile(t.Path("home/backup_trle/tomb4.exe")) == Patched(build_b, b));
  ASSERT_FALSE(t.ui.Messages().empty());
  EXPECT_NE(t.ui.Messages().back().find("has been patched"), std::string::npos);
}

}  // namespace
}  // namespace vardolin::testing
