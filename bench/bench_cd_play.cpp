// Playing a level kept on a CD image: its files folder is read straight out of the ISO file and
// put into the editor folder, against bsdtar extracting the same folder from the same image.
// The reference level is that of bench_activation (40 files, 200 MB).
//
//   activate/image   SetLevelInTrle of a level whose files lie only    vs bsdtar -xf of its files
//                    in a remembered ISO image                            folder (goal <= 1.0)
//   fetch/image      LevelFolderOnCd alone: the files fetched out of    vs the same
//                    the image into the home
//
// Each iteration times ours and the reference in turns (bench::MeasurePair); ours starts from
// the base level in the editor folder, the reference from an empty folder.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "archive/level_store.h"
#include "bench_data.h"
#include "bench_program.h"
#include "bench_tools.h"
#include "cd/cd_images.h"
#include "cd/dialog_insert_cd.h"
#include "foundation/catalogue_records.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "play/activation.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
constexpr std::int32_t kCdLevel = 1;

struct Bench : bench::ProgramBench<> {
  fs::path editor, backup, image;
  const std::string inside = "archive1/LEVEL_0001/files";

  Bench() {
    editor = root / "trle";
    backup = root / "home/backup_trle";
    PrepareEditorAndArchive(
        editor, backup,
        {"tomb4.exe", "script.dat", "english.dat", "load.bmp", "data/title.tr4", "audio/044.wav"});
    InstallCdLevels(program);
    for (std::int32_t code : {0, kCdLevel}) {
      LevelRecord r;
      r.Code = code;
      r.CdNumber = code == kCdLevel ? 1 : 0;
      r.Name = "Level " + std::to_string(code);
      program.catalogue.levels.push_back(r);
    }
    // The level's files go onto the image and leave the disk; its user folders stay.
    const fs::path files = root / "disc" / inside;
    for (int i = 0; i < 2 * bench::kFilesPerKind; ++i)
      bench::Write(files / bench::EditorLevelFileName(i), bench::ReferenceFileBytes(i));
    image = root / "archive1.iso";
    if (!bench::Run({"genisoimage", "-quiet", "-J", "-R", "-o", image.string(),
                     (root / "disc").string()}) ||
        !RememberCdImage(program, 1, image))
      std::abort();
    fs::remove_all(root / "disc");
    fs::create_directories(GetLevelFolder(program, kCdLevel, false) / "play");
  }
};

void BM_ActivateFromImage(benchmark::State& state) {
  Bench& b = bench::The<Bench>();
  fs::path target;
  bench::MeasurePair(
      state, "bsdtar -xf",
      {[&] { return SetLevelInTrle(b.program, 0); },
       [&] { return SetLevelInTrle(b.program, kCdLevel); }},
      {[&] {
         target = b.Fresh();
         return true;
       },
       [&] {
         return bench::Run({"bsdtar", "-xf", b.image.string(), "-C", target.string(), b.inside});
       }});
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * 2 * bench::kFilesPerKind *
                          static_cast<std::int64_t>(bench::kFileSize));
  SetLevelInTrle(b.program, 0);
}

// The fetch alone, without the rest of the activation: where the time of the figure above goes.
void BM_FetchFromImage(benchmark::State& state) {
  Bench& b = bench::The<Bench>();
  fs::path target;
  bench::MeasurePair(
      state, "bsdtar -xf",
      {[] { return true; }, [&] { return !LevelFolderOnCd(b.program, kCdLevel).empty(); }},
      {[&] {
         target = b.Fresh();
         return true;
       },
       [&] {
         return bench::Run({"bsdtar", "-xf", b.image.string(), "-C", target.string(), b.inside});
       }});
}

BENCHMARK(BM_ActivateFromImage)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(7);
BENCHMARK(BM_FetchFromImage)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(7);

}  // namespace
}  // namespace vardolin

int main(int argc, char** argv) {
  return vardolin::bench::Main<vardolin::Bench>(argc, argv);
}
