// The level editor's install and the comparison of editor folders against tools doing the same
// work in the same run.
//
//   install   InstallEditor of a 100 MB compressed setup in five zips (half random, half
//             compressible data), which also checks the files, makes the menu entries and
//             registers the editor     vs unzip -o -q of the same five zips into an empty folder
//                                      (goal <= 1.3)
//   compare   the compact comparison of a 5,000-file editor folder with its copy
//                                      vs diff -rq of the two folders (goal <= 1.0)

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <string>
#include <vector>

#include "bench_data.h"
#include "bench_program.h"
#include "bench_tools.h"
#include "editor/dialog_compare_trle.h"
#include "editor/dialog_installa_trle.h"
#include "editor/install_editor.h"
#include "foundation/pictures/bitmap.h"
#include "foundation/pictures/jpeg_codec.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/texts/text_catalogue.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

constexpr int kParts = 5;
constexpr int kPackageFilesPerKind = 10;  // 2 x 10 files of 5 MB
constexpr int kCompareFiles = 5000;

struct Bench : bench::ProgramBench<> {
  std::vector<std::string> zips;
  fs::path editor = root / "compare/trle", copy = root / "compare/copy";

  Bench() {
    // Everything the install writes outside its target stays in the scratch folder.
    setenv("WINEPREFIX", (root / "wine").c_str(), 1);
    setenv("XDG_DATA_HOME", (root / "xdg").c_str(), 1);
    setenv("XDG_CONFIG_HOME", (root / "config").c_str(), 1);
    PrepareHomeAndTexts();
    MakePackage();
    MakeCompareFolders();
  }

  void MakePackage() {
    std::string jpeg;
    WriteJpeg(Bitmap::Make(64, 48), 80, jpeg);
    const std::vector<std::pair<std::string, std::string>> named = {
        {"trle/tomb4.exe", "MZ game"},        {"trle/tom2pc.exe", "MZ converter"},
        {"trle/winroomedit.exe", "MZ rooms"}, {"trle/script.exe", "MZ script"},
        {"trle/data/title.tr4", "title"},     {"trle/lang/english.dat", "english"},
        {"trle/lang/script.dat", "script"},   {"trle/docs/manual_eng.pdf", "%PDF"},
        {"trle/load_eng.jpg", jpeg}};
    std::vector<std::string> files;
    for (const auto& [rel, bytes] : named) files.push_back(rel);
    for (int i = 0; i < 2 * kPackageFilesPerKind; ++i)
      files.push_back("trle/data/level" + std::to_string(i) + ".tr4");
    std::string list;
    for (std::size_t i = 0; i < files.size(); ++i) {
      fs::path part = root / ("part" + std::to_string(i % kParts));
      std::string bytes = i < named.size() ? named[i].second
                          : (i - named.size()) < kPackageFilesPerKind
                              ? bench::RandomBytes(bench::kFileSize, 100 + i)
                              : bench::CompressibleBytes(bench::kFileSize, 200 + i);
      bench::Write(part / files[i], bytes);
      std::string windows = files[i];
      for (char& c : windows) c = c == '/' ? '\\' : c;
      list += windows + "\r\n";
    }
    bench::Write(root / "part0/trle_files.txt", list);
    for (int p = 0; p < kParts; ++p) {
      zips.push_back((root / ("trle_setup_" + std::to_string(p + 1) + ".zip")).string());
      if (!bench::Run({"zip", "-r", "-q", zips.back(), "."}, root / ("part" + std::to_string(p))))
        std::abort();
    }
  }

  // Root, data and wads, as the compact comparison reads them; the copy keeps the dates.
  void MakeCompareFolders() {
    const char* folders[] = {"", "data/", "graphics/wads/"};
    for (int i = 0; i < kCompareFiles; ++i)
      bench::Write(editor / (std::string(folders[i % 3]) + "file" + std::to_string(i) + ".dat"),
                   bench::RandomBytes(1000 + i % 700, i));
    if (!bench::Run({"cp", "-a", editor.string(), copy.string()})) std::abort();
  }
};

void BM_InstallEditor(benchmark::State& state) {
  Bench& b = bench::The<Bench>();
  Dialog_InstallaTrle dialog(b.program);
  for (auto _ : state) {
    b.Fresh("wine");
    bool ok = true;
    state.SetIterationTime(bench::Seconds(
        [&] {
          return InstallEditor(b.program, true, 0, {}, dialog.Label_Info, dialog.ProgressBar1,
                               b.zips, nullptr);
        },
        ok));
    if (!ok) state.SkipWithError("the install failed");
  }
  state.SetLabel("vs:BM_UnzipParts");
}

void BM_UnzipParts(benchmark::State& state) {
  Bench& b = bench::The<Bench>();
  for (auto _ : state) {
    fs::path target = b.Fresh("unzipped");
    bool ok = true;
    state.SetIterationTime(bench::Seconds(
        [&] {
          for (const std::string& zip : b.zips)
            if (!bench::Run({"unzip", "-o", "-q", zip, "-d", target.string()})) return false;
          return true;
        },
        ok));
    if (!ok) state.SkipWithError("unzip failed");
  }
}

void BM_CompareCompact(benchmark::State& state) {
  Bench& b = bench::The<Bench>();
  Dialog_CompareTrle dialog(b.program);
  dialog.Label_Sorg.SetCaption(b.copy.string());
  dialog.Opt_Compact.SetValue(true);
  for (auto _ : state) {
    bool ok = true;
    state.SetIterationTime(bench::Seconds(
        [&] {
          return dialog.ListChangedFiles(b.editor.string(), false).empty() &&
                 dialog.CountOk == kCompareFiles;
        },
        ok));
    if (!ok) state.SkipWithError("the folders compared unequal");
  }
  state.SetLabel("vs:BM_DiffRq");
}

void BM_DiffRq(benchmark::State& state) {
  Bench& b = bench::The<Bench>();
  for (auto _ : state) {
    bool ok = true;
    state.SetIterationTime(bench::Seconds(
        [&] {
          return bench::Run({"diff", "-rq", b.copy.string(), b.editor.string()});
        },
        ok));
    if (!ok) state.SkipWithError("diff found differences");
  }
}

#define FIGURE ->UseManualTime()->Unit(benchmark::kMillisecond)
BENCHMARK(BM_UnzipParts) FIGURE->Iterations(3);
BENCHMARK(BM_InstallEditor) FIGURE->Iterations(3);
BENCHMARK(BM_DiffRq) FIGURE->Iterations(10);
BENCHMARK(BM_CompareCompact) FIGURE->Iterations(10);

}  // namespace
}  // namespace vardolin

int main(int argc, char** argv) {
  return vardolin::bench::Main<vardolin::Bench>(argc, argv);
}
