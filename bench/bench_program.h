#pragma once
// A Program for a benchmark: its home lies in a scratch folder that goes with the bench, and its
// ports stay silent, so what is timed is the program's own work.

#include <cstdlib>
#include <filesystem>

#include "bench_data.h"
#include "bench_ports.h"
#include "foundation/program.h"
#include "foundation/program_home.h"
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
};

}  // namespace vardolin::bench
