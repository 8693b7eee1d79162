// Listing and unpacking arbitrary bytes as a zip and as any archive: every input must give a
// result, never a crash, and nothing may appear outside the scratch destination, whatever
// names, links or sizes the bytes claim.

#include <fstream>
#include <set>

#include "../bench/bench_ports.h"
#include "foundation/program.h"
#include "web/archive_unpack.h"

namespace {

namespace fs = std::filesystem;
using namespace vardolin;

struct Scratch {
  fs::path root = [] {
    std::string tmpl = (fs::temp_directory_path() / "vardolin-fuzz-archive-XXXXXX").string();
    if (!mkdtemp(tmpl.data())) std::abort();
    return fs::path(tmpl);
  }();
  bench::SilentUi ui;
  bench::NoPlatform platform;
  Program program{root / "home", ui, platform};
};

// Only the archive and the destination's own folder may stand beside the destination.
void CheckNothingOutside(const fs::path& dir, const std::set<std::string>& allowed) {
  for (const auto& e : fs::directory_iterator(dir))
    if (!allowed.count(e.path().filename().string())) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static Scratch s;
  const fs::path archive = s.root / "in.bin";
  std::ofstream(archive, std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  for (ArchiveKinds kinds : {ArchiveKinds::Zip, ArchiveKinds::Any}) {
    std::string error;
    ListArchive(
        archive, kinds, [](const ListedEntry&) {}, error);
    UnpackOptions options;
    options.kinds = kinds;
    UnpackResult r = UnpackArchive(s.program, archive, s.root / "dest/level", options);
    if (!r.ok && fs::exists(s.root / "dest")) __builtin_trap();  // a failure takes all back
    CheckNothingOutside(s.root, {"in.bin", "dest", "home"});
    if (fs::exists(s.root / "dest")) CheckNothingOutside(s.root / "dest", {"level"});
    std::error_code ec;
    fs::remove_all(s.root / "dest", ec);
  }
  return 0;
}
