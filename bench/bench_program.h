#pragma once
// A Program for a benchmark: its home lies in a scratch folder that goes with the bench, and its
// ports stay silent, so what is timed is the program's own work.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <initializer_list>

#include "bench_data.h"
#include "bench_ports.h"
#include "bench_tools.h"
#include "foundation/program.h"
#include "foundation/program_home.h"
#include "foundation/services/files.h"
#include "foundation/services/time_zone.h"
#include "foundation/texts/text_catalogue.h"

namespace vardolin::bench {

template <class UiType = SilentUi>
struct ProgramBench {
  // As the front ends do first thing in main.
  bool time_zone_pinned = (PinTimeZone(), true);
  ScratchFolder scratch;
  std::filesystem::path root = scratch.path();
  UiType ui;
  NoPlatform platform;
  Program program{root / "home", ui, platform};

  // The home's resources and the English texts, which most of the measured work reads.
  void PrepareHomeAndTexts() {
    if (!PrepareHome(program.Home()) || !LoadLanguage(program)) std::abort();
  }

  // An editor folder holding the given files (200 kB of random bytes each) and its safe copy
  // at `backup`, which the program uses, with its archive in root/archive; the home and texts
  // are prepared too.
  void PrepareEditorAndArchive(const std::filesystem::path& editor,
                               const std::filesystem::path& backup,
                               std::initializer_list<const char*> files) {
    for (const char* sub : {"data", "audio", "graphics/wads", "script"})
      std::filesystem::create_directories(editor / sub);
    for (const char* file : files) Write(editor / file, RandomBytes(200000, 7));
    std::filesystem::create_directories(backup.parent_path());
    std::filesystem::copy(editor, backup, std::filesystem::copy_options::recursive);
    PrepareHomeAndTexts();
    program.prefs.EditorFolder = editor.string();
    program.prefs.FullBackupDone = true;
    program.BackupFolder = backup.string();
    program.catalogue.header.MainDir = (root / "archive").string();
    program.catalogue.header.SecondaryDir = (root / "archive").string();
  }

  // An empty folder of that name in the scratch folder, where a side of a figure writes.
  std::filesystem::path Fresh(const char* name = "target") {
    MakeEmptyFolder(root / name);
    return root / name;
  }
};

// The one bench of a binary, made at its first use.
template <class BenchType>
BenchType& The() {
  static BenchType bench;
  return bench;
}

// A benchmark binary's main: the bench's data is made before any timing.
template <class BenchType>
int Main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  The<BenchType>();
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}

}  // namespace vardolin::bench
