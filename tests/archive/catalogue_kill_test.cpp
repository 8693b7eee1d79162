// A process killed in the middle of saving the catalogue, at many points of the write and just
// before the file is put in place, must leave a whole catalogue: the old one or a new one.

#include <gtest/gtest.h>

#include "archive/catalogue_file.h"
#include "archive_fixture.h"
#include "fault_child.h"

namespace vardolin::testing {
namespace {

constexpr int kGenerations = 5;

// Generation 0 is the catalogue on disk before the child starts; the child saves 1 to 5 in turn.
// Each is a few 64 KiB write chunks long, and each is told apart by its CD count.
Catalogue Generation(int g, const std::filesystem::path& folder) {
  Catalogue c = SampleCatalogue(200 + 50 * g, folder.string());
  c.header.CdCount = g;
  c.header.LevelCount = static_cast<std::int32_t>(c.levels.size());
  return c;
}

constexpr const char* kChildVariable = "VARDOLIN_CATALOGUE_CHILD";

// Runs only as the child: saves generations 1 to 5 over "<root>/cat.vdc" until the fault point
// the parent chose kills it.
TEST(CatalogueKillChild, SavesUntilKilled) {
  const auto job = ReadFaultJob(kChildVariable);
  if (!job) GTEST_SKIP() << "runs only as the child of the kill test";
  ScriptedUi ui;
  RecordingPlatform platform;
  Program program(job->root, ui, platform);
  for (int g = 1; g <= kGenerations; ++g) {
    program.catalogue = Generation(g, program.Home());
    ASSERT_TRUE(SaveCatalogueFile(program, job->root / "cat.vdc"));
  }
}

// 1 when the fault point killed the child, 0 when it finished.
int RunSaverChild(const std::filesystem::path& root, const std::string& point) {
  return RunFaultChild("CatalogueKillChild.SavesUntilKilled", kChildVariable,
                       "save|" + root.string(), point);
}

struct KillCase {
  std::string point;
  int expect_generation;  // -1: any whole generation
};

TEST(CatalogueKill, DiskAlwaysHoldsAWholeOldOrNewCatalogue) {
  TempDir dir;
  const std::filesystem::path file = dir / "cat.vdc";
  std::vector<std::string> images;
  for (int g = 0; g <= kGenerations; ++g)
    images.push_back(SerializeCatalogue(Generation(g, dir.path())));

  std::vector<KillCase> cases = {
      {"atomic-write:1", 0},         {"atomic-write:2", 0},         {"atomic-write:4", 0},
      {"atomic-write:7", -1},        {"atomic-write:11", -1},       {"atomic-write:16", -1},
      {"atomic-write:22", -1},       {"atomic-write:29", -1},       {"atomic-write:37", -1},
      {"atomic-write:45", -1},       {"atomic-before-rename:1", 0}, {"atomic-before-rename:2", 1},
      {"atomic-before-rename:3", 2}, {"atomic-before-rename:5", 4},
  };
  std::set<int> seen;
  for (const KillCase& k : cases) {
    WriteBytes(file, images[0]);
    ASSERT_EQ(RunSaverChild(dir.path(), k.point), 1) << k.point << ": the child was not killed";
    std::string on_disk = ReadFile(file);
    int generation = -1;
    for (int g = 0; g <= kGenerations; ++g)
      if (on_disk == images[static_cast<std::size_t>(g)]) generation = g;
    ASSERT_NE(generation, -1) << k.point << ": the file is no whole catalogue (" << on_disk.size()
                              << " bytes)";
    if (k.expect_generation >= 0) EXPECT_EQ(generation, k.expect_generation) << k.point;
    seen.insert(generation);

    // What a killed save leaves beside the file doesn't stand in the way of the next one.
    ScriptedUi ui;
    RecordingPlatform platform;
    Program program(dir.path(), ui, platform);
    ASSERT_TRUE(LoadCatalogueFile(program, file) || program.ClosingDown);
  }
  EXPECT_GE(seen.size(), 4u) << "the kills should strike in several different saves";

  // Unkilled, the child's last save stands.
  WriteBytes(file, images[0]);
  ASSERT_EQ(RunSaverChild(dir.path(), "atomic-write:1000000"), 0);
  EXPECT_EQ(ReadFile(file), images[kGenerations]);
}

}  // namespace
}  // namespace vardolin::testing
