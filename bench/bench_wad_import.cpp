// The wad import and the editor's script files against plain copies of the same bytes, each
// pair timed in turns within one run.
//
//   import   Dialog_AddWads importing 2,000 wad-set files (about 200 MB) into the editor and
//            the safe copy of its files     vs two cp -r of the same files (goal <= 1.2)
//   script   ReadScriptFile + WriteScriptFile of a script with 5,000 level blocks
//                                           vs reading and writing the same bytes (goal <= 3)

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "bench_data.h"
#include "bench_program.h"
#include "bench_tools.h"
#include "foundation/data_lists.h"
#include "foundation/services/files.h"
#include "intake/dialog_add_wads.h"
#include "intake/editor_script_files.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

constexpr int kWadFiles = 2000;
constexpr std::size_t kWadBytes = 100 * 1000;
constexpr int kBlocks = 5000;

struct Bench : bench::ProgramBench<> {
  fs::path wads = root / "wads", editor = root / "trle", script = root / "script.txt";

  Bench() {
    PrepareHomeAndTexts();
    program.lists = BuildDataLists();
    program.prefs.EditorFolder = editor.string();
    program.BackupFolder = (root / "home/backup_trle").string();
    const char* extensions[] = {".wad", ".was", ".swd", ".sam", ".sfx"};
    for (int i = 0; i < kWadFiles; ++i)
      bench::Write(
          wads / ("set" + std::to_string(i / 5) + extensions[i % 5]),
          i % 2 ? bench::RandomBytes(kWadBytes, i) : bench::CompressibleBytes(kWadBytes, i));
    std::string text = "; the editor's script\r\n[PCExtensions]\r\nLevel=.TR4\r\n\r\n";
    for (int i = 0; i < kBlocks; ++i)
      text += "[Level]\r\nName=Level number " + std::to_string(i) + "\r\nLevel=DATA\\LEVEL" +
              std::to_string(i) + ",105\r\nLegend=Somewhere\r\nHorizon=ENABLED\r\n\r\n";
    bench::Write(script, text);
  }

  // Both sides start from an editor and a safe copy without the wads.
  bool Clean() {
    return MakeEmptyFolder(editor / "graphics/wads") &&
           MakeEmptyFolder(fs::path(program.BackupFolder) / "graphics/wads");
  }
};

void BM_ImportWads(benchmark::State& state) {
  Bench& b = bench::The<Bench>();
  Dialog_AddWads dialog(b.program);
  bench::Side ours{[&] {
                     dialog.ImpostaValori({});
                     // Second names of the same bytes: the import reads the files, whatever
                     // their names are on disk.
                     return b.Clean() && bench::Run({"cp", "-al", b.wads.string() + "/.",
                                                     dialog.ImportFolder.string()});
                   },
                   [&] {
                     dialog.RefreshFileList();
                     dialog.Pul_Import.Click();
                     return dialog.ImportDone && FileExists(b.editor / "graphics/wads/set399.sfx");
                   }};
  bench::Side cp{[&] { return b.Clean(); },
                 [&] {
                   return bench::Run({"cp", "-r", b.wads.string() + "/.",
                                      (b.editor / "graphics/wads").string()}) &&
                          bench::Run({"cp", "-r", b.wads.string() + "/.",
                                      b.program.BackupFolder + "/graphics/wads"});
                 }};
  bench::MeasurePair(state, "cp", ours, cp);
}

void BM_ScriptReadWrite(benchmark::State& state) {
  Bench& b = bench::The<Bench>();
  const fs::path out = b.root / "written.txt";
  bench::Side ours{[] { return true; },
                   [&] {
                     std::string head;
                     const auto entries = ReadScriptFile(b.program, b.script, head);
                     return entries.size() == kBlocks && WriteScriptFile(out, entries, head);
                   }};
  bench::Side bytes{[] { return true; },
                    [&] {
                      const std::string all = ReadWholeFile(b.script);
                      return !all.empty() && WriteTextFile(out, all);
                    }};
  bench::MeasurePair(state, "read+write", ours, bytes);
}

#define FIGURE ->UseManualTime()->Unit(benchmark::kMillisecond)
BENCHMARK(BM_ImportWads) FIGURE->Iterations(4);
BENCHMARK(BM_ScriptReadWrite) FIGURE->Iterations(20);

}  // namespace
}  // namespace vardolin

int main(int argc, char** argv) {
  return vardolin::bench::Main<vardolin::Bench>(argc, argv);
}
