// A process killed in the middle of saving the catalogue, at many points of the write and just
// before the file is put in place, must leave a whole catalogue: the old one or a new one.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <set>

#include "archive/catalogue_file.h"
#include "archive_fixture.h"

extern char** environ;

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

TEST(CatalogueKillChild, SavesUntilKilled) {
  const char* file = std::getenv("VARDOLIN_KILL_CHILD_FILE");
  if (!file) GTEST_SKIP() << "runs only as the child of the kill test";
  ScriptedUi ui;
  RecordingPlatform platform;
  Program program(std::filesystem::path(file).parent_path(), ui, platform);
  for (int g = 1; g <= kGenerations; ++g) {
    program.catalogue = Generation(g, program.Home());
    if (!SaveCatalogueFile(program, file)) _exit(3);
  }
  _exit(0);
}

// Runs this test program again as the saving child, with the fault point set; gives the raw
// wait status.
int RunSaverChild(const std::string& file, const std::string& fault_point) {
  std::vector<std::string> env_store;
  for (char** e = environ; *e; ++e) {
    std::string_view v(*e);
    if (v.starts_with("VARDOLIN_FAULT_POINT=") || v.starts_with("VARDOLIN_KILL_CHILD_FILE=") ||
        v.starts_with("GTEST_"))
      continue;
    env_store.emplace_back(v);
  }
  env_store.push_back("VARDOLIN_FAULT_POINT=" + fault_point);
  env_store.push_back("VARDOLIN_KILL_CHILD_FILE=" + file);
  std::vector<char*> envp;
  for (std::string& s : env_store) envp.push_back(s.data());
  envp.push_back(nullptr);
  std::string exe = "/proc/self/exe";
  std::string filter = "--gtest_filter=CatalogueKillChild.SavesUntilKilled";
  char* argv[] = {exe.data(), filter.data(), nullptr};

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  pid_t pid = -1;
  int rc = posix_spawn(&pid, exe.c_str(), &actions, nullptr, argv, envp.data());
  posix_spawn_file_actions_destroy(&actions);
  if (rc != 0) return -1;
  int status = 0;
  waitpid(pid, &status, 0);
  return status;
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
    int status = RunSaverChild(file.string(), k.point);
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
        << k.point << ": the child was not killed (status " << status << ")";
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
  int status = RunSaverChild(file.string(), "atomic-write:1000000");
  ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  EXPECT_EQ(ReadFile(file), images[kGenerations]);
}

}  // namespace
}  // namespace vardolin::testing
