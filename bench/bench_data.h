#pragma once
// What the benchmarks work on: bytes of a known character, made from a seed so every run
// measures the same data, and a scratch folder that goes away with the bench.

#include <linux/magic.h>
#include <stdlib.h>
#include <sys/statfs.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

namespace vardolin::bench {

// Bytes that look like an LZ77 stream's output: random literal runs and copies of what came
// shortly before. gzip -9 takes them to about half.
inline std::string CompressibleBytes(std::size_t n, unsigned seed) {
  std::mt19937_64 rng(seed);
  std::string s;
  s.reserve(n + 64);
  while (s.size() < 64) s += static_cast<char>(rng());
  while (s.size() < n) {
    if (rng() % 100 < 22) {
      std::size_t len = 4 + rng() % 37;
      std::size_t dist = len + rng() % (std::min<std::size_t>(s.size(), 32768) - len + 1);
      std::size_t from = s.size() - dist;
      for (std::size_t i = 0; i < len; ++i) s += s[from + i];
    } else {
      for (std::size_t i = 1 + rng() % 8; i > 0; --i) s += static_cast<char>(rng());
    }
  }
  s.resize(n);
  return s;
}

// Bytes no compressor can shrink.
inline std::string RandomBytes(std::size_t n, unsigned seed) {
  std::mt19937_64 rng(seed);
  std::string s(n, '\0');
  for (std::size_t i = 0; i + 8 <= n; i += 8) {
    std::uint64_t v = rng();
    for (int b = 0; b < 8; ++b) s[i + b] = static_cast<char>(v >> (8 * b));
  }
  return s;
}

// A fresh folder under the system's temporary folder, removed with the object. `in_memory` puts
// it on a tmpfs when the machine has one, for figures of many files or of parsing, where the
// disk would measure itself: on a journal-less ext4, as on the machine these figures come from,
// each new file costs a scan of every inode freed in the last minutes, work the same for both
// sides that grows with every file any benchmark removed and buries the programs' own.
class ScratchFolder {
 public:
  explicit ScratchFolder(bool in_memory = false) {
    struct statfs st {};
    const bool memory = in_memory && ::statfs("/dev/shm", &st) == 0 && st.f_type == TMPFS_MAGIC;
    std::string tmpl =
        ((memory ? std::filesystem::path("/dev/shm") : std::filesystem::temp_directory_path()) /
         "vardolin-bench-XXXXXX")
            .string();
    if (!mkdtemp(tmpl.data())) std::abort();
    path_ = tmpl;
  }
  ~ScratchFolder() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// The reference level the benchmarks measure on: 2 x 20 files of 5 MB, the first half random
// (as packed game data is), the second half compressible about 2:1.
inline constexpr std::size_t kFileSize = 5 * 1000 * 1000;
inline constexpr int kFilesPerKind = 20;

// The bytes of the reference level's file `i`; the same in every run and every benchmark.
inline std::string ReferenceFileBytes(int i) {
  return i < kFilesPerKind ? RandomBytes(kFileSize, 100 + i)
                           : CompressibleBytes(kFileSize, 200 + i);
}

// The reference level's file names: its script, then rooms and wads in turn.
inline std::string ReferenceFileName(int i) {
  return i == 0 ? std::string("script.dat")
                : "room" + std::to_string(i) + (i % 2 ? ".tr4" : ".wad");
}

// The reference level's file names as a level put into the editor has them: the title, script
// and texts that replace the editor's own, then rooms with a track every fourth file.
inline std::string EditorLevelFileName(int i) {
  return i == 0       ? std::string("title.tr4")
         : i == 1     ? std::string("script.dat")
         : i == 2     ? std::string("english.dat")
         : i % 4 == 3 ? "track" + std::to_string(i) + ".wav"
                      : "room" + std::to_string(i) + ".tr4";
}

}  // namespace vardolin::bench
