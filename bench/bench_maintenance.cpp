// Archive maintenance against tools doing the same work in the same run.
//
//   move      MoveArchive of an archive of 200 levels (400 MB) to another folder of the same
//             disk                      vs cp -r of the archive folder, then rm -r (goal <= 1.1)
//   backup    the full backup of a 300 MB editor folder made afresh beside the backup that
//             stands, put in its place and the old one deleted
//                                       vs cp -r of the editor folder to a new folder, then
//                                          rm -r of the copy made before (goal <= 1.2)
//   recover   RecoverArchive of 1,000 and 10,000 level folders, sizes counted
//                                       vs du -s of the same folder (how it grows: per_level_us)

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "archive/archive_maintenance.h"
#include "archive/catalogue_file.h"
#include "bench_data.h"
#include "bench_program.h"
#include "bench_tools.h"
#include "foundation/program.h"
#include "foundation/services/files.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

constexpr int kLevels = 200;
constexpr int kFilesPerLevel = 4;
constexpr std::size_t kLevelFileSize = 500 * 1024;  // 200 x 4 x 500 KB = 400 MB
constexpr int kEditorFiles = 150;
constexpr std::size_t kEditorFileSize = 2 * 1024 * 1024;  // 300 MB

// The questions a maintenance run asks are answered as its user would: yes, go on.
class YesUi : public bench::SilentUi {
 public:
  int AskUser(const std::string&, int style, const std::string&) override {
    return (style & 7) == msg::kYesNo ? msg::kYes : msg::kOk;
  }
};

std::string LevelName(int code) {
  char name[16];
  std::snprintf(name, sizeof name, "LEVEL_%04d", code);
  return name;
}

struct Bench : bench::ProgramBench<YesUi> {
  fs::path editor = root / "trle";

  Bench() {
    PrepareHomeAndTexts();
    program.prefs.AutoSave = false;
    for (int code = 1; code <= kLevels; ++code)
      for (int f = 0; f < kFilesPerLevel; ++f)
        bench::Write(
            root / "move/a" / LevelName(code) / "files" / ("f" + std::to_string(f) + ".tr4"),
            bench::RandomBytes(kLevelFileSize, code * 10 + f));
    for (const char* name : {"tomb4.exe", "tom2pc.exe", "winroomedit.exe", "script.exe",
                             "script.dat", "data/title.tr4"})
      bench::Write(editor / name, std::string("MZ ") + name);
    const char* folders[] = {"graphics/wads/", "audio/", "maps/"};
    for (int i = 0; i < kEditorFiles; ++i)
      bench::Write(editor / (std::string(folders[i % 3]) + "file" + std::to_string(i) + ".bin"),
                   bench::RandomBytes(kEditorFileSize, 1000 + i));
    program.prefs.EditorFolder = editor.string();
    program.BackupFolder = (root / "home/backup_trle").string();
  }

  // The catalogue of the archive in `folder`, with its sizes.
  void ArchiveIn(const fs::path& folder) {
    Catalogue c;
    c.levels.push_back(BaseLevelRecord(program));
    for (int code = 1; code <= kLevels; ++code) c.levels.emplace_back().Code = code;
    c.header.MainDir = c.header.SecondaryDir = folder.string();
    c.header.LevelCount = kLevels + 1;
    c.header.TotalFilesSize = double(kLevels) * kFilesPerLevel * kLevelFileSize;
    program.catalogue = c;
    program.CatalogueDirty = false;
  }
};

Bench& TheBench() {
  static Bench bench;
  return bench;
}

// Both sides move their archive between two folders of their own, one way each iteration.
void BM_MoveArchive(benchmark::State& state) {
  Bench& b = TheBench();
  const fs::path ours[2] = {b.root / "move/a", b.root / "move/b"};
  const fs::path ref[2] = {b.root / "move/c", b.root / "move/d"};
  fs::create_directories(ref[0]);
  if (!bench::Run({"cp", "-r", ours[0].string() + "/.", ref[0].string()})) std::abort();
  int ours_at = 0, ref_at = 0;
  bench::MeasurePair(
      state, "cp -r, rm -r",
      {[&] {
         b.ArchiveIn(ours[ours_at]);
         fs::remove_all(ours[1 - ours_at]);
         return true;
       },
       [&] {
         const bool ok = MoveArchive(b.program, ours[1 - ours_at]);
         ours_at = 1 - ours_at;
         return ok;
       }},
      {[&] {
         fs::remove_all(ref[1 - ref_at]);
         return true;
       },
       [&] {
         const bool ok = bench::Run({"cp", "-r", ref[ref_at].string(), ref[1 - ref_at].string()}) &&
                         bench::Run({"rm", "-r", ref[ref_at].string()});
         ref_at = 1 - ref_at;
         return ok;
       }});
}

// Each side replaces a copy that stands, so both write 300 MB and delete 300 MB.
void BM_FullBackup(benchmark::State& state) {
  Bench& b = TheBench();
  if (!MakeFullBackup(b.program, true, nullptr, nullptr)) std::abort();
  const fs::path ref[2] = {b.root / "backup_ref_a", b.root / "backup_ref_b"};
  if (!bench::Run({"cp", "-r", b.editor.string(), ref[0].string()})) std::abort();
  int ref_at = 0;
  bench::MeasurePair(
      state, "cp -r, rm -r",
      {[&] { return true; }, [&] { return MakeFullBackup(b.program, true, nullptr, nullptr); }},
      {[&] { return true; },
       [&] {
         const bool ok = bench::Run({"cp", "-r", b.editor.string(), ref[1 - ref_at].string()}) &&
                         bench::Run({"rm", "-r", ref[ref_at].string()});
         ref_at = 1 - ref_at;
         return ok;
       }});
}

void BM_RecoverArchive(benchmark::State& state) {
  Bench& b = TheBench();
  const int count = static_cast<int>(state.range(0));
  const fs::path folder = b.root / ("recover" + std::to_string(count));
  for (int code = 1; code <= count; ++code)
    bench::Write(folder / LevelName(code) / "files/level.tr4", "level");
  bench::MeasurePair(state, "du -s",
                     {[&] {
                        b.program.CatalogueDirty = false;
                        return true;
                      },
                      [&] { return RecoverArchive(b.program, folder).done; }},
                     {[&] { return true; },
                      [&] {
                        return bench::Run({"du", "-s", folder.string()});
                      }});
  state.counters["per_level_us"] = state.counters["median_ms"] * 1000 / count;
}

#define FIGURE ->UseManualTime()->Unit(benchmark::kMillisecond)
BENCHMARK(BM_MoveArchive) FIGURE->Iterations(3);
BENCHMARK(BM_FullBackup) FIGURE->Iterations(3);
BENCHMARK(BM_RecoverArchive) FIGURE->Iterations(5)->Arg(1000)->Arg(10000);

}  // namespace
}  // namespace vardolin

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  vardolin::TheBench();  // the archive and the editor folder are made before any timing
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
